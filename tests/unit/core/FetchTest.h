#pragma once

/// @file
/// What cases of fetches share: responses of both server families, and what renews a credential.

#include <algorithm>
#include <string>

#include "base/LastError.h"
#include "support/TestJson.h"
#include "unit/core/CoreTest.h"
#include "vantix/ReturnCodes.h"

namespace vantix::test {

inline constexpr char kExpired[] = R"({"resultCode":"10002"})";
inline constexpr char kSessionGone[] = R"({"meta":{"code":401}})";

inline constexpr char kPlatformServers[] = R"({"resultCode":"200","serverResp":{"stun1Addr":"platform","stun1Port":1,
    "vtmBackups":[{"addr":"vtm1","port":8554},{"addr":"vtm2","port":8555}]}})";
inline constexpr char kConsumerServers[] = R"({"meta":{"code":200},"systemConfigInfo":{"stun1Addr":"consumer"}})";
inline constexpr char kPlatformUser[] =
    R"({"resultCode":"200","result":{"data":{"userId":"user","data":"hush","version":3,"saltIndex":4}}})";
inline constexpr char kConsumerUser[] = R"({"meta":{"code":200},"userInfo":{"userId":"consumer user"}})";
inline constexpr char kConsumerSecret[] =
    R"({"meta":{"code":200},"secret":"quiet","data":{"version":5,"saltIndex":6}})";
inline constexpr char kPlatformDevice[] = R"({"resultCode":"200","result":{"data":{
    "serverInfos":[{"ip":"10.0.0.1","port":6001},{"ip":"10.0.0.2","port":6002}],"defaultKey":"key",
    "defaultKeyVer":"2","qxDeviceCapability":"{\"V3Download\":\"1\"}"}}})";
inline constexpr char kConsumerDevice[] = R"({"meta":{"code":200},"p2pInfos":[{"ip":"10.0.1.1","port":7001}],
    "deviceInfos":[{"deviceSerial":"SHARED","qxDeviceCapability":"{\"289\":\"1\"}"}]})";
inline constexpr char kTokenBatch[] = R"({"resultCode":"200","tokenArray":["t1","t2","t3"]})";

/// The authorisation service's response with a new access token.
inline std::string RefreshResponse(const std::string& token = "new-token") {
    nlohmann::json response;
    response["result"]["code"] = "200";
    response["result"]["data"] = {
        {"access_token", token}, {"openId", "open-id"}, {"refresh_token", "next"}, {"expires_in", 7200}};
    return response.dump();
}

/// The consumer servers' response with a new session.
inline std::string SessionResponse(const std::string& session = "new-session") {
    nlohmann::json response;
    response["meta"]["code"] = 200;
    response["sessionInfo"] = {{"sessionId", session}, {"refreshSessionId", "next-refresh-id"}};
    return response.dump();
}

/// A configured core that can renew both credentials, with one device of each kind.
class FetchTest : public CoreTest {
protected:
    FetchTest() {
        Configure();
        core.setAuthAddr("https://auth.example");
        core.setRefreshToken("refresh-token");
        core.setOpenID("open-id");
        core.setScope("the-scope");
        core.setState("the-state");
        core.setSessionId("old-session");
        std::string none;
        core.RefreshSession("refresh-id", none);  // stores the id; nothing is sent in the ordinary mode
        core.SetB2CTokens(R"([{"token":"shared-token","deviceSerial":"SHARED","channelNo":"1","isShared":1},
                              {"token":"own-token","deviceSerial":"OWN","channelNo":"1","isShared":0}])");
        core.SetDeviceTkTokens(R"([{"deviceTkToken":"tk-device","deviceVideoTkToken":"tk-video",
                                    "deviceSerial":"C1","channelNo":"1"}])");
        SetThreadLastError(0);
        lines.Clear();
    }
    void TearDown() override { SetThreadLastError(0); }

    /// The url up to its parameters.
    std::string Address(size_t index) const {
        const auto sent = transport.Sent();
        return index < sent.size() ? sent[index].url.substr(0, sent[index].url.find('?')) : "<not sent>";
    }
    /// The access token that a request sent.
    std::string Token(size_t index) const {
        const auto sent = transport.Sent();
        return index < sent.size() ? sent[index].Param("accessToken") : "<not sent>";
    }
    /// The session in a request's header.
    std::string Session(size_t index) const {
        constexpr char kHeader[] = "sessionId: ";
        for (const SentRequest& request : transport.Sent()) {
            if (index-- != 0) {
                continue;
            }
            for (const std::string& header : request.headers) {
                if (header.rfind(kHeader, 0) == 0) {
                    return header.substr(sizeof(kHeader) - 1);
                }
            }
            return "<none>";
        }
        return "<not sent>";
    }
    /// How many refreshes of the access token were sent.
    size_t Refreshes() const { return Requests("/oauth/token/refreshToken"); }
    /// How many refreshes of the session were sent.
    size_t SessionRefreshes() const { return Requests("/v3/apigateway/login"); }

    void ExpectOneCredentialError(const std::string& tag) const {
        const LogLine line = OnlyLine("get strToken error");
        EXPECT_EQ(line.Word(), "ERROR");
        EXPECT_EQ(line.level, 5U);
        EXPECT_EQ(line.Tag().rfind(tag, 0), 0U) << line.Tag();
    }

private:
    size_t Requests(const std::string& path) const {
        const auto sent = transport.Sent();
        return static_cast<size_t>(std::count_if(sent.begin(), sent.end(), [&](const SentRequest& request) {
            return request.url.find(path) != std::string::npos;
        }));
    }
};

}  // namespace vantix::test
