// Whose stream tokens are after something changes: two callers at once, another access token, a renewal, a mode.

#include <chrono>
#include <future>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class StreamTokenOwners : public FetchTest {
protected:
    std::string Take(const std::string& accessToken = "access-token") {
        std::string token;
        EXPECT_EQ(core.getOneStreamToken(accessToken, token), 0);
        return token;
    }
    static std::string Batch(const std::string& name) {
        return R"({"resultCode":"200","tokenArray":[")" + name + R"(1",")" + name + R"(2",")" + name + R"(3"]})";
    }
    void Prefetch() {
        transport.Respond(kTokenBatch);
        EXPECT_EQ(core.GetStreamTokenFast(), 0);
    }
    int TakePrefetched(const std::string& accessToken = "access-token") {
        return core.GetStreamTokenFromQueue(accessToken, buffer);
    }
    void Renew() {
        transport.Respond(RefreshResponse());
        std::string token;
        EXPECT_EQ(core.RefreshToken(token), 0);
        EXPECT_EQ(token, "new-token");
    }

    char buffer[4097] = "";
};

TEST_F(StreamTokenOwners, TwoCallersFetchAtOnceAndTheLaterBatchIsQueued) {
    std::promise<void> started;
    std::promise<void> release;
    transport.Make([&](const SentRequest&) {
        started.set_value();
        EXPECT_EQ(release.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready)
            << "the second caller waits";
        return ScriptedResponse{0, Batch("slow")};
    });
    transport.Respond(Batch("fast"));
    std::future<std::string> slow = std::async(std::launch::async, [&] { return Take(); });
    started.get_future().wait();
    EXPECT_EQ(Take(), "fast1");
    release.set_value();
    EXPECT_EQ(slow.get(), "slow1");
    EXPECT_EQ(Take(), "slow2");
    EXPECT_EQ(Take(), "slow3");
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(StreamTokenOwners, AnotherAccessTokenChangesNoOtherCredential) {
    core.setTokenExpireTime("some day");
    transport.Respond(Batch("t"));
    EXPECT_EQ(Take("other-token"), "t1");
    EXPECT_EQ(core.getAccessToken(), "other-token");
    EXPECT_EQ(core.getTokenExpireTime(), "some day");
    EXPECT_EQ(core.getRefreshToken(), "refresh-token");
    EXPECT_EQ(core.getOpenID(), "open-id");
    EXPECT_EQ(core.getScope(), "the-scope");
    EXPECT_EQ(core.getState(), "the-state");
    EXPECT_EQ(core.getAuthAddr(), "https://auth.example");
    EXPECT_EQ(core.getSessionId(), "old-session");
}

TEST_F(StreamTokenOwners, RenewalLeavesTheQueueToTheNewToken) {
    transport.Respond(Batch("t"));
    EXPECT_EQ(Take(), "t1");
    Renew();
    EXPECT_EQ(Take("new-token"), "t2");
    EXPECT_EQ(transport.Count(), 2U) << "a batch and the renewal";
}

TEST_F(StreamTokenOwners, RenewalLeavesThePrefetchedTokenToTheOldOne) {
    Prefetch();
    Renew();
    EXPECT_EQ(TakePrefetched("new-token"), -1);
    EXPECT_EQ(TakePrefetched("access-token"), 0);
    EXPECT_STREQ(buffer, kTokenBatch);
}

TEST_F(StreamTokenOwners, PrefetchedTokenIsServedInEveryMode) {
    for (const int mode : {0, 1, 2, 3}) {
        core.setPermissionMode(0);
        Prefetch();
        core.setPermissionMode(mode);
        EXPECT_EQ(TakePrefetched(), 0) << mode;
        EXPECT_STREQ(buffer, kTokenBatch);
    }
}

TEST_F(StreamTokenOwners, PrefetchedTokenAgesFromTheEndOfItsRequest) {
    transport.Make([&](const SentRequest&) {
        clock.AdvanceSeconds(25);
        return ScriptedResponse{0, kTokenBatch};
    });
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    clock.AdvanceSeconds(18000);
    EXPECT_EQ(TakePrefetched(), 0);
}

TEST_F(StreamTokenOwners, PrefetchLooksAtTheModeThenAtTheTokenThatIsThereThenAtTheAccessToken) {
    const auto line = [&](int mode) {
        core.setPermissionMode(mode);
        lines.Clear();
        EXPECT_EQ(core.GetStreamTokenFast(), 0);
        return lines.Messages();
    };
    Prefetch();
    core.setAccessToken("");
    EXPECT_THAT(line(1), testing::ElementsAre("Small permissions do not need to use the following logic."));
    EXPECT_THAT(line(2), testing::ElementsAre("4200 B2c do not need to use the following logic."));
    EXPECT_THAT(line(0), testing::ElementsAre("m_strFirstToken is not NULL"));
    EXPECT_EQ(TakePrefetched(), 0);
    EXPECT_THAT(line(0), testing::ElementsAre("getAccessToken is NULL"));
}

}  // namespace
}  // namespace vantix::test
