#pragma once

/// @file
/// One request as data. The compiler checks that a row fits together, and that a call gives a value for each key of its
/// row and for no other.

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "requests/MessageText.h"
#include "requests/RequestKeys.h"

namespace vantix {

/// How a request is sent.
enum class RequestKind {
    FormPost,
    JsonPost,      ///< Always to the path of the cloud recordings' details.
    TicketGet,     ///< Always to the ticket path, without headers.
    Get,           ///< With headers.
    BodylessPost,  ///< With headers.
    Put,           ///< With headers and without a body, always to the login path.
};

/// Whose request it is. Selects the type of the route.
enum class RequestFamily {
    Platform,
    Consumer,
    Authorization,
};

/// Parameters that many requests send besides their own.
struct CommonParameters {
    bool accessToken = false;
    bool clientSet = false;  ///< The six that describe this computer and the library.
    bool appKey = false;
};

/// Headers that describe this computer to the consumer servers, each set with the session id.
enum class HeaderSet {
    None,
    SessionOnly,
    A,  ///< Of device pagelists.
    B,  ///< Of most other requests.
};

/// Headers of a request.
struct CommonHeaders {
    HeaderSet set = HeaderSet::None;
    bool formContentType = false;
};

/// A parameter whose value never changes.
struct FixedParameter {
    const char* key = nullptr;
    const char* value = nullptr;
};

/// One request. Unused places of its lists are null.
struct RequestRow {
    RequestFamily family = RequestFamily::Platform;
    RequestKind kind = RequestKind::FormPost;
    uint32_t endpoint = 0;  ///< None where the kind has a path of its own.
    CommonParameters common = {};
    CommonHeaders headers = {};
    const char* keys[8] = {};          ///< Each call gives all of these,
    const char* optionalKeys[2] = {};  ///< and these as optional values.
    FixedParameter fixed[2] = {};
    CodeText transportFailure = {};   ///< Without it that of the kind.
    BodyCodeText checkFailure = {};   ///< Of a check of the response that comes before the parser.
    BodyCodeText parserFailure = {};  ///< Its label need not be the parser's name.
    CostText cost = {};               ///< Without it the elapsed time is not logged.
};

namespace row_detail {

constexpr bool SendsHeaders(RequestKind kind) {
    return kind == RequestKind::Get || kind == RequestKind::BodylessPost || kind == RequestKind::Put;
}

constexpr bool HasOwnPath(RequestKind kind) {
    return kind == RequestKind::JsonPost || kind == RequestKind::TicketGet || kind == RequestKind::Put;
}

/// Each family proves its right in its own way.
constexpr bool FitsFamily(const RequestRow& row) {
    const bool isConsumer = row.family == RequestFamily::Consumer;
    const bool hasSession = row.headers.set != HeaderSet::None;
    const bool hasPlatformParameters = row.common.accessToken || row.common.clientSet || row.common.appKey;
    const bool needsToken = row.family == RequestFamily::Authorization && row.common.accessToken;
    return isConsumer == hasSession && !(isConsumer && hasPlatformParameters) && !needsToken;
}

constexpr bool SendsParameters(const RequestRow& row) {
    return row.common.accessToken || row.common.clientSet || row.common.appKey || row.keys[0] != nullptr ||
           row.optionalKeys[0] != nullptr || row.fixed[0].key != nullptr;
}

/// How often the row itself, and not its common parameters, sends a key.
constexpr size_t Count(const RequestRow& row, std::string_view key) {
    size_t count = 0;
    for (const char* own : row.keys) {
        count += own != nullptr && key == own ? 1U : 0U;
    }
    for (const char* own : row.optionalKeys) {
        count += own != nullptr && key == own ? 1U : 0U;
    }
    for (const FixedParameter& fixed : row.fixed) {
        count += fixed.key != nullptr && key == fixed.key ? 1U : 0U;
    }
    return count;
}

constexpr bool RepeatsCommon(const RequestRow& row) {
    bool repeats =
        (row.common.accessToken && Count(row, "accessToken") != 0) || (row.common.appKey && Count(row, "appKey") != 0);
    for (const char* key : {"clientType", "featureCode", "osVersion", "clientVersion", "netType", "sdkVersion"}) {
        repeats = repeats || (row.common.clientSet && Count(row, key) != 0);
    }
    return repeats;
}

/// Whether a key stands twice: the second value would be lost.
constexpr bool RepeatsAKey(const RequestRow& row) {
    bool repeats = RepeatsCommon(row);
    for (const char* own : row.keys) {
        repeats = repeats || (own != nullptr && Count(row, own) != 1);
    }
    for (const char* own : row.optionalKeys) {
        repeats = repeats || (own != nullptr && Count(row, own) != 1);
    }
    for (const FixedParameter& fixed : row.fixed) {
        repeats = repeats || (fixed.key != nullptr && Count(row, fixed.key) != 1);
    }
    return repeats;
}

constexpr bool Contains(std::initializer_list<KeyInfo> given, std::string_view name, bool isOptional) {
    bool found = false;
    for (const KeyInfo& key : given) {
        found = found || (key.name == name && key.isOptional == isOptional);
    }
    return found;
}

}  // namespace row_detail

/// Whether what a row says fits together: nothing stands in it that its kind or family would ignore.
constexpr bool IsConsistent(const RequestRow& row) {
    using namespace row_detail;
    const bool hasHeaders = row.headers.set != HeaderSet::None || row.headers.formContentType;
    return HasOwnPath(row.kind) == (row.endpoint == 0) && (SendsHeaders(row.kind) || !hasHeaders) && FitsFamily(row) &&
           !(row.kind == RequestKind::JsonPost && SendsParameters(row)) && !RepeatsAKey(row);
}

/// The text about a transfer of this request that failed.
constexpr CodeText TransportFailureOf(const RequestRow& row) {
    if (row.transportFailure.IsThere()) {
        return row.transportFailure;
    }
    constexpr CodeText kWithHeaders = "SyncRequestHeader error:%d";
    constexpr CodeText kWithoutHeaders = "SyncRequest error:%d";
    return row_detail::SendsHeaders(row.kind) ? kWithHeaders : kWithoutHeaders;
}

/// Whether these are the keys of the row, each once.
constexpr bool AreKeysOf(const RequestRow& row, std::initializer_list<KeyInfo> given) {
    size_t wanted = 0;
    bool complete = true;
    for (const char* key : row.keys) {
        wanted += key != nullptr ? 1U : 0U;
        complete = complete && (key == nullptr || row_detail::Contains(given, key, false));
    }
    for (const char* key : row.optionalKeys) {
        wanted += key != nullptr ? 1U : 0U;
        complete = complete && (key == nullptr || row_detail::Contains(given, key, true));
    }
    return complete && given.size() == wanted;
}

}  // namespace vantix
