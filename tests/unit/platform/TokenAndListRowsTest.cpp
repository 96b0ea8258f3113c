// The rows of requests for tickets, tokens and lists.

#include <optional>
#include <string>
#include <vector>

#include "platform/Lists.h"
#include "platform/Tokens.h"
#include "support/RowCase.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

PlatformRoute TokenAndListRoute() { return PlatformRouteTo("https://b.example", "T", "K"); }

void AddTickets(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "Ticket",
        .function = "GetTicketInfoBySerial",
        .send =
            [] {
                std::string ticket;
                return GetTicketInfoBySerial(TokenAndListRoute(), "S", 3, ticket);
            },
        .method = "GET",
        .url = "https://b.example/api/route/userdevicetob/v3/cameras/ticketInfo?accessToken=T&channelNo=3&"
               "deviceSerial=S",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseTicketInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "CloudTicket",
        .function = "GetCloudTicketInfoBySerial",
        .send =
            [] {
                std::string ticket;
                return GetCloudTicketInfoBySerial(TokenAndListRoute(), "S", 3, 4, ticket);
            },
        .method = "GET",
        .url = "https://b.example/api/service/cloud/ticket?accessToken=T&deviceSerial=S&localIndex=3&"
               "spaceId=4",
        .notSent = "SyncRequestHeader error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(ParseRealyTicketInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "RelayTicket",
        .function = "GetRelayTicketInfoBySerial",
        .send =
            [] {
                std::string ticket;
                return GetRelayTicketInfoBySerial(TokenAndListRoute(), "S", 3, ticket);
            },
        .method = "GET",
        .url = "https://b.example/api/service/media/streaming/relay/ticket?accessToken=T&channelNo=3&"
               "deviceSerial=S",
        .notSent = "SyncRequestHeader error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(ParseRealyTicketInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "PermissionToWatch",
        .function = "GetAuthInfoFromPlatform",
        .send = [] { return GetAuthInfoFromPlatform(TokenAndListRoute(), "S", 3, false); },
        .url = "https://b.example/api/service/auth/device/user/permission",
        .body = "accessToken=T&cameraNo=3&deviceSerial=S&permission=Real",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(GetAuthInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "PermissionToPlayBack",
        .function = "GetAuthInfoFromPlatform",
        .send = [] { return GetAuthInfoFromPlatform(TokenAndListRoute(), "S", 3, true); },
        .url = "https://b.example/api/service/auth/device/user/permission",
        .body = "accessToken=T&cameraNo=3&deviceSerial=S&permission=Replay",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(GetAuthInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddTokens(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "StreamTokensAsTheyCome",
        .function = "GetStreamTokensFromPlatform",
        .send =
            [] {
                std::string response;
                return GetStreamTokensFromPlatform(TokenAndListRoute(), 5, response);
            },
        .url = "https://b.example/api/user/token",
        .body = "accessToken=T&appKey=K&clientType=19&clientVersion=v5.25.0&count=5&featureCode=f-code&"
                "netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(GetStreamTokensFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "StreamTokens",
        .function = "GetStreamTokensFromPlatform",
        .send =
            [] {
                std::deque<std::string> tokens;
                return GetStreamTokensFromPlatform(TokenAndListRoute(), 5, tokens);
            },
        .url = "https://b.example/api/user/token",
        .body = "accessToken=T&appKey=K&clientType=19&clientVersion=v5.25.0&count=5&featureCode=f-code&"
                "netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseSwitchInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "RefreshToken",
        .function = "RefreshTokenFromPlatform",
        .send =
            [] {
                RefreshTokenInfo info;
                return RefreshTokenFromPlatform(AuthorizationRouteTo("https://auth.example", "K"),
                                                {"refresh", "open", "all", "any"}, info);
            },
        .url = "https://auth.example/oauth/token/refreshToken",
        .body = "bundleId=korvel.qxpcvantix&client_id=K&grant_type=refresh_token&open_id=open&"
                "refresh_token=refresh&scope=all&state=any",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseRefreshTokenFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddLists(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "Devices",
        .function = "GetDevListFromPlatform",
        .send =
            [] {
                DeviceList list;
                return GetDevListFromPlatform(TokenAndListRoute(), 0, 50, list);
            },
        .url = "https://b.example/api/device/list",
        .body = "accessToken=T&clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&"
                "osVersion=wins&pageSize=50&pageStart=0&sdkVersion=v5.25.0.20260515&version=2.0",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseCameraListFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "DevicesOfABusiness",
        .function = "GetDeviceListFromPlatform",
        .send =
            [] {
                DeviceList list;
                return GetDeviceListFromPlatform(TokenAndListRoute(), 0, 50, "GB", list);
            },
        .url = "https://b.example/api/lapp/device/list",
        .body = "accessToken=T&bizType=GB&pageSize=50&pageStart=0&version=1.0",
        .notSent = "GetDevList_GBFromPlatform SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseCameraListFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "SharedDevices",
        .function = "GetShareDevListFromPlatform",
        .send =
            [] {
                DeviceList list;
                return GetShareDevListFromPlatform(TokenAndListRoute(), 0, 50, list);
            },
        .url = "https://b.example/api/device/sharelist",
        .body = "accessToken=T&clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&"
                "osVersion=wins&pageSize=50&pageStart=0&sdkVersion=v5.25.0.20260515&version=2.0",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseCameraListFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "Alarms",
        .function = "GetAlarmListFromPlatform",
        .send =
            [] {
                std::string response;
                return GetAlarmListFromPlatform(TokenAndListRoute(), "S", 3, {0, 50, "from 0", "to 9", 4, 5}, response);
            },
        .url = "https://b.example/api/alarm/list",
        .body = "accessToken=T&alarmType=4&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&"
                "endTime=to 9&featureCode=f-code&netType=UNKNOWN&osVersion=wins&pageSize=50&pageStart=0&"
                "sdkVersion=v5.25.0.20260515&startTime=from 0&status=5&version=2.0",
        .notSent = "SyncRequest, ERROR:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(CheckResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

std::vector<RowCase> TokenAndListCases() {
    std::vector<RowCase> cases;
    AddTickets(cases);
    AddTokens(cases);
    AddLists(cases);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(TokensAndLists, RequestRows, ::testing::ValuesIn(TokenAndListCases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
