// A device detail whose access token has expired: one refresh and one repeat, by every front.

#include <future>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

using Front = int (*)(CVantixDataCenter& core, const char* serial, DevChannelInfo& channel, DevDetailInfo& device,
                      bool retried);

int Forced(CVantixDataCenter& core, const char* serial, DevChannelInfo& channel, DevDetailInfo& device, bool retried) {
    return core.getDevDetailInfoSync(serial, 1, true, channel, device, retried);
}

int Unforced(CVantixDataCenter& core, const char* serial, DevChannelInfo& channel, DevDetailInfo& device,
             bool retried) {
    return core.getDevDetailInfoSync(serial, 1, false, channel, device, retried);
}

int InBackground(CVantixDataCenter& core, const char* serial, DevChannelInfo& channel, DevDetailInfo& device,
                 bool retried) {
    std::future<int32_t> future;
    const int result = core.getDevDetailInfo(serial, 1, channel, device, future, retried);
    return future.valid() ? future.get() : result;
}

int ByRelation(CVantixDataCenter& core, const char* serial, DevChannelInfo& channel, DevDetailInfo& device,
               bool retried) {
    return core.getDevDetailInfoByRelation(serial, 1, channel, device, retried);
}

struct Row {
    const char* name;
    Front front;
    bool repeatLooksAtTheCache;
};

constexpr Row kRows[] = {
    {"Forced", Forced, false},
    {"Unforced", Unforced, true},
    {"InBackground", InBackground, false},
    {"ByRelation", ByRelation, true},
};

class DetailRepeat : public FetchTest, public testing::WithParamInterface<Row> {
protected:
    int Fetch(bool retried = false) { return GetParam().front(core, "OWN", channel, device, retried); }
    int FetchShared(bool retried = false) { return GetParam().front(core, "SHARED", channel, device, retried); }
    static std::string Body(const std::string& ip = "10.0.0.1") {
        nlohmann::json response = DetailResponse("OWN", 1);
        response["result"]["data"]["device"]["deviceIP"] = ip;
        return response.dump();
    }
    /// What the device cache holds; empty when there is nothing.
    std::string CachedIP() {
        DevDetailInfo cached;
        return core.getDeviceRecord("OWN", 1, cached) == 0 ? cached.deviceIP : "";
    }

    DevChannelInfo channel;
    DevDetailInfo device;
};

TEST_P(DetailRepeat, ExpiredTokenIsRenewedOnceAndTheFetchRepeatedWithTheNewOne) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(Body());
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Address(0), "https://b.example/api/device/detail");
    EXPECT_EQ(Token(0), "access-token");
    EXPECT_EQ(Address(1), "https://auth.example/oauth/token/refreshToken");
    EXPECT_EQ(Address(2), "https://b.example/api/device/detail");
    EXPECT_EQ(Token(2), "new-token");
    EXPECT_EQ(transport.Sent()[2].Param("deviceSerial"), "OWN");
    EXPECT_EQ(device.deviceIP, "10.0.0.1");
    EXPECT_EQ(CachedIP(), "10.0.0.1");
}

TEST_P(DetailRepeat, ExpiredTwiceIsNotRenewedTwice) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kExpired);
    EXPECT_EQ(Fetch(), 310002);
    EXPECT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Refreshes(), 1U);
    EXPECT_EQ(CachedIP(), "");
}

TEST_P(DetailRepeat, RefreshWithoutATokenLeavesTheFirstResultAndSendsNoSecondRequest) {
    const struct {
        int curl;
        std::string body;
    } rows[] = {
        {7, ""}, {0, CodeResponse("10002")}, {0, "<html>gone</html>"}, {0, "{}"}, {0, RefreshResponse("")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        const size_t before = transport.Count();
        transport.Respond(kExpired);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Fetch(), 310002);
        EXPECT_EQ(transport.Count(), before + 2);
        EXPECT_EQ(core.getAccessToken(), "access-token");
        EXPECT_EQ(CachedIP(), "");
    }
}

TEST_P(DetailRepeat, RefreshThatCannotBeSentLeavesTheFirstResult) {
    core.setRefreshToken("");
    transport.Respond(kExpired);
    EXPECT_EQ(Fetch(), 310002);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_P(DetailRepeat, RepeatedCallIsNotRenewed) {
    transport.Respond(kExpired);
    EXPECT_EQ(Fetch(true), 310002);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_P(DetailRepeat, OtherResultsAreNotRenewed) {
    for (const auto& [code, result] : {std::pair("10001", 310001), {"401", 300401}, {"20007", 320007}}) {
        const size_t before = transport.Count();
        transport.Respond(CodeResponse(code));
        EXPECT_EQ(Fetch(), result);
        EXPECT_EQ(transport.Count(), before + 1);
    }
}

TEST_P(DetailRepeat, ResultOfTheRepeatIsTheResult) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Fail(28);
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_EQ(transport.Count(), 3U);
}

TEST_P(DetailRepeat, ExpiryIsMetAtAnyAttemptAndTheRepeatHasThreeOfItsOwn) {
    transport.Respond(CodeResponse("49999"), 2);
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(CodeResponse("50000"), 2);
    transport.Respond(Body());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Count(), 7U);
    EXPECT_EQ(Token(2), "access-token");
    EXPECT_EQ(Token(4), "new-token");
    EXPECT_EQ(Token(6), "new-token");
}

TEST_P(DetailRepeat, SmallPermissionModeRenewsNothing) {
    core.setPermissionMode(1);
    core.SetDeviceTkTokens(R"([{"deviceVideoTkToken":"tk","deviceSerial":"OWN","channelNo":"1"}])");
    transport.Respond(kExpired);
    EXPECT_EQ(Fetch(), 310002);
    EXPECT_EQ(Token(0), "tk");
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::RefreshToken",
                                       "Small permissions do not need to use the following logic"));
}

TEST_P(DetailRepeat, B2CModeRenewsTheAccessTokenAndRepeatsWithTheDevicesOwn) {
    core.setPermissionMode(2);
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(Body());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(Token(0), "own-token");
    EXPECT_EQ(Token(2), "own-token");
    EXPECT_EQ(core.getAccessToken(), "new-token");
}

TEST_P(DetailRepeat, RepeatIsForcedWhereTheRuleSaysSo) {
    transport.Respond(kExpired);
    transport.Make([&](const SentRequest&) {
        transport.Respond(Body("of another fetch"));
        DevChannelInfo otherChannel;
        DevDetailInfo other;
        EXPECT_EQ(core.getDevDetailInfoSync("OWN", 1, true, otherChannel, other, true), 0);
        return ScriptedResponse{0, RefreshResponse()};
    });
    transport.Always([](const SentRequest&) { return ScriptedResponse{0, Body("of the repeat")}; });
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Count(), GetParam().repeatLooksAtTheCache ? 3U : 4U);
    EXPECT_EQ(device.deviceIP, GetParam().repeatLooksAtTheCache ? "of another fetch" : "of the repeat");
}

// ---- A shared device

TEST_P(DetailRepeat, TokenCodeOfTheConsumerServersRenewsTheAccessToken) {
    core.setPermissionMode(2);
    transport.Respond(R"({"meta":{"code":10002}})");
    transport.Respond(RefreshResponse());
    transport.Respond(R"({"meta":{"code":500}})");
    EXPECT_EQ(FetchShared(), 300500);
    ASSERT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Address(0), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(Address(1), "https://auth.example/oauth/token/refreshToken");
    EXPECT_EQ(Address(2), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(core.getAccessToken(), "new-token");
}

// ---- One whose session has ended

TEST_P(DetailRepeat, EndedSessionIsRenewedOnceAndTheFetchRepeatedWithTheNewOne) {
    core.setPermissionMode(2);
    for (const auto& [second, result] : {std::pair(R"({"meta":{"code":500}})", 300500), {kSessionGone, 300401}}) {
        core.setSessionId("old-session");
        const size_t before = transport.Count();
        transport.Respond(kSessionGone);
        transport.Respond(SessionResponse());
        transport.Respond(second);
        EXPECT_EQ(FetchShared(), result) << "that of the repeat, which is not renewed again";
        ASSERT_EQ(transport.Count(), before + 3);
        EXPECT_EQ(Address(before), "https://c.example/v3/userdevices/v1/devices/pagelist");
        EXPECT_EQ(Session(before), "old-session");
        EXPECT_EQ(Address(before + 1), "https://c.example/v3/apigateway/login");
        EXPECT_EQ(Address(before + 2), "https://c.example/v3/userdevices/v1/devices/pagelist");
        EXPECT_EQ(Session(before + 2), "new-session");
        EXPECT_EQ(core.getAccessToken(), "access-token");
    }
}

TEST_P(DetailRepeat, RefusedSessionLeavesTheFirstResultAndSendsNoSecondRequest) {
    core.setPermissionMode(2);
    transport.Respond(kSessionGone);
    transport.Respond("<html>gone</html>");
    EXPECT_EQ(FetchShared(), 300401);
    EXPECT_EQ(transport.Count(), 2U);
    EXPECT_EQ(core.getSessionId(), "old-session");
}

TEST_P(DetailRepeat, RepeatedCallDoesNotRenewTheSession) {
    core.setPermissionMode(2);
    transport.Respond(kSessionGone);
    EXPECT_EQ(FetchShared(true), 300401);
    EXPECT_EQ(transport.Count(), 1U);
    ExpectNoLine("start RefreshSession");
}

// ---- A shared device without a session

TEST_P(DetailRepeat, EmptySessionIsRenewedBeforeTheRequest) {
    core.setPermissionMode(2);
    core.setSessionId("");
    transport.Respond(SessionResponse());
    transport.Respond(R"({"meta":{"code":500}})");
    EXPECT_EQ(FetchShared(), 300500) << "what the request with the new session returns";
    ASSERT_EQ(transport.Count(), 2U);
    EXPECT_EQ(Address(0), "https://c.example/v3/apigateway/login");
    EXPECT_EQ(Address(1), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(Session(1), "new-session");
    EXPECT_EQ(core.getSessionId(), "new-session");
    ExpectNoLine("get strToken error");
}

TEST_P(DetailRepeat, EmptySessionThatNothingRenewsFailsWithoutARequest) {
    core.setPermissionMode(2);
    core.setSessionId("");
    Parts().settings.refreshSessionId.Assign("");
    EXPECT_EQ(FetchShared(), -1);
    EXPECT_EQ(transport.Count(), 0U);
    ExpectOneCredentialError("CVantixDataCenter::updateDevDetailInfo");
}

INSTANTIATE_TEST_SUITE_P(Fronts, DetailRepeat, testing::ValuesIn(kRows),
                         [](const testing::TestParamInfo<Row>& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vantix::test
