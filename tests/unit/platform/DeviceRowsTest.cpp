// The rows of requests about devices and servers.

#include <optional>
#include <string>
#include <vector>

#include "platform/DeviceDetail.h"
#include "platform/P2P.h"
#include "platform/Server.h"
#include "support/RowCase.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

PlatformRoute DeviceRoute() { return PlatformRouteTo("https://b.example", "T", "K"); }

void AddDetails(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "DevDetail",
        .function = "GetDevDetailInfoFromPlatformBySerial",
        .send =
            [] {
                DevChannelInfo channel;
                DevDetailInfo device;
                std::optional<BelongDevInfo> parent;
                return GetDevDetailInfoFromPlatformBySerial(DeviceRoute(), "S", 3, channel, device, parent);
            },
        .url = "https://b.example/api/device/detail",
        .body = "accessToken=T&appKey=K&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=S&"
                "featureCode=f-code&isNewVersion=true&netType=UNKNOWN&osVersion=wins&"
                "sdkVersion=v5.25.0.20260515&version=4.0",
        .cost = "/api/device/detail CostTime: = 3 milliseconds",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(ParseDevDetailInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "DeviceDetail",
        .function = "GetDeviceDetailInfoFromPlatformBySerial",
        .send =
            [] {
                DevChannelInfo channel;
                DevDetailInfo device;
                return GetDeviceDetailInfoFromPlatformBySerial(DeviceRoute(), "S", 3, "GB", "P-7", channel, device);
            },
        .url = "https://b.example/api/device/detail",
        .body = "accessToken=T&appKey=K&bizType=GB&cameraNo=3&clientType=19&clientVersion=v5.25.0&"
                "deviceSerial=S&featureCode=f-code&isNewVersion=true&netType=UNKNOWN&osVersion=wins&"
                "platFormId=P-7&sdkVersion=v5.25.0.20260515&version=1.0",
        .cost = "/api/device/detail CostTime: = 3 milliseconds",
        .notSent = "SyncRequest error:7",
        .refused =
            {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
              R"(ParseDeviceDetailInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "DeviceInfo",
        .function = "GetDeviceInfoBySerialFromPlatform",
        .send =
            [] {
                std::string response;
                return GetDeviceInfoBySerialFromPlatform(DeviceRoute(), "S", response);
            },
        .url = "https://b.example/api/device/getDeviceInfo",
        .body = "accessToken=T&clientType=19&clientVersion=v5.25.0&deviceSerial=S&featureCode=f-code&"
                "netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(CheckResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddServers(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "Servers",
        .function = "GetServerInfoFromPlatform",
        .send =
            [] {
                ServerInfo servers;
                return GetServerInfoFromPlatform(DeviceRoute(), servers);
            },
        .url = "https://b.example/api/service/media/server/info",
        .body = "accessToken=T&appKey=K&clientType=19&clientVersion=v5.25.0&featureCode=f-code&"
                "netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0",
        .cost = "/api/service/media/server/info CostTime: = 3 milliseconds",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseServerInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "ServersOfADevice",
        .function = "GetServerInfoFromPlatform",
        .send =
            [] {
                ServerInfo servers;
                return GetServerInfoFromPlatform(DeviceRoute(), "S", 3, servers);
            },
        .url = "https://b.example/api/service/media/server/info?accessToken=T&appKey=K&clientType=19&"
               "clientVersion=v5.25.0&deviceSerial=S&featureCode=f-code&localIndex=3&netType=UNKNOWN&"
               "osVersion=wins&sdkVersion=v5.25.0.20260515&version=2.0",
        .cost = "/api/service/media/server/info CostTime: = 3 milliseconds",
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseServerInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
    cases.push_back({
        .name = "RelayServer",
        .function = "GetRelayServerInfoFromPlatform",
        .send =
            [] {
                RelayServerInfo relay;
                return GetRelayServerInfoFromPlatform(DeviceRoute(), "S", 3, relay);
            },
        .method = "GET",
        .url = "https://b.example/api/service/media/streaming/relay/server?accessToken=T&channelNo=3&"
               "deviceSerial=S",
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(ParseRealyInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"}},
    });
}

void AddP2P(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "P2PUser",
        .function = "GetP2PUserInfoFromPlatform",
        .send =
            [] {
                P2PUserInfo user;
                return GetP2PUserInfoFromPlatform(DeviceRoute(), user);
            },
        .url = "https://b.example/api/sdk/p2p/user/info/get",
        .body = "accessToken=T&clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&"
                "osVersion=wins&sdkVersion=v5.25.0.20260515",
        .cost = "//api/sdk/p2p/user/info/get CostTime: = 3 milliseconds",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(CheckResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"},
                    {R"({"resultCode":"200"})", 300002, R"(ParseP2PUserInfo:{"resultCode":"200"} error:2)"}},
    });
    cases.push_back({
        .name = "P2PDevice",
        .function = "GetP2PDevInfoFromPlatform",
        .send =
            [] {
                P2PDevInfo device;
                return GetP2PDevInfoFromPlatform(DeviceRoute(), "S", device);
            },
        .url = "https://b.example/api/sdk/p2p/dev/info/get",
        .body = "accessToken=T&clientType=19&clientVersion=v5.25.0&deviceSerial=S&featureCode=f-code&"
                "netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515",
        .cost = "/api/sdk/p2p/dev/info/get CostTime: = 3 milliseconds",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"result":{"code":"10002"},"meta":{"code":10002}})", 310002,
                     R"(CheckResponseInfoFromPlatform:{"result":{"code":"10002"},"meta":{"code":10002}} error:10002)"},
                    {R"({"resultCode":"200"})", 300002, R"(ParseP2PDevInfo:{"resultCode":"200"} error:2)"}},
    });
}

std::vector<RowCase> DeviceCases() {
    std::vector<RowCase> cases;
    AddDetails(cases);
    AddServers(cases);
    AddP2P(cases);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Devices, RequestRows, ::testing::ValuesIn(DeviceCases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
