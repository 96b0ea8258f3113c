// A host that wants no lines gets none from the core either: everything else is as ever.

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class QuietCore : public FetchTest {
protected:
    QuietCore() {
        core.setLogLevel(6);
        lines.Clear();
    }
    ~QuietCore() override { EXPECT_EQ(lines.Messages(), std::vector<std::string>()); }
    QuietCore(const QuietCore&) = delete;
    QuietCore& operator=(const QuietCore&) = delete;
};

TEST_F(QuietCore, ATokenIsRefreshed) {
    transport.Respond(RefreshResponse());
    std::string token;
    EXPECT_EQ(core.RefreshToken(token), 0);
    EXPECT_EQ(token, "new-token");
    transport.Fail(7);
    EXPECT_EQ(core.RefreshToken(token), -1);
    core.setOpenID("");
    EXPECT_EQ(core.RefreshToken(token), -1);
    core.setPermissionMode(1);
    EXPECT_EQ(core.RefreshToken(token), -1);
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(QuietCore, ASessionIsRefreshed) {
    std::string session;
    EXPECT_EQ(core.RefreshSession("refresh-id", session), -1) << "in the ordinary mode";
    core.setPermissionMode(2);
    transport.Respond(SessionResponse());
    EXPECT_EQ(core.RefreshSession("refresh-id", session), 0);
    EXPECT_EQ(session, "new-session");
    transport.Fail(7);
    EXPECT_EQ(core.RefreshSession("", session), -1);
    transport.Respond("no JSON");
    EXPECT_EQ(core.RefreshSession("", session), -1);
    EXPECT_EQ(transport.Count(), 3U);
}

TEST_F(QuietCore, ASessionWithoutARefreshIdIsNotRefreshed) {
    CVantixDataCenter fresh;
    fresh.setPermissionMode(2);
    std::string session;
    EXPECT_EQ(fresh.RefreshSession("", session), -1);
    EXPECT_EQ(transport.Count(), 0U);
    fresh.setPermissionMode(0);
}

TEST_F(QuietCore, ACacheRunsOutOfTime) {
    core.setCacheTime(1);
    EXPECT_FALSE(core.isExpired(clock.Wall() - 60));
    EXPECT_TRUE(core.isExpired(clock.Wall() - 61));
    clock.Break();
    EXPECT_FALSE(core.isExpired(0));
}

TEST_F(QuietCore, ARecordIsServedFromItsCache) {
    transport.Respond(kPlatformDevice);
    P2PDevInfo device;
    EXPECT_EQ(core.getP2PDevInfo(device, "own-token", "OWN", false), 0);
    P2PDevInfo served;
    EXPECT_EQ(core.getP2PDevInfo(served, "own-token", "OWN", false), 0);
    EXPECT_EQ(served.defaultKey, "key");
    EXPECT_EQ(core.isP2PV3download("OWN", 1), 1);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(QuietCore, AnExpiredSessionEndsTheListOfSharedDevices) {
    core.setPermissionMode(2);
    transport.Respond(kSessionGone);
    std::string json = "before";
    EXPECT_EQ(core.getB2CSharedDevList(0, 50, json), 300401);
    EXPECT_EQ(json, "before");
}

TEST_F(QuietCore, AConfigurationIsTakenOver) {
    transport.Respond(R"({"result":{"code":"200","data":{"streamType":1,"dataCollect":1,"openP2P":1}}})");
    ConfigInfo config;
    EXPECT_EQ(core.getConfigInfo(config), 0);
    EXPECT_TRUE(core.isVTDUType1());
}

TEST_F(QuietCore, AMalformedMemberOfADetailIsSkipped) {
    nlohmann::json response = DetailResponse("C1", 1);
    response["result"]["data"]["device"]["qxDeviceSupportExt"] = "no JSON";
    response["result"]["data"]["device"]["deviceIP"] = "10.0.0.1";
    transport.Respond(response.dump());
    DevChannelInfo channel;
    DevDetailInfo device;
    EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, true, channel, device, false), 0);
    EXPECT_EQ(device.deviceIP, "10.0.0.1");
    EXPECT_EQ(core.getDevInfoCache("NOBODY", 1, channel, device), -1);
    core.ClearDeviceInfoCache();
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), -1);
}

struct PrefetchRow {
    const char* what;
    int mode;
    const char* accessToken;
    std::string response;
    size_t requests;
};

TEST_F(QuietCore, AStreamTokenIsPrefetchedOrNot) {
    const PrefetchRow rows[] = {
        {"small permission mode", 1, "access-token", "", 0},
        {"B2C mode", 2, "access-token", "", 0},
        {"no access token", 0, "", "", 0},
        {"no server", 0, "access-token", "", 1},
        {"refused", 0, "access-token", R"({"resultCode":"20031"})", 1},
        {"refused by the authentication", 0, "access-token", R"({"resultCode":"0"})", 1},
        {"too long", 0, "access-token", R"({"resultCode":"200","x":")" + std::string(5000, 'x') + R"("})", 1},
    };
    for (const PrefetchRow& row : rows) {
        SCOPED_TRACE(row.what);
        core.setPermissionMode(row.mode);
        core.setAccessToken(row.accessToken);
        const size_t before = transport.Count();
        if (!row.response.empty()) {
            transport.Respond(row.response);
        }
        EXPECT_EQ(core.GetStreamTokenFast(), 0);
        EXPECT_EQ(transport.Count(), before + row.requests);
        char token[4097] = {};
        EXPECT_EQ(core.GetStreamTokenFromQueue("access-token", token), -1);
        EXPECT_STREQ(token, "");
    }
    core.setPermissionMode(0);
}

TEST_F(QuietCore, APrefetchedStreamTokenIsServedOnce) {
    transport.Respond(kTokenBatch);
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_EQ(core.GetStreamTokenFast(), 0) << "one is there";
    char token[4097] = {};
    EXPECT_EQ(core.GetStreamTokenFromQueue("access-token", token), 0);
    EXPECT_STREQ(token, kTokenBatch);
    EXPECT_EQ(core.GetStreamTokenFromQueue("access-token", token), -1);
    EXPECT_EQ(transport.Count(), 1U);
}

}  // namespace
}  // namespace vantix::test
