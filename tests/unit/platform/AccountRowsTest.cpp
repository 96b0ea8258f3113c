// The rows of requests about the account and its settings.

#include <optional>
#include <string>
#include <vector>

#include "platform/Account.h"
#include "support/RowCase.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

PlatformRoute Route() { return PlatformRouteTo("https://b.example", "T", "K"); }

void AddAccount(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "Configuration",
        .function = "GetConfigInfoFromPlatform",
        .send =
            [] {
                ConfigInfo config;
                return GetConfigInfoFromPlatform(Route(), config);
            },
        .url = "https://b.example/api/config/info",
        .body = "appKey=K&clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&"
                "osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(GetConfigInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "UserName",
        .function = "GetUsernameFromPlatform",
        .send =
            [] {
                std::string name;
                return GetUsernameFromPlatform(Route(), name);
            },
        .url = "https://b.example/api/user/getUserName",
        .body = "accessToken=T&clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&"
                "osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseUsernameFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "UserId",
        .function = "GetUserIdFromPlatform",
        .send =
            [] {
                std::string id;
                return GetUserIdFromPlatform(Route(), id);
            },
        .url = "https://b.example/api/service/user/get",
        .body = "accessToken=T&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseUserIdFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "PushSession",
        .function = "getPushSessionIdFromPlatform",
        .send =
            [] {
                std::string id;
                return getPushSessionIdFromPlatform(Route(), id);
            },
        .url = "https://b.example/api/service/set/push?accessToken=T&clientName=pcsdk&clientType=19&"
               "clientVersion=v5.25.0&featureCode=f-code&pushAppId=PCVantix",
        .notSent = "SyncRequestHeader error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(ParsePushSessionIdFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddSettings(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "Bandwidth",
        .function = "getBWCheckInfoFromPlatform",
        .send =
            [] {
                BWCheckInfo info;
                return getBWCheckInfoFromPlatform(Route(), 3, "now", 4, info);
            },
        .method = "GET",
        .url = "https://b.example/api/service/media/bwc/address?accessToken=T&checkTime=now&localIndex=4&"
               "type=3",
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseBWCheckInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "Message",
        .function = "GetTransparentMsgDetailFromPlatform",
        .send =
            [] {
                TransparentMsgDetail detail;
                return GetTransparentMsgDetailFromPlatform(Route(), "M-1", detail);
            },
        .url = "https://b.example/api/common/transparent/getMsgDetail",
        .body = "accessToken=T&appKey=K&clientType=19&featureCode=f-code&msgSeq=M-1&netType=UNKNOWN&"
                "osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(ParseTransparentMsgDetailFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "VideoDefinition",
        .function = "SetVideoDefinitionOnPlatform",
        .send =
            [] {
                std::string response;
                return SetVideoDefinitionOnPlatform(Route(), "S", 3, 2, response);
            },
        .url = "https://b.example/api/device/setVideoLevel",
        .body = "accessToken=T&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&"
                "featureCode=f-code&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0&"
                "videoLevel=2",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(CheckResponseInfoFromPlatformEx:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "AlarmRead",
        .function = "SetAlarmReadOnPlatform",
        .send = [] { return SetAlarmReadOnPlatform(Route(), "A-1"); },
        .url = "https://b.example/api/alarm/sdk/setRead",
        .body = "accessToken=T&alarmId=A-1&clientType=19&clientVersion=v5.25.0&featureCode=f-code&"
                "netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
        .notSent = "SyncRequest, ERROR:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(CheckResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

std::vector<RowCase> Cases() {
    std::vector<RowCase> cases;
    AddAccount(cases);
    AddSettings(cases);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Account, RequestRows, ::testing::ValuesIn(Cases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
