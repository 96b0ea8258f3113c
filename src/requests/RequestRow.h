#pragma once

/// @file
/// One request as data.

#include <cstdint>

#include "requests/MessageText.h"

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

/// Which servers a request is for. Selects the type of the route.
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
    uint32_t endpoint = 0;  ///< 0 when the kind always uses the same path.
    CommonParameters common = {};
    CommonHeaders headers = {};
    const char* keys[8] = {};          ///< Every call gives a value for each of these.
    const char* optionalKeys[2] = {};  ///< A call gives these as `std::optional`.
    FixedParameter fixed[2] = {};
    CodeText transportFailure = {};   ///< When absent, the text of the kind.
    BodyCodeText checkFailure = {};   ///< Of a check of the response that comes before the parser.
    BodyCodeText parserFailure = {};  ///< Its label need not be the parser's name.
    CostText cost = {};               ///< When absent, the elapsed time is not logged.
};

/// Whether requests of a kind have headers.
constexpr bool SendsHeaders(RequestKind kind) {
    return kind == RequestKind::Get || kind == RequestKind::BodylessPost || kind == RequestKind::Put;
}

/// The text about a transfer of this request that failed.
constexpr CodeText TransportFailureOf(const RequestRow& row) {
    constexpr CodeText kWithHeaders = "SyncRequestHeader error:%d";
    constexpr CodeText kWithoutHeaders = "SyncRequest error:%d";
    if (row.transportFailure.IsThere()) {
        return row.transportFailure;
    }
    return SendsHeaders(row.kind) ? kWithHeaders : kWithoutHeaders;
}

}  // namespace vantix
