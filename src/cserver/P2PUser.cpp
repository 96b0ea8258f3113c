// The user's P2P identity: two requests, and one parser over both responses.

#include <optional>
#include <string_view>

#include "cserver/P2P.h"
#include "cserver/RequestTable.h"
#include "json/Fields.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "log/Masking.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = cserver_requests;

constexpr json::Field<P2PUserInfo> kUserFields[] = {
    {"version", &P2PUserInfo::version},
    {"saltIndex", &P2PUserInfo::saltIndex},
};

/// The body with user id, secret, key version and salt index masked.
std::string ForLog(std::string_view body) {
    constexpr std::string_view kSecrets[] = {"userId", "secret", "version", "saltIndex"};
    return MaskedMembers(body, kSecrets);
}

/// Sends the first request. Returns a result when no second request follows, else nothing.
std::optional<int> FetchUser(const CallSite& site, const ConsumerRoute& route, const ClientInfo& client, int32_t& cost,
                             json::JsonCppDocument& document) {
    ResponseBody body;
    if (const int fetched = RequestCall<requests::kUserInfo>(site, route, client).CostInto(cost).Fetch(body);
        fetched != VANTIX_NOERROR) {
        return fetched;
    }
    if (!document.Parse(body.Text())) {
        VANTIX_LOG_ERROR(site, level::kError,
                         "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = %s",
                         ForLog(body.Text()).c_str());
        return VANTIX_RESP_NOT_JSON;
    }
    if (const int code = MetaCode(document.Root()); code != 0) {
        LogRefusal(site, requests::kUserInfo.parserFailure, ForLog(body.Text()), code);
        return VANTIX_NOERROR;  // A failure returns 0 here; the record stays empty.
    }
    return std::nullopt;
}

int FetchConfiguration(const CallSite& site, const ConsumerRoute& route, const ClientInfo& client, int32_t& cost,
                       json::JsonCppDocument& document) {
    ResponseBody body;
    const int fetched = RequestCall<requests::kP2PConfiguration>(site, route, client).CostInto(cost).Fetch(body);
    if (fetched != VANTIX_NOERROR) {
        return fetched;
    }
    if (!document.Parse(body.Text())) {
        return LogNotJson(site, ForLog(body.Text()));
    }
    return VANTIX_NOERROR;
}

/// Fetches both responses; nothing when both are there.
std::optional<int> FetchBoth(const CallSite& site, const ConsumerRoute& route, int32_t& cost,
                             json::JsonCppDocument& user, json::JsonCppDocument& configuration) {
    const ClientInfo client;
    int32_t configurationCost = 0;
    std::optional<int> result = FetchUser(site, route, client, cost, user);
    if (!result) {
        const int fetched = FetchConfiguration(site, route, client, configurationCost, configuration);
        result = fetched == VANTIX_NOERROR ? std::nullopt : std::optional(fetched);
    }
    cost += configurationCost;
    return result;
}

/// The first of the four objects that is missing, or null.
const char* MissingObject(const JsonCppView& user, const JsonCppView& configuration) {
    if (!user.IsObject()) {
        return "response1";
    }
    if (!configuration.IsObject()) {
        return "response2";
    }
    if (!user.Member("userInfo").IsObject()) {
        return "userInfo";
    }
    return RootData(configuration).IsObject() ? nullptr : "data";
}

}  // namespace

int GetP2PUserInfoFromCServer(const ConsumerRoute& route, P2PUserInfo& userInfo) {
    const CallSite site = VANTIX_HERE;
    json::JsonCppDocument user;
    json::JsonCppDocument configuration;
    if (const std::optional<int> result = FetchBoth(site, route, userInfo.iRequestCost, user, configuration)) {
        return *result;
    }
    const std::string joined = json::JsonBuilder::Object()
                                   .Set("response1", json::JsonBuilder::CopyOf(user.Root()))
                                   .Set("response2", json::JsonBuilder::CopyOf(configuration.Root()))
                                   .Compact();
    const int code = ParseP2PUserInfoFromCServer(joined, userInfo);
    if (code == 0) {
        return VANTIX_NOERROR;
    }
    return LogRefusal(site, requests::kP2PConfiguration.parserFailure, ForLog(joined), code);
}

int ParseP2PUserInfoFromCServer(const std::string& joined, P2PUserInfo& userInfo) {
    const CallSite site = VANTIX_HERE;
    json::JsonCppDocument document;
    if (!document.Parse(joined)) {
        return LogNotJson(site, ForLog(joined));
    }
    const JsonCppView user = document.Root().Member("response1");
    const JsonCppView configuration = document.Root().Member("response2");
    if (const char* missing = MissingObject(user, configuration)) {
        return LogMalformed(site, ForLog(joined), missing);
    }
    user.Member("userInfo").Member("userId").Read(userInfo.userId);
    BesideOrInsideData(configuration, "secret").Read(userInfo.data);
    json::ReadFields<kUserFields>(RootData(configuration), userInfo);
    return VANTIX_NOERROR;
}

}  // namespace vantix
