// The requests of the consumer servers, one by one.

#include <gtest/gtest.h>

#include <ostream>

#include "ConsumerCase.h"
#include "RecordJson.h"
#include "cserver/DeviceDetail.h"
#include "cserver/P2P.h"
#include "cserver/Recordings.h"
#include "cserver/Server.h"
#include "cserver/Tokens.h"

namespace vantix::test {
namespace {

using Headers = std::vector<std::pair<std::string, std::string>>;

Headers SetA() {
    return {{"clientNo", "100002"}, {"clientType", "19"},  {"clientVersion", "v5.25.0"},
            {"netType", "UNKNOWN"}, {"osVersion", "wins"}, {"sessionId", "$session"}};
}

Headers SetB() {
    return {{"clientType", "19"}, {"clientVersion", "v5.25.0"}, {"customno", "100002"},   {"featureCode", "$feature"},
            {"lang", "EN"},       {"netType", "UNKNOWN"},       {"sessionId", "$session"}};
}

Headers WithForm(Headers headers) {
    headers.insert(headers.begin(), {"Content-Type", "application/x-www-form-urlencoded"});
    return headers;
}

/// What every request does with an answer that its parser refuses: the parser's line, then the request's own.
std::vector<ConsumerRefusal> ParserRefusals(const std::string& function, const std::string& parser,
                                            const std::string& label, const std::string& missing) {
    const auto own = [&](int code) {
        return ExpectedLine{label + ":$body error:" + std::to_string(code), function, 5};
    };
    const ExpectedLine noJson{"platform response bad, szInfo = $body", parser, 5};
    const ExpectedLine invalid{"platform response invalid, szInfo = $body" + missing, parser, 5};
    const auto refused = [&](int code) {
        return ExpectedLine{"Platform Response Error:" + std::to_string(code) + ", Resp:$body", parser, 3};
    };
    return {{{{"body", "no json"}}, 300001, {noJson, own(1)}},
            {{{"body", ""}}, 300001, {noJson, own(1)}},
            {{{"malformed", true}}, 300001, {noJson, own(1)}},
            {{{"status", 502}, {"body", "<html>502</html>"}}, 300001, {noJson, own(1)}},
            {{{"json", Json::object()}}, 300002, {invalid, own(2)}},
            {{{"json", {{"meta", {{"code", 200}}}}}}, 300002, {invalid, own(2)}},
            {{{"body", "[]"}}, 300002, {invalid, own(2)}},
            {{{"code", 201}}, 300201, {refused(201), own(201)}},
            {{{"code", 10002}}, 310002, {refused(10002), own(10002)}},
            {{{"code", 50000}}, 350000, {refused(50000), own(50000)}}};
}

Json ToJson(const ServerInfo& info) {
    return {{"stun1Addr", info.stun1Addr},
            {"stun1Port", info.stun1Port},
            {"stun2Addr", info.stun2Addr},
            {"stun2Port", info.stun2Port},
            {"ttsAddr", info.ttsAddr},
            {"ttsPort", info.ttsPort},
            {"vtmAddr", info.vtmAddr},
            {"vtmPort", info.vtmPort},
            {"authAddr", info.authAddr},
            {"nodeJsAddr", info.nodeJsAddr},
            {"nodeJsHttpPort", info.nodeJsHttpPort},
            {"pushAddr", info.pushAddr},
            {"pushDasDomain", info.pushDasDomain},
            {"pushDasPort", info.pushDasPort},
            {"iRequestCost", info.iRequestCost}};
}

ConsumerCase DeviceDetail() {
    constexpr char kFunction[] = "GetDevDetailInfoFromCServerBySerial";
    return {.name = "DeviceDetail",
            .function = kFunction,
            .transport = "SyncRequestHeader",
            .query = "deviceSerial=R20000016&filter=CONNECTION,WIFI,KMS,STATUS,HIDDNS,TTS,P2P",
            .headers = SetA(),
            .transfers = {{"/v3/userdevices/v1/devices/pagelist",
                           "SyncRequestHeader error:", "/v3/userdevices/v1/devices/pagelist",
                           ParserRefusals(kFunction, "ParseDevDetailInfoFromCServer", "ParseDevDetailInfoFromPlatform",
                                          ", cameraInfos not exist!")}},
            .call =
                [](const Caller& caller, const Json& /*account*/, Json& output) {
                    Detail detail;
                    detail.channel.cameraId = "before";
                    detail.device.iCloseBlong = 1;
                    const int result =
                        GetDevDetailInfoFromCServerBySerial(caller, "R20000016", 7, detail.channel, detail.device);
                    output = ToJson(detail);
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json& device = output.at("device");
                    EXPECT_EQ(output.at("channel").at("cameraId"), cloud.Camera("R20000016", 7).at("cameraId"));
                    EXPECT_EQ(device.at("deviceIP"), cloud.Device("R20000016").at("device").at("deviceIP"));
                    EXPECT_EQ(device.at("iRequestCost"), kTransferCost);
                    EXPECT_EQ(device.at("tCacheTime"), 1'800'000'000);
                    EXPECT_EQ(device.at("isFromCache"), false);
                    EXPECT_EQ(device.at("iCloseBlong"), 1);
                }};
}

ConsumerCase Servers() {
    constexpr char kFunction[] = "GetServerInfoFromCServer";
    return {.name = "Servers",
            .function = kFunction,
            .transport = "SyncRequestHeader",
            .query = "",
            .headers = WithForm(SetB()),
            .transfers = {{"/v3/configurations/system/info", "SyncRequest error:", "v3/configurations/system/info",
                           ParserRefusals(kFunction, "ParseServerInfoFromCServer", "ParseServerInfoFromPlatform", "")}},
            .call =
                [](const Caller& caller, const Json& /*account*/, Json& output) {
                    ServerInfo info;
                    info.stun1Addr = "before";
                    const int result = GetServerInfoFromCServer(caller, info);
                    output = ToJson(info);
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    Json servers = cloud.Get("/account").at("servers");
                    for (const char* unknown : {"logAddr", "microCloudMode", "vtmBackups"}) {
                        servers.erase(unknown);
                    }
                    servers["iRequestCost"] = kTransferCost;
                    EXPECT_EQ(output, servers);
                }};
}

ConsumerCase StreamTokens() {
    return {.name = "StreamTokens",
            .function = "GetStreamTokensFromCServer",
            .transport = "SyncRequestHeaderPost",
            .query = "sessionId=$session",
            .headers = {{"sessionId", "$session"}},
            .transfers = {{"/api/user/token/get",
                           "SyncRequest error:",
                           "",
                           {{{{"body", "no json"}}, 0, {}}, {{{"body", ""}}, 0, {}}, {{{"code", "10002"}}, 0, {}}}}},
            .call =
                [](const Caller& caller, const Json& /*account*/, Json& output) {
                    std::string answer = "before";
                    const int result = GetStreamTokensFromCServer(caller, answer);
                    output = answer;
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& /*cloud*/) {
                    const Json answer = Json::parse(output.get<std::string>());
                    EXPECT_EQ(answer.at("resultCode"), "200");
                    EXPECT_FALSE(answer.at("tokenArray").empty());
                },
            .expiredAs = "0"};
}

std::vector<ConsumerRefusal> RecordRefusals(const std::string& function) {
    const auto checked = [&](int code) {
        return ExpectedLine{"ZQR TEST GetLocalRecordFileBySerialFromPlatform:$body error:" + std::to_string(code),
                            function, 5};
    };
    const ExpectedLine shown{"ZQR TEST GetDeviceFileBySerialFromCServer:$body", function, 3};
    const ExpectedLine noJson{"platform response bad, szInfo = $body", function, 5};
    return {{{{"body", "no json"}}, 300001, {shown, noJson, checked(1)}},
            {{{"status", 502}, {"body", "<html>502</html>"}}, 300001, {shown, noJson, checked(1)}},
            {{{"json", Json::object()}}, 300002, {shown, checked(2)}},
            {{{"code", 201}}, 300201, {shown, checked(201)}},
            {{{"code", 20032}}, 320032, {shown, checked(20032)}},
            {{{"json", {{"meta", {{"code", 0}}}}}},
             300002,
             {shown,
              {"platform response invalid, szInfo = $body", "ParseDeviceRecordFileFromCServer", 5},
              {"ParseServerInfoFromPlatform:$body error:2", function, 5}}}};
}

ConsumerCase Recordings() {
    constexpr char kFunction[] = "GetDeviceFileBySerialFromCServer";
    return {.name = "Recordings",
            .function = kFunction,
            .transport = "SyncRequestHeader",
            .query =
                "channelNo=2&deviceSerial=R20000016&recordType=1&size=100"
                "&startTime=2024-01-02%2000:00:00&stopTime=2024-01-02%2023:59:59",
            .headers = SetB(),
            .transfers = {{"/v3/streaming/records", "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:",
                           "", RecordRefusals(kFunction)}},
            .call =
                [](const Caller& caller, const Json& /*account*/, Json& output) {
                    std::string records = "before";
                    const TimeSpan span{"2024-01-02 00:00:00", "2024-01-02 23:59:59"};
                    const int result = GetDeviceFileBySerialFromCServer(caller, "R20000016", 2, span, 1, records);
                    output = records;
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json list = Json::parse(output.get<std::string>());
                    EXPECT_EQ(list.size(), 1U);
                    Json starts = Json::array();
                    for (const Json& record : list.at("data")) {
                        starts.push_back(record.at("startTime"));
                    }
                    Json stored = Json::array();
                    const Json recordings = cloud.Device("R20000016").at("recordings");
                    for (const Json& record : recordings) {
                        if (record.at("channelNo") == 2 && record.at("place") == "device" && record.at("type") == 1) {
                            stored.push_back(record.at("startTime"));
                        }
                    }
                    EXPECT_FALSE(stored.empty());
                    EXPECT_EQ(starts, stored);
                }};
}

std::vector<ConsumerRefusal> RefreshRefusals(const std::string& function) {
    const std::string mark = "ZQR TEST QX_API_B2C_REFRESH_SESSION ";
    const ExpectedLine noJson{mark + "platform response bad, szInfo = $body", function, 5};
    const ExpectedLine malformed{"ZQR TEST RefreshSessionFromCServer:$body error:2", function, 5};
    const auto refused = [&](int code) {
        return ExpectedLine{mark + "Platform Response Error:" + std::to_string(code) + ", Resp:$body", function, 3};
    };
    return {
        {{{"body", "no json"}}, 1, {noJson}},
        {{{"body", ""}}, 1, {noJson}},
        {{{"status", 502}, {"body", "<html>502</html>"}}, 1, {noJson}},
        {{{"code", 401}}, 401, {refused(401)}},
        {{{"code", 50000}}, 50000, {refused(50000)}},
        {{{"json", Json::object()}}, 300002, {malformed}},
        {{{"json", {{"meta", {{"code", 200}}}}}},
         300002,
         {{"platform response invalid, szInfo = $body, sessionInfo not exist!", "ParseRefreshSessionnFromCServer", 5},
          malformed}}};
}

ConsumerCase SessionRefresh() {
    constexpr char kFunction[] = "RefreshSessionFromCServer";
    return {.name = "SessionRefresh",
            .function = kFunction,
            .transport = "SyncPutRequestHeader",
            .query = "featureCode=$feature&refreshSessionId=$refresher",
            .headers = WithForm(SetB()),
            .transfers = {{"/v3/apigateway/login", "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:",
                           "", RefreshRefusals(kFunction)}},
            .call =
                [](const Caller& caller, const Json& account, Json& output) {
                    SessionInfo session{"before", account.at("refreshSessionId")};
                    const int result = RefreshSessionFromCServer(caller, session);
                    output = {{"sessionId", session.sessionId}, {"refreshSessionId", session.refreshSessionId}};
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json account = cloud.Get("/account");
                    EXPECT_EQ(output.at("sessionId"), account.at("sessionId"));
                    EXPECT_EQ(output.at("refreshSessionId"), account.at("refreshSessionId"));
                },
            .expiredAs = "0"};
}

std::vector<ConsumerRefusal> UserRefusals(const std::string& function) {
    const ExpectedLine noJson{"ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = $body", function,
                              5};
    const auto refused = [&](int code) {
        return ExpectedLine{"CheckResponseInfoFromPlatform:$body error:" + std::to_string(code), function, 5};
    };
    return {{{{"body", "no json"}}, 1, {noJson}},
            {{{"status", 502}, {"body", "<html>502</html>"}}, 1, {noJson}},
            {{{"code", 500}}, 0, {refused(500)}},
            {{{"json", Json::object()}}, 0, {refused(2)}},
            {{{"body", "[]"}}, 0, {refused(2)}}};
}

std::vector<ConsumerRefusal> ConfigurationRefusals(const std::string& function) {
    return {{{{"body", "no json"}}, 1, {{"platform response bad, szInfo = $body", function, 5}}},
            {{{"json", Json::object()}}, 300002, {}},
            {{{"code", 500}}, 300002, {}}};
}

ConsumerCase P2PUser() {
    constexpr char kFunction[] = "GetP2PUserInfoFromCServer";
    return {.name = "P2PUser",
            .function = kFunction,
            .transport = "SyncRequestHeader",
            .query = "",
            .headers = SetB(),
            .transfers = {{"/v3/users/info", "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:",
                           "v3/users/info", UserRefusals(kFunction)},
                          {"/v3/p2pbusiness/configurations/p2p",
                           "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequest error:", "p2pbusiness/configurations/p2p",
                           ConfigurationRefusals(kFunction)}},
            .call =
                [](const Caller& caller, const Json& /*account*/, Json& output) {
                    P2PUserInfo info{"before", "before", -1, -1, 77};
                    const int result = GetP2PUserInfoFromCServer(caller, info);
                    output = {{"userId", info.userId},
                              {"data", info.data},
                              {"version", info.version},
                              {"saltIndex", info.saltIndex}};
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json account = cloud.Get("/account");
                    Json user = account.at("p2pUser");
                    user["userId"] = account.at("userId");
                    EXPECT_EQ(output, user);
                },
            .expiredAs = "0"};
}

ConsumerCase P2PDevice() {
    constexpr char kFunction[] = "GetP2PDevInfoFromCServer";
    return {.name = "P2PDevice",
            .function = kFunction,
            .transport = "SyncRequestHeader",
            .query = "deviceSerial=S60000006&filter=P2P,KMS",
            .headers = SetA(),
            .transfers = {{"/v3/userdevices/v1/devices/pagelist",
                           "ZQR TEST QX_API_B2C_GET_DEVICE_DETAIL SyncRequestHeader error:",
                           "/v3/userdevices/v1/devices/pagelist",
                           ParserRefusals(kFunction, "ParseP2PDevInfoFromCServer", "ParseDevDetailInfoFromPlatform",
                                          ", p2pInfos not exist!")}},
            .call =
                [](const Caller& caller, const Json& /*account*/, Json& output) {
                    P2PDevInfo info;
                    info.defaultKey = "before";
                    info.iRequestCost = 77;
                    const int result = GetP2PDevInfoFromCServer(caller, "S60000006", info);
                    output = {{"secretKey", info.defaultKey},
                              {"keyVersion", info.defaultKeyVer},
                              {"V3", info.strV3},
                              {"V3Talk", info.strV3Talk},
                              {"iRequestCost", info.iRequestCost}};
                    for (const P2PServerAddr& server : info.serverInfos) {
                        output["serverInfos"].push_back({{"ip", server.ip}, {"port", server.port}});
                    }
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json p2p = cloud.Device("S60000006").at("p2p");
                    for (const char* key : {"secretKey", "keyVersion", "serverInfos"}) {
                        EXPECT_EQ(output.at(key), p2p.at(key)) << key;
                    }
                    EXPECT_EQ(output.at("V3"), p2p.at("capability").at("V3"));
                    EXPECT_EQ(output.at("V3Talk"), p2p.at("capability").at("V3Talk"));
                    EXPECT_EQ(output.at("iRequestCost"), 77) << "its time is only logged";
                }};
}

}  // namespace

void PrintTo(const ConsumerCase& row, std::ostream* out) { *out << row.name; }

std::vector<ConsumerCase> ConsumerCases() {
    return {DeviceDetail(), Servers(), StreamTokens(), Recordings(), SessionRefresh(), P2PUser(), P2PDevice()};
}

}  // namespace vantix::test
