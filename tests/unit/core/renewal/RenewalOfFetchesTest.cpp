// When a fetch is repeated with a renewed credential: the same rules for every fetch, each at most once.

#include "unit/core/FetchRows.h"

namespace vantix::test {
namespace {

using FetchRepeatTest = FetchRowTest;
using ConsumerRepeat = FetchRowTest;
// Those whose caller says whether the call is a repeat already.
using FetchFlagTest = FetchRowTest;
using ConsumerFlag = FetchRowTest;

// ---- An expired access token

TEST_P(FetchRepeatTest, ExpiredTokenIsRenewedOnceAndTheFetchRepeatedWithTheNewOne) {
    for (const int mode : {0, 2, 3}) {
        SCOPED_TRACE(mode);
        core.ClearAllCache();
        core.setPermissionMode(mode);
        core.setAccessToken("access-token");
        const size_t before = transport.Count();
        transport.Respond(kExpired);
        transport.Respond(RefreshResponse());
        transport.Respond(GetParam().platformBody);
        EXPECT_EQ(Call("own-token"), 0);
        ASSERT_EQ(transport.Count(), before + 3);
        EXPECT_EQ(Address(before), AtPlatform());
        EXPECT_EQ(Token(before), SentToken("own-token"));
        EXPECT_EQ(Address(before + 1), "https://auth.example/oauth/token/refreshToken");
        EXPECT_EQ(Address(before + 2), AtPlatform());
        EXPECT_EQ(Token(before + 2), "new-token");
        EXPECT_EQ(core.getAccessToken(), "new-token");
    }
}

TEST_P(FetchRepeatTest, NewTokenIsWhatTheRepeatIsAskedWith) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(GetParam().platformBody);
    EXPECT_EQ(Call("own-token"), 0);
    EXPECT_EQ(lines.Count("Getting domain for token (first 10 chars): new-token..."),
              GetParam().hasDomainByToken ? 1U : 0U);
}

TEST_P(FetchRepeatTest, ExpiredTwiceIsNotRenewedTwice) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kExpired);
    EXPECT_EQ(Call("own-token"), 310002);
    EXPECT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Refreshes(), 1U);
    EXPECT_EQ(core.getAccessToken(), "new-token") << "the first refresh holds";
}

TEST_P(FetchRepeatTest, ResultOfTheRepeatIsTheResult) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Fail(28);
    EXPECT_EQ(Call("own-token"), 100028);
    EXPECT_EQ(transport.Count(), 3U);
}

TEST_P(FetchFlagTest, RepeatedCallIsNotRenewed) {
    transport.Respond(kExpired);
    EXPECT_EQ(Call("own-token", true), 310002);
    EXPECT_EQ(transport.Count(), 1U);
    ExpectNoLine("Refresh Token");
}

TEST_P(FetchRepeatTest, RefreshWithoutATokenLeavesTheFirstResultAndSendsNoSecondRequest) {
    const struct {
        int curl;
        std::string body;
    } rows[] = {
        {7, ""},   {0, CodeResponse("10002")},          {0, CodeResponse("20007")}, {0, "<html>gone</html>"},
        {0, "{}"}, {0, R"({"result":{"code":"200"}})"}, {0, RefreshResponse("")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        const size_t before = transport.Count();
        transport.Respond(kExpired);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Call("own-token"), 310002);
        EXPECT_EQ(transport.Count(), before + 2);
        EXPECT_EQ(core.getAccessToken(), "access-token");
    }
}

TEST_P(FetchRepeatTest, RefreshThatCannotBeSentLeavesTheFirstResult) {
    core.setOpenID("");
    transport.Respond(kExpired);
    EXPECT_EQ(Call("own-token"), 310002);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_TRUE(lines.Contains("Refresh Token, params invalid"));
}

TEST_P(FetchRepeatTest, SmallPermissionModeRenewsNothing) {
    core.setPermissionMode(1);
    transport.Respond(kExpired);
    EXPECT_EQ(Call("own-token"), 310002);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::RefreshToken",
                                       "Small permissions do not need to use the following logic"));
}

TEST_P(FetchRepeatTest, NoOtherResultOfThePlatformRenewsAnything) {
    core.setPermissionMode(2);
    for (const auto& [code, result] : {std::pair("10001", 310001),
                                       {"10003", 310003},
                                       {"401", 300401},
                                       {"49999", 349999},
                                       {"50000", 350000},
                                       {"1", 300001}}) {
        SCOPED_TRACE(code);
        const size_t before = transport.Count();
        transport.Respond(CodeResponse(code));
        EXPECT_EQ(Call("own-token"), result);
        EXPECT_EQ(transport.Count(), before + 1);
    }
    transport.Fail(7);
    EXPECT_EQ(Call("own-token"), 100007);
    ExpectNoLine("start RefreshSession");
    ExpectNoLine("Refresh Token");
}

INSTANTIATE_TEST_SUITE_P(Fetches, FetchRepeatTest, testing::ValuesIn(AllFetches()), NameOfFetch);
INSTANTIATE_TEST_SUITE_P(Fetches, FetchFlagTest, testing::ValuesIn(FetchesWith({&Fetch::takesRetried})), NameOfFetch);

// ---- A session that has ended

TEST_P(ConsumerRepeat, EndedSessionIsRenewedOnceAndTheFetchRepeatedWithTheNewOne) {
    EnterB2C();
    transport.Respond(kSessionGone);
    transport.Respond(SessionResponse());
    RespondByConsumer();
    EXPECT_EQ(Call("shared-token"), 0);
    ASSERT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Address(0), AtConsumer());
    EXPECT_EQ(Session(0), "old-session");
    EXPECT_EQ(Address(1), "https://c.example/v3/apigateway/login");
    EXPECT_EQ(Address(2), AtConsumer());
    EXPECT_EQ(Session(2), "new-session");
    EXPECT_EQ(core.getSessionId(), "new-session");
    EXPECT_EQ(core.getAccessToken(), "access-token");
    EXPECT_EQ(Refreshes(), 0U);
}

TEST_P(ConsumerRepeat, SessionThatEndsTwiceIsNotRenewedTwice) {
    EnterB2C();
    transport.Respond(kSessionGone);
    transport.Respond(SessionResponse());
    transport.Respond(kSessionGone);
    EXPECT_EQ(Call("shared-token"), 300401);
    EXPECT_EQ(transport.Count(), 3U);
    EXPECT_EQ(SessionRefreshes(), 1U);
}

TEST_P(ConsumerFlag, RepeatedCallDoesNotRenewTheSession) {
    EnterB2C();
    transport.Respond(kSessionGone);
    EXPECT_EQ(Call("shared-token", true), 300401);
    EXPECT_EQ(transport.Count(), 1U);
    ExpectNoLine("start RefreshSession");
}

TEST_P(ConsumerRepeat, RefreshWithoutASessionLeavesTheFirstResultAndSendsNoSecondRequest) {
    EnterB2C();
    const struct {
        int curl;
        std::string body;
    } rows[] = {
        {7, ""}, {0, kSessionGone}, {0, "<html>gone</html>"}, {0, "{}"}, {0, SessionResponse("")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        const size_t before = transport.Count();
        transport.Respond(kSessionGone);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Call("shared-token"), 300401);
        EXPECT_EQ(transport.Count(), before + 2);
        EXPECT_EQ(core.getSessionId(), "old-session");
    }
}

TEST_P(ConsumerRepeat, NoOtherResultOfTheConsumerServerRenewsAnything) {
    EnterB2C();
    for (const auto& [code, result] : {std::pair("400", 300400), {"402", 300402}, {"10002", 310002}}) {
        SCOPED_TRACE(code);
        const size_t before = transport.Count();
        transport.Respond(R"({"meta":{"code":)" + std::string(code) + "}}");
        EXPECT_EQ(Call("shared-token"), result);
        EXPECT_EQ(transport.Count(), before + 1);
    }
    transport.Fail(7);
    EXPECT_EQ(Call("shared-token"), 100007);
    ExpectNoLine("start RefreshSession");
    ExpectNoLine("Refresh Token");
}

INSTANTIATE_TEST_SUITE_P(Fetches, ConsumerRepeat, testing::ValuesIn(FetchesWith({&Fetch::seesSessionEnd})),
                         NameOfFetch);
INSTANTIATE_TEST_SUITE_P(Fetches, ConsumerFlag,
                         testing::ValuesIn(FetchesWith({&Fetch::seesSessionEnd, &Fetch::takesRetried})), NameOfFetch);

}  // namespace
}  // namespace vantix::test
