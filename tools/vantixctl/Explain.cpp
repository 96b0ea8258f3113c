#include "Explain.h"

#include <curl/curl.h>
#include <vantix/ReturnCodes.h>

#include <algorithm>
#include <array>

namespace vantix::ctl {
namespace {

struct KnownCode {
    int32_t code;
    std::string_view layer;
    std::string_view meaning;
    std::string_view advice;
};

constexpr std::array kKnownCodes = {
    KnownCode{VANTIX_NOERROR, "success", "success", ""},
    KnownCode{VANTIX_ERROR, "core", "nothing is cached, or no request could be sent",
              "Possible causes: an empty credential, a bad argument, a record that was not fetched in this run of the "
              "tool, a "
              "refused renewal. \"--log -\" shows which."},
    KnownCode{VANTIX_RESP_NOT_JSON, "response", "the consumer server's response about the P2P user is not JSON",
              "Something other than that server responded: check the consumer domain, and proxies on the way."},
    KnownCode{VANTIX_VERIFY_CODE_10001, "core", "the authentication server refused a stream token (its code 10001)",
              ""},
    KnownCode{VANTIX_VERIFY_TOKEN_EXPIRED, "core",
              "the authentication server reports that the access token has expired",
              "Renew it (RefreshToken) and try again."},
    KnownCode{VANTIX_VERIFY_CODE_20031, "core", "the authentication server refused a stream token (its code 20031)",
              ""},
    KnownCode{VANTIX_PLATFORM_ERROR_BASE + VANTIX_RESP_NOT_JSON, "response", "the response is not JSON",
              "Something other than the platform responded: check the domain, and proxies on the way."},
    KnownCode{VANTIX_PLATFORM_ERROR_BASE + VANTIX_RESP_BAD_FORMAT, "response",
              "the response is JSON, but its envelope or a required member is missing or of the wrong type",
              "Check that the domain is that of the right server family; the log shows the whole response."},
    KnownCode{VANTIX_PLATFORM_ERROR_BASE + 401, "platform", "the consumer session has expired",
              "The data center renews it once when it has a refresh session; otherwise log in again."},
    KnownCode{
        VANTIX_ACCESS_TOKEN_EXPIRED, "platform", "the access token has expired",
        "The data center renews it once, which needs --auth-addr, --app-id, --open-id and --refresh-token; otherwise "
        "log in again."},
    KnownCode{VANTIX_PLATFORM_CODE_49999, "platform", "a transient failure of the platform (its code 49999)",
              "This is temporary: try again later. Requests for a detail are already repeated by the data center."},
    KnownCode{VANTIX_PLATFORM_CODE_50000, "platform", "a transient failure of the platform (its code 50000)",
              "This is temporary: try again later. Requests for a detail are already repeated by the data center."},
    KnownCode{VANTIX_DEV_RELEASE_MISMATCH, "core",
              "the cached device is of another release and is not served from a cache",
              "Fetch it (getDevDetailInfoSync with --force); only VERSION_17 is served from caches."},
};

/// Advice about the return code -1 of one operation.
struct Reason {
    std::string_view operation;
    std::string_view advice;
};

constexpr std::string_view kNotFetched =
    "Caches last only as long as the tool runs: fetch it first, as in \"vantixctl getDevDetailInfoSync SERIAL then "
    "…\".";
constexpr std::string_view kNoRelays =
    "The response names no relays, or the request failed: the return code does not say which, \"--log -\" does.";

constexpr std::array kReasons = {
    Reason{"getDevInfoCache", kNotFetched},
    Reason{"getChannelCacheValue", kNotFetched},
    Reason{"getDeviceRecord", kNotFetched},
    Reason{"getDeviceRecordAlt", kNotFetched},
    Reason{"SetDevInfoCache", kNotFetched},
    Reason{"getVideoVtmAddr", kNoRelays},
    Reason{"getServerInfoEx", kNoRelays},
    Reason{"getB2CSharedDevList", "It needs --session-id and --c-domain."},
    Reason{"getAuthInfo", "There is no credential for the channel, or it has expired: it is not renewed here."},
    Reason{"RefreshToken",
           "It needs --auth-addr, --app-id, --open-id and --refresh-token, and not --mode 1; or the "
           "service refused."},
    Reason{"RefreshSession", "It needs --mode 2, --c-domain and --refresh-session-id; or the server refused."},
    Reason{"getOneStreamToken", "There is no access token, or the mode is 1, which has no stream tokens."},
    Reason{"GetStreamTokenFromQueue",
           "Nothing was prefetched for this access token: \"vantixctl GetStreamTokenFast "
           "then GetStreamTokenFromQueue\". Modes 1 and 2 prefetch nothing."},
    Reason{"getCloudFileInfoBySerialEX", "--query must be a JSON object; else there is no credential."},
};

std::string WithNumber(std::string_view before, int32_t number, std::string_view behind) {
    return std::string(before).append(std::to_string(number)).append(behind);
}

Explanation OfTransport(int32_t code) {
    const int32_t curl = code - VANTIX_NET_ERROR_BASE;
    if (curl <= 0 || curl >= static_cast<int32_t>(CURL_LAST)) {
        return {"transport", WithNumber("the transfer failed with the unknown code ", curl, ""), ""};
    }
    const std::string text = curl_easy_strerror(static_cast<CURLcode>(curl));
    return {"transport", "the transfer failed: " + text + WithNumber(" (libcurl's code ", curl, ")"),
            "There was no response. Check the domain, the network and whether the server is up."};
}

}  // namespace

Explanation Explain(int32_t code) {
    const auto* known =
        std::find_if(kKnownCodes.begin(), kKnownCodes.end(), [&](const KnownCode& one) { return one.code == code; });
    if (known != kKnownCodes.end()) {
        return {known->layer, std::string(known->meaning), std::string(known->advice)};
    }
    if (code >= VANTIX_NET_ERROR_BASE && code < VANTIX_PLATFORM_ERROR_BASE) {
        return OfTransport(code);
    }
    if (code > VANTIX_PLATFORM_ERROR_BASE) {
        return {"platform",
                WithNumber("the platform refused with its own code ", code - VANTIX_PLATFORM_ERROR_BASE, ""),
                "The platform's documentation explains that code; the log shows the whole response."};
    }
    return {"unknown", "no operation of the data center returns this", ""};
}

Explanation Explain(int32_t code, std::string_view operation) {
    Explanation explanation = Explain(code);
    const auto* reason =
        std::find_if(kReasons.begin(), kReasons.end(), [&](const Reason& one) { return one.operation == operation; });
    if (code == VANTIX_ERROR && reason != kReasons.end()) {
        explanation.advice = reason->advice;
    }
    return explanation;
}

}  // namespace vantix::ctl
