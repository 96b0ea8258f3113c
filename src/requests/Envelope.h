#pragma once

/// @file
/// How the code of a response is found, and where its payload stands. Both server families treat 0 and 200 alike as
/// success. `View` is a reader of either JSON library; a member that is not there is nothing, which has no members.

#include <cstdint>
#include <string>

#include "base/NumberText.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

/// The code itself, with the second success code turned into 0.
constexpr int SuccessAsZero(int32_t code) { return code == 200 ? 0 : code; }

/// The common rule: a textual "resultCode", else a textual "code", else the "code" of "result", textual or a number.
/// Numbers at the top level are not looked at. 2 when nothing of the kind is there.
template <class View>
int EnvelopeCode(const View& root) {
    std::string text;
    if (root.Member("resultCode").Read(text) || root.Member("code").Read(text)) {
        return SuccessAsZero(DecimalPrefix(text));
    }
    const View code = root.Member("result").Member("code");
    if (code.Read(text)) {
        return SuccessAsZero(DecimalPrefix(text));
    }
    int32_t number = 0;
    return code.Read(number) ? SuccessAsZero(number) : VANTIX_RESP_BAD_FORMAT;
}

template <class View>
bool HasMeta(const View& root) {
    return root.Member("meta").IsObject();
}

/// The rule of the consumer servers: without an integer "code" in "meta" the response is a success.
template <class View>
int OptionalMetaCode(const View& root) {
    int32_t number = 0;
    root.Member("meta").Member("code").Read(number);
    return SuccessAsZero(number);
}

/// The same where "meta" must be an object, else 2.
template <class View>
int MetaCode(const View& root) {
    return HasMeta(root) ? OptionalMetaCode(root) : VANTIX_RESP_BAD_FORMAT;
}

/// The strict rule: "meta" must have an integer "code", else 2.
template <class View>
int StrictMetaCode(const View& root) {
    int32_t number = 0;
    return root.Member("meta").Member("code").Read(number) ? SuccessAsZero(number) : VANTIX_RESP_BAD_FORMAT;
}

/// "data" at the root.
template <class View>
View RootData(const View& root) {
    return root.Member("data");
}

/// "data" inside "result".
template <class View>
View ResultData(const View& root) {
    return root.Member("result").Member("data");
}

/// "data" inside "result" when that is an object, else the one at the root.
template <class View>
View ResultOrRootData(const View& root) {
    const View inside = ResultData(root);
    return inside.IsObject() ? inside : RootData(root);
}

/// A member that stands beside "data" or, failing that, inside it.
template <class View>
View BesideOrInsideData(const View& root, const char* key) {
    const View beside = root.Member(key);
    return beside.IsNull() ? RootData(root).Member(key) : beside;
}

}  // namespace vantix
