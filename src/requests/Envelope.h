#pragma once

/// @file
/// How the result code of an answer is found. Both server families treat 0 and 200 alike as success.

#include <cstdint>
#include <string>

#include "base/NumberText.h"

namespace vantix::json {

/// Response codes of the library's own; every other one is the server's.
inline constexpr int kNotJson = 1;
inline constexpr int kBadFormat = 2;

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
    return code.Read(number) ? SuccessAsZero(number) : kBadFormat;
}

/// The lenient rule: "meta" must be an object, but one without an integer "code" is a success.
template <class View>
int MetaCode(const View& root) {
    const View meta = root.Member("meta");
    if (!meta.IsObject()) {
        return kBadFormat;
    }
    int32_t number = 0;
    meta.Member("code").Read(number);
    return SuccessAsZero(number);
}

/// The strict rule: "meta" must have an integer "code".
template <class View>
int StrictMetaCode(const View& root) {
    int32_t number = 0;
    return root.Member("meta").Member("code").Read(number) ? SuccessAsZero(number) : kBadFormat;
}

}  // namespace vantix::json
