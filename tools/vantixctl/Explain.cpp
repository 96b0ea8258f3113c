#include "Explain.h"

#include <curl/curl.h>
#include <vantix/ReturnCodes.h>

#include <algorithm>
#include <array>

namespace vantix::ctl {
namespace {

struct Known {
    int32_t code;
    std::string_view layer;
    std::string_view meaning;
    std::string_view advice;
};

constexpr std::array kKnown = {
    Known{VANTIX_NOERROR, "success", "success", ""},
    Known{VANTIX_ERROR, "core", "nothing is cached, or the data center could not even ask",
          "Look for an empty credential, a bad argument, something that was never fetched in this call of the tool, or "
          "a renewal that was refused. \"--log -\" shows which."},
    Known{VANTIX_RESP_NOT_JSON, "answer", "the consumer server's answer about the P2P user is not JSON",
          "Something other than that server answered: check the consumer domain, and proxies on the way."},
    Known{VANTIX_VERIFY_CODE_10001, "core", "the authentication server refused a stream token (its code 10001)", ""},
    Known{VANTIX_VERIFY_TOKEN_EXPIRED, "core", "the access token has expired, says the authentication server",
          "Renew it (RefreshToken) and ask again."},
    Known{VANTIX_VERIFY_CODE_20031, "core", "the authentication server refused a stream token (its code 20031)", ""},
    Known{VANTIX_PLATFORM_ERROR_BASE + VANTIX_RESP_NOT_JSON, "answer", "the answer is not JSON",
          "Something other than the platform answered: check the domain, and proxies on the way."},
    Known{VANTIX_PLATFORM_ERROR_BASE + VANTIX_RESP_BAD_FORMAT, "answer",
          "the answer is JSON, but its envelope or a required member is missing or of the wrong type",
          "Check that the domain is that of the right server family; the log shows the whole answer."},
    Known{VANTIX_PLATFORM_ERROR_BASE + 401, "platform", "the consumer session has expired",
          "It is renewed once by itself when a refresh session is known; else log in again."},
    Known{VANTIX_ACCESS_TOKEN_EXPIRED, "platform", "the access token has expired",
          "The data center renews it once by itself; that needs --auth-addr, --app-id, --open-id and --refresh-token; "
          "else log in again."},
    Known{VANTIX_PLATFORM_CODE_49999, "platform", "the platform stumbled (its code 49999)",
          "This passes: ask again later. The data center has already asked for a detail more than once."},
    Known{VANTIX_PLATFORM_CODE_50000, "platform", "the platform stumbled (its code 50000)",
          "This passes: ask again later. The data center has already asked for a detail more than once."},
    Known{VANTIX_DEV_RELEASE_MISMATCH, "core", "the cached device is of another release and is not served from a cache",
          "Fetch it (getDevDetailInfoSync with --force); only VERSION_17 is served from caches."},
};

/// What -1 means of an operation.
struct Reason {
    std::string_view operation;
    std::string_view advice;
};

constexpr std::string_view kNotFetched =
    "Caches last as long as the tool runs: fetch it first, as in \"vantixctl getDevDetailInfoSync SERIAL then …\".";
constexpr std::string_view kNoRelays =
    "The answer names no relays, or the request failed: this operation does not tell which. \"--log -\" does.";

constexpr std::array kReasons = {
    Reason{"getDevInfoCache", kNotFetched},
    Reason{"getChannelCacheValue", kNotFetched},
    Reason{"getDeviceRecord", kNotFetched},
    Reason{"getDeviceRecordAlt", kNotFetched},
    Reason{"SetDevInfoCache", kNotFetched},
    Reason{"getVideoVtmAddr", kNoRelays},
    Reason{"getServerInfoEx", kNoRelays},
    Reason{"getB2CSharedDevList", "It needs --session-id, and asks the server of --c-domain."},
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
            "No answer came. Check the domain, the network and whether the server is up."};
}

}  // namespace

Explanation Explain(int32_t code) {
    const auto* known = std::find_if(kKnown.begin(), kKnown.end(), [&](const Known& one) { return one.code == code; });
    if (known != kKnown.end()) {
        return {known->layer, std::string(known->meaning), std::string(known->advice)};
    }
    if (code >= VANTIX_NET_ERROR_BASE && code < VANTIX_PLATFORM_ERROR_BASE) {
        return OfTransport(code);
    }
    if (code > VANTIX_PLATFORM_ERROR_BASE) {
        return {"platform",
                WithNumber("the platform refused with its own code ", code - VANTIX_PLATFORM_ERROR_BASE, ""),
                "Its documentation tells what that code means; the log shows the whole answer."};
    }
    return {"unknown", "no operation of the data center answers this", ""};
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
