// The rows of the consumer servers' requests. The second request for the P2P user stands with its own tests.

#include <string>
#include <vector>

#include "cserver/DeviceDetail.h"
#include "cserver/Lists.h"
#include "cserver/P2P.h"
#include "cserver/Recordings.h"
#include "cserver/Server.h"
#include "cserver/Tokens.h"
#include "support/RowCase.h"
#include "support/TestRoutes.h"

namespace vantix::test {
namespace {

using Headers = std::vector<std::string>;

Headers SetA() {
    return {"clientNo: 100002", "clientType: 19",  "clientVersion: v5.25.0",
            "netType: UNKNOWN", "osVersion: wins", "sessionId: X"};
}

Headers SetB() {
    return {"clientType: 19", "clientVersion: v5.25.0", "customno: 100002", "featureCode: f-code",
            "lang: EN",       "netType: UNKNOWN",       "sessionId: X"};
}

Headers WithForm(Headers headers) {
    headers.insert(headers.begin(), "Content-Type: application/x-www-form-urlencoded");
    return headers;
}

ConsumerRoute Route() { return ConsumerRouteTo("https://c.example", "X"); }

void AddDevices(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "DevDetail",
        .function = "GetDevDetailInfoFromCServerBySerial",
        .send =
            [] {
                DevChannelInfo channel;
                DevDetailInfo device;
                return GetDevDetailInfoFromCServerBySerial(Route(), "S", 3, channel, device);
            },
        .method = "GET",
        .url = "https://c.example/v3/userdevices/v1/devices/pagelist?deviceSerial=S&"
               "filter=CONNECTION,WIFI,KMS,STATUS,HIDDNS,TTS,P2P",
        .headers = SetA(),
        .cost = "/v3/userdevices/v1/devices/pagelist CostTime: = 3 milliseconds",
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"meta":{"code":401}})", 300401,
                     R"(ParseDevDetailInfoFromPlatform:{"meta":{"code":401}} error:401)"}},
    });
    cases.push_back({
        .name = "P2PDevice",
        .function = "GetP2PDevInfoFromCServer",
        .send =
            [] {
                P2PDevInfo device;
                return GetP2PDevInfoFromCServer(Route(), "S", device);
            },
        .method = "GET",
        .url = "https://c.example/v3/userdevices/v1/devices/pagelist?deviceSerial=S&filter=P2P,KMS",
        .headers = SetA(),
        .cost = "/v3/userdevices/v1/devices/pagelist CostTime: = 3 milliseconds",
        .notSent = "ZQR TEST QX_API_B2C_GET_DEVICE_DETAIL SyncRequestHeader error:7",
        .refused = {{R"({"meta":{"code":401}})", 300401,
                     R"(ParseDevDetailInfoFromPlatform:{"meta":{"code":401}} error:401)"}},
    });
    cases.push_back({
        .name = "SharedDevices",
        .function = "GetB2CSharedDevListFromPlatform",
        .send =
            [] {
                std::string list;
                return GetB2CSharedDevListFromPlatform(Route(), 0, 50, list);
            },
        .method = "GET",
        .url = "https://c.example/v3/hc/userdevice/b2c/shared/resources/devices/pagelist?limit=50&offset=0",
        .headers = {"Content-Type: application/x-www-form-urlencoded", "sessionId: X"},
        .notSent = "SyncRequestHeader error:7",
        .refused = {{R"({"meta":{"code":401}})", 300401,
                     R"(ParseB2CDeviceListFromPlatform:{"meta":{"code":401}} error:401)"}},
    });
    cases.push_back({
        .name = "DeviceFiles",
        .function = "GetDeviceFileBySerialFromCServer",
        .send =
            [] {
                std::string records;
                return GetDeviceFileBySerialFromCServer(Route(), "S", 3, {"from 0", "to 9 9"}, 4, records);
            },
        .method = "GET",
        .url = "https://c.example/v3/streaming/records?channelNo=3&deviceSerial=S&recordType=4&size=100&"
               "startTime=from%200&stopTime=to%209 9",
        .headers = SetB(),
        .notSent = "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:7",
        .refused = {{R"({"meta":{"code":401}})", 300401,
                     R"(ZQR TEST GetLocalRecordFileBySerialFromPlatform:{"meta":{"code":401}} error:401)"},
                    {R"({"meta":{}})", 300002, R"(ParseServerInfoFromPlatform:{"meta":{}} error:2)"}},
    });
}

void AddAccount(std::vector<RowCase>& cases) {
    cases.push_back({
        .name = "Servers",
        .function = "GetServerInfoFromCServer",
        .send =
            [] {
                ServerInfo servers;
                return GetServerInfoFromCServer(Route(), servers);
            },
        .method = "GET",
        .url = "https://c.example/v3/configurations/system/info?",
        .headers = WithForm(SetB()),
        .cost = "v3/configurations/system/info CostTime: = 3 milliseconds",
        .notSent = "SyncRequest error:7",
        .refused = {{R"({"meta":{"code":401}})", 300401,
                     R"(ParseServerInfoFromPlatform:{"meta":{"code":401}} error:401)"}},
    });
    cases.push_back({
        .name = "StreamTokens",
        .function = "GetStreamTokensFromCServer",
        .send =
            [] {
                std::string response;
                return GetStreamTokensFromCServer(Route(), response);
            },
        .url = "https://c.example/api/user/token/get?sessionId=X",
        .headers = {"sessionId: X"},
        .notSent = "SyncRequest error:7",
    });
    cases.push_back({
        .name = "RefreshSession",
        .function = "RefreshSessionFromCServer",
        .send =
            [] {
                SessionInfo session{"old", "refresh"};
                return RefreshSessionFromCServer(Route(), session);
            },
        .method = "PUT",
        .url = "https://c.example/v3/apigateway/login?featureCode=f-code&refreshSessionId=refresh",
        .headers = WithForm(SetB()),
        .notSent = "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:7",
        .refused = {{R"({"meta":{"code":200}})", 300002,
                     R"(ZQR TEST RefreshSessionFromCServer:{"meta":{"code":200}} error:2)"}},
    });
    cases.push_back({
        .name = "P2PUser",
        .function = "GetP2PUserInfoFromCServer",
        .send =
            [] {
                P2PUserInfo user;
                return GetP2PUserInfoFromCServer(Route(), user);
            },
        .method = "GET",
        .url = "https://c.example/v3/users/info?",
        .headers = SetB(),
        .cost = "v3/users/info CostTime: = 3 milliseconds",
        .notSent = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:7",
        .refused = {{R"({"meta":{"code":401}})", 0,
                     R"(CheckResponseInfoFromPlatform:{"meta":{"code":401}} error:401)"}},
    });
}

std::vector<RowCase> Cases() {
    std::vector<RowCase> cases;
    AddDevices(cases);
    AddAccount(cases);
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Consumer, RequestRows, ::testing::ValuesIn(Cases()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
