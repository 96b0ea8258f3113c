// The user's P2P identity: one cached record, three forms, and responses that fill nothing.

#include "support/NoThreads.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class P2PUser : public FetchTest {
protected:
    int Fetch(const std::string& token = "own-token") { return core.getP2PUserInfo(token, user, false); }
    int FetchInBackground() { return core.getP2PUserInfo(user, "own-token", future, false); }
    void Cache() {
        transport.Respond(kPlatformUser);
        P2PUserInfo cached;
        ASSERT_EQ(core.getP2PUserInfo("own-token", cached, true), 0);
        lines.Clear();
    }
    bool IsCached() {
        const size_t before = transport.Count();
        P2PUserInfo read;
        return core.getP2PUserInfo("own-token", read, true) == 0 && transport.Count() == before;
    }
    void ExpectPlatformUser() const {
        EXPECT_EQ(user.userId, "user");
        EXPECT_EQ(user.data, "hush");
        EXPECT_EQ(user.version, 3);
        EXPECT_EQ(user.saltIndex, 4);
    }

    P2PUserInfo user;
    std::future<int32_t> future;
};

// ---- The platform's response

TEST_F(P2PUser, PlatformRequestIsAFormWithTheAccessToken) {
    clock.SetSteadyStep(6'000'000);
    transport.Respond(kPlatformUser);
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].method, "POST");
    EXPECT_EQ(transport.Sent()[0].url, "https://b.example/api/sdk/p2p/user/info/get");
    EXPECT_EQ(Token(0), "access-token");
    ExpectPlatformUser();
    EXPECT_EQ(user.iRequestCost, 6);
}

TEST_F(P2PUser, AllFiveFieldsAreKeptAndServedWithoutACost) {
    clock.SetSteadyStep(6'000'000);
    Cache();
    user.iRequestCost = 77;
    EXPECT_EQ(Fetch(), 0);
    ExpectPlatformUser();
    EXPECT_EQ(user.iRequestCost, 0);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(P2PUser, AllThreeFormsShareTheCache) {
    Cache();
    EXPECT_EQ(core.getP2PUserInfo("C1", 1, user, false), 0);
    ExpectPlatformUser();
    user = {};
    EXPECT_EQ(FetchInBackground(), 0);
    ExpectPlatformUser();
    EXPECT_FALSE(future.valid());
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(P2PUser, FormByDeviceFillsTheCacheToo) {
    transport.Respond(kPlatformUser);
    EXPECT_EQ(core.getP2PUserInfo("OWN", 1, user, false), 0);
    ExpectPlatformUser();
    EXPECT_TRUE(IsCached());
}

TEST_F(P2PUser, CopyIsServedUntilTheCachesAreCleared) {
    Cache();
    clock.AdvanceSeconds(10'000'000);
    core.expireServerInfo();
    EXPECT_TRUE(IsCached());
    core.ClearAllCache();
    EXPECT_FALSE(IsCached());
}

TEST_F(P2PUser, SecretIsInNoLineButTheTransportsOwnOfWhatItReceived) {
    iLogLevel = 1;
    transport.Respond(kConsumerUser);
    transport.Respond(kConsumerSecret);
    core.setPermissionMode(2);
    EXPECT_EQ(Fetch("shared-token"), 0);
    EXPECT_EQ(user.data, "quiet");
    for (const std::string& message : lines.Messages()) {
        EXPECT_TRUE(message.rfind("strRsp:", 0) == 0 || message.find("quiet") == std::string::npos) << message;
    }
}

// ---- The consumer servers' responses

TEST_F(P2PUser, ConsumerServerIsAskedTwiceWithTheSameSession) {
    core.setPermissionMode(2);
    clock.SetSteadyStep(6'000'000);
    transport.Respond(kConsumerUser);
    transport.Respond(kConsumerSecret);
    EXPECT_EQ(Fetch("shared-token"), 0);
    ASSERT_EQ(transport.Count(), 2U);
    EXPECT_EQ(transport.Sent()[0].method, "GET");
    EXPECT_EQ(Address(0), "https://c.example/v3/users/info");
    EXPECT_EQ(Address(1), "https://c.example/v3/p2pbusiness/configurations/p2p");
    EXPECT_EQ(Session(0), "old-session");
    EXPECT_EQ(Session(1), "old-session");
    EXPECT_EQ(user.userId, "consumer user");
    EXPECT_EQ(user.data, "quiet");
    EXPECT_EQ(user.version, 5);
    EXPECT_EQ(user.saltIndex, 6);
    EXPECT_EQ(user.iRequestCost, 12) << "both requests";
    EXPECT_TRUE(IsCached());
}

TEST_F(P2PUser, ConsumerRefusalThatEndsAsASuccessFillsAndKeepsNothing) {
    core.setPermissionMode(2);
    for (const char* body : {kSessionGone, R"({"meta":{"code":500}})", "{}", R"({"meta":7})", "[]"}) {
        SCOPED_TRACE(body);
        transport.Make([&, body](const SentRequest&) {
            Cache();  // by another fetch, meanwhile
            return ScriptedResponse{0, body};
        });
        user.userId = "mine";
        const size_t before = transport.Count();
        EXPECT_EQ(Fetch("shared-token"), 0);
        EXPECT_EQ(transport.Count(), before + 2) << "the other one's, and one of two";
        EXPECT_EQ(user.userId, "mine");
        EXPECT_FALSE(IsCached());
    }
    ExpectNoLine("start RefreshSession");
}

TEST_F(P2PUser, ConsumerRecordWithASecretAloneIsKept) {
    core.setPermissionMode(2);
    transport.Respond(R"({"meta":{"code":200},"userInfo":{}})");
    transport.Respond(kConsumerSecret);
    EXPECT_EQ(Fetch("shared-token"), 0);
    EXPECT_EQ(user.userId, "");
    EXPECT_EQ(user.data, "quiet");
    EXPECT_TRUE(IsCached());
}

TEST_F(P2PUser, ConsumerFailureInvalidates) {
    core.setPermissionMode(2);
    const struct {
        int curl;
        const char* first;
        const char* second;
        int result;
    } rows[] = {
        {7, "", nullptr, 100007},
        {0, "<html>", nullptr, 1},
        {0, kConsumerUser, "<html>", 1},
        {0, kConsumerUser, "{}", 300002},
        {0, R"({"meta":{"code":200}})", kConsumerSecret, 300002},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.result);
        transport.Make([&, row](const SentRequest&) {
            Cache();  // by another fetch, meanwhile
            if (row.second != nullptr) {
                transport.Respond(row.second);
            }
            return ScriptedResponse{row.curl, row.first};
        });
        user.userId = "mine";
        EXPECT_EQ(Fetch("shared-token"), row.result);
        EXPECT_EQ(user.userId, "mine");
        EXPECT_FALSE(IsCached());
    }
}

// ---- Failures of the platform

TEST_F(P2PUser, PlatformFailureInvalidatesAndTouchesOnlyTheCost) {
    const struct {
        int curl;
        const char* body;
        int result;
    } rows[] = {
        {28, "", 100028},
        {0, "", 300001},
        {0, "{}", 300002},
        {0, R"({"resultCode":"20007"})", 320007},
        {0, R"({"resultCode":"200"})", 300002},
        {0, R"({"resultCode":"200","result":{"data":[]}})", 300002},
    };
    clock.SetSteadyStep(4'000'000);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        transport.Make([&, row](const SentRequest&) {
            Cache();
            return ScriptedResponse{row.curl, row.body};
        });
        user.userId = "mine";
        user.iRequestCost = 0;
        EXPECT_EQ(Fetch(), row.result);
        EXPECT_EQ(user.userId, "mine");
        EXPECT_GT(user.iRequestCost, 0);
        EXPECT_FALSE(IsCached());
    }
}

TEST_F(P2PUser, PlatformSuccessIsKeptWhateverItFills) {
    transport.Respond(R"({"resultCode":"200","result":{"data":{"version":3,"saltIndex":1}}})");
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(user.userId, "");
    EXPECT_EQ(user.version, 3);
    EXPECT_EQ(user.saltIndex, 1);
    EXPECT_TRUE(IsCached());
}

TEST_F(P2PUser, EmptyCredentialInvalidates) {
    core.setPermissionMode(2);
    transport.Make([&](const SentRequest&) {
        Cache();
        core.setAccessToken("");
        return ScriptedResponse{0, kExpired};
    });
    core.setOpenID("");
    EXPECT_EQ(Fetch(), 310002);
    EXPECT_EQ(Fetch(), -1) << "the failed fetch ended the copy";
    EXPECT_EQ(ThreadLastError(), -1);
}

// ---- The asynchronous form

TEST_F(P2PUser, MissReturnsZeroAndTheRecordIsCompleteWhenTheFutureIsReady) {
    transport.Respond(kPlatformUser);
    EXPECT_EQ(FetchInBackground(), 0);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    ExpectPlatformUser();
    EXPECT_TRUE(IsCached());
    const LogLine line = OnlyLine("futureUserInfo async");
    EXPECT_EQ(line.Word(), "ERROR");
    EXPECT_EQ(line.level, 5U);
    EXPECT_EQ(line.Tag(), "CVantixDataCenter::getP2PUserInfo::<lambda()>");
}

TEST_F(P2PUser, ConsumerTaskLogsTheSameLine) {
    core.setPermissionMode(2);
    transport.Respond(kConsumerUser);
    transport.Respond(kConsumerSecret);
    EXPECT_EQ(core.getP2PUserInfo(user, "shared-token", future, false), 0);
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(user.userId, "consumer user");
    EXPECT_EQ(lines.Count("futureUserInfo async"), 1U);
    EXPECT_TRUE(IsCached());
}

TEST_F(P2PUser, HitLeavesTheFutureUntouched) {
    Cache();
    std::promise<int32_t> own;
    future = own.get_future();
    EXPECT_EQ(FetchInBackground(), 0);
    ExpectPlatformUser();
    own.set_value(1234);
    EXPECT_EQ(future.get(), 1234);
    ExpectNoLine("futureUserInfo async");
}

TEST_F(P2PUser, TaskRepeatsThroughTheSynchronousForm) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kPlatformUser);
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(Token(2), "new-token");
    EXPECT_EQ(lines.Count("futureUserInfo async"), 1U);
    EXPECT_TRUE(IsCached());
}

TEST_F(P2PUser, FailureComesThroughTheFuture) {
    transport.Fail(28);
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(future.get(), 100028);
    EXPECT_FALSE(IsCached());
}

TEST_F(P2PUser, SecondTaskIntoTheSameFutureWaitsForTheFirst) {
    std::promise<void> started;
    std::promise<void> release;
    transport.Make([&](const SentRequest&) {
        started.set_value();
        release.get_future().wait();
        return ScriptedResponse{0, R"({"resultCode":"200","result":{"data":{"userId":"first","data":"first"}}})"};
    });
    transport.Make([&](const SentRequest&) {
        release.set_value();  // only the second lets the first end
        return ScriptedResponse{0, kPlatformUser};
    });
    P2PUserInfo first;
    EXPECT_EQ(core.getP2PUserInfo(first, "own-token", future, false), 0);
    started.get_future().wait();
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(first.userId, "first") << "the first task has ended";
    EXPECT_EQ(future.get(), 0);
    ExpectPlatformUser();
}

TEST_F(P2PUser, WithoutThreadsTheFutureYieldsMinusOne) {
    {
        const NoThreads noThreads;
        EXPECT_EQ(FetchInBackground(), 0);
    }
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), -1);
    EXPECT_EQ(transport.Count(), 0U);
}

}  // namespace
}  // namespace vantix::test
