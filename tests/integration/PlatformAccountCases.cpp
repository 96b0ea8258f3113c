// Requests about the account and its settings.

#include <gtest/gtest.h>

#include "PlatformCase.h"
#include "platform/Account.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

template <class Request>
auto IntoText(Request request) {
    return [request](const Caller& caller, Json& output) {
        std::string text = "before";
        const int result = request(caller, text);
        output = text;
        return result;
    };
}

/// Expects the text that the account has under this key.
auto IsTheAccounts(const std::string& key) {
    return
        [key](const Json& output, const SimulatorClient& cloud) { EXPECT_EQ(output, cloud.Get("/account").at(key)); };
}

PlatformCase Configuration() {
    return {.name = "Configuration",
            .function = "GetConfigInfoFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/config/info",
            .parameters = {{"clientType", "19"},
                           {"featureCode", "$feature"},
                           {"osVersion", "wins"},
                           {"netType", "UNKNOWN"},
                           {"clientVersion", "v5.25.0"},
                           {"sdkVersion", "v5.25.0.20260515"},
                           {"appKey", "$key"}},
            .call =
                [](const Caller& caller, Json& output) {
                    ConfigInfo config;
                    config.pushAddr = "before";
                    const int result = GetConfigInfoFromPlatform(caller, config);
                    output = ToJson(config);
                    return result;
                },
            .expect = IsTheAccounts("config"),
            .parser = "ParseConfigInfoFromPlatform",
            .label = "GetConfigInfoFromPlatform"};
}

PlatformCase UserName() {
    return {
        .name = "UserName",
        .function = "GetUsernameFromPlatform",
        .transport = "SyncRequest",
        .path = "/api/user/getUserName",
        .parameters = WithClient({}),
        .call = IntoText([](const Caller& caller, std::string& name) { return GetUsernameFromPlatform(caller, name); }),
        .expect = IsTheAccounts("userName"),
        .parser = "ParseUsernameFromPlatform",
        .label = "ParseUsernameFromPlatform"};
}

PlatformCase UserId() {
    return {.name = "UserId",
            .function = "GetUserIdFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/service/user/get",
            .parameters = {{"accessToken", "$token"}, {"sdkVersion", "v5.25.0.20260515"}},
            .call = IntoText([](const Caller& caller, std::string& id) { return GetUserIdFromPlatform(caller, id); }),
            .expect = IsTheAccounts("userId"),
            .parser = "ParseUserIdFromPlatform",
            .label = "ParseUserIdFromPlatform"};
}

PlatformCase PushSession() {
    return {.name = "PushSession",
            .function = "getPushSessionIdFromPlatform",
            .transport = "SyncRequestHeaderPost",
            .path = "/api/service/set/push",
            .parameters = {{"featureCode", "$feature"},
                           {"pushAppId", "PCVantix"},
                           {"clientName", "pcsdk"},
                           {"clientType", "19"},
                           {"clientVersion", "v5.25.0"},
                           {"accessToken", "$token"}},
            .call = IntoText([](const Caller& caller, std::string& session) {
                return getPushSessionIdFromPlatform(caller, session);
            }),
            .expect =
                [](const Json& output, const SimulatorClient& /*cloud*/) {
                    EXPECT_EQ(output.get<std::string>().rfind("push.", 0), 0U) << output;
                },
            .parser = "ParsePushSessionIdFromPlatform",
            .label = "ParsePushSessionIdFromPlatform",
            .transportFailure = "SyncRequestHeader error:"};
}

PlatformCase Bandwidth() {
    return {.name = "Bandwidth",
            .function = "getBWCheckInfoFromPlatform",
            .transport = "SyncRequestHeader",
            .path = "/api/service/media/bwc/address",
            .parameters = {{"type", "1"}, {"checkTime", "1700000000"}, {"accessToken", "$token"}, {"localIndex", "5"}},
            .call =
                [](const Caller& caller, Json& output) {
                    BWCheckInfo info;
                    info.id = "before";
                    const int result = getBWCheckInfoFromPlatform(caller, 1, "1700000000", 5, info);
                    output = ToJson(info);
                    return result;
                },
            .expect = IsTheAccounts("bandwidth"),
            .parser = "ParseBWCheckInfoFromPlatform",
            .label = "ParseBWCheckInfoFromPlatform",
            .transportFailure = "SyncRequestHeader error:"};
}

PlatformCase Message() {
    return {.name = "TransparentMessage",
            .function = "GetTransparentMsgDetailFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/common/transparent/getMsgDetail",
            .parameters = {{"accessToken", "$token"},
                           {"clientType", "19"},
                           {"featureCode", "$feature"},
                           {"osVersion", "wins"},
                           {"netType", "UNKNOWN"},
                           {"sdkVersion", "v5.25.0.20260515"},
                           {"msgSeq", "M0000001"},
                           {"appKey", "$key"}},
            .call =
                [](const Caller& caller, Json& output) {
                    TransparentMsgDetail detail;
                    detail.data = "before";
                    const int result = GetTransparentMsgDetailFromPlatform(caller, "M0000001", detail);
                    output = ToJson(detail);
                    return result;
                },
            .expect = [](const Json& output,
                         const SimulatorClient& cloud) { EXPECT_EQ(output, cloud.Get("/account").at("messages")[0]); },
            .parser = "ParseTransparentMsgDetailFromPlatform",
            .label = "ParseTransparentMsgDetailFromPlatform"};
}

PlatformCase VideoLevel() {
    return {.name = "VideoLevel",
            .function = "SetVideoDefinitionOnPlatform",
            .transport = "SyncRequest",
            .path = "/api/device/setVideoLevel",
            .parameters =
                WithClient({{"deviceSerial", "R20000016"}, {"cameraNo", "5"}, {"videoLevel", "0"}, {"version", "2.0"}}),
            .call = IntoText([](const Caller& caller, std::string& answer) {
                return SetVideoDefinitionOnPlatform(caller, "R20000016", 5, 0, answer);
            }),
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    EXPECT_EQ(Json::parse(output.get<std::string>()).at("result").at("code"), "200");
                    EXPECT_EQ(cloud.Camera("R20000016", 5).at("videoLevel"), 0);
                    EXPECT_EQ(cloud.Camera("R20000016", 4).at("videoLevel"), 2);
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "CheckResponseInfoFromPlatformEx",
            .parserLogsCode = false};
}

PlatformCase AlarmRead() {
    return {.name = "AlarmRead",
            .function = "SetAlarmReadOnPlatform",
            .transport = "SyncRequest",
            .path = "/api/alarm/sdk/setRead",
            .parameters = WithClient({{"alarmId", "AL1003"}}),
            .call = [](const Caller& caller, Json& /*output*/) { return SetAlarmReadOnPlatform(caller, "AL1003"); },
            .expect =
                [](const Json& /*output*/, const SimulatorClient& cloud) {
                    const Json alarms = cloud.Get("/account").at("alarms");
                    EXPECT_EQ(alarms.at(2).at("alarmId"), "AL1003");
                    EXPECT_EQ(alarms.at(2).at("isChecked"), 1);
                    EXPECT_EQ(alarms.at(3).at("isChecked"), 0);
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "CheckResponseInfoFromPlatform",
            .transportFailure = "SyncRequest, ERROR:",
            .parserLogsCode = false};
}

}  // namespace

std::vector<PlatformCase> AccountCases() {
    return {Configuration(), UserName(), UserId(), PushSession(), Bandwidth(), Message(), VideoLevel(), AlarmRead()};
}

}  // namespace vantix::test
