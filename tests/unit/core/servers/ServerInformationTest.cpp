// The media servers: one cached record, its two fronts, and what ends its validity.

#include "support/NoThreads.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class ServerInformation : public FetchTest {
protected:
    int Fetch() { return core.getServerInfo("own-token", servers, false); }
    int FetchInBackground() { return core.getServerInfo("own-token", servers, future, false); }
    /// Puts a record into the cache.
    void Cache() {
        transport.Respond(kPlatformServers);
        ServerInfo kept;
        ASSERT_EQ(core.getServerInfo("own-token", kept, true), 0);
        lines.Clear();
    }
    /// Whether the next call is served without a request.
    bool IsCached() {
        const size_t before = transport.Count();
        ServerInfo read;
        return core.getServerInfo("own-token", read, true) == 0 && transport.Count() == before;
    }
    static std::string Servers(const std::string& stun) {
        nlohmann::json response;
        response["resultCode"] = "200";
        response["serverResp"]["stun1Addr"] = stun;
        return response.dump();
    }

    ServerInfo servers;
    std::future<int32_t> future;
};

// ---- The request

TEST_F(ServerInformation, PlatformRequestSendsTokenKeyAndVersion) {
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.url, "https://b.example/api/service/media/server/info");
    EXPECT_EQ(sent.Param("accessToken"), "access-token");
    EXPECT_EQ(sent.Param("appKey"), "app-id");
    EXPECT_EQ(sent.Param("version"), "2.0");
}

TEST_F(ServerInformation, RecordComesWithTheTimeThatTheRequestTook) {
    clock.SetSteadyStep(9'000'000);
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(servers.stun1Port, 1);
    ASSERT_EQ(servers.vtmBackups.size(), 2U);
    EXPECT_EQ(servers.iRequestCost, 9);
}

// ---- The synchronous form

TEST_F(ServerInformation, ValidCopyIsServedWithoutARequestAndWithoutACost) {
    clock.SetSteadyStep(9'000'000);
    Cache();
    servers.iRequestCost = 77;
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(servers.vtmBackups.size(), 2U);
    EXPECT_EQ(servers.iRequestCost, 0);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ServerInformation, CopyIsServedForAnyTokenAlsoWithoutACredential) {
    Cache();
    core.setAccessToken("");
    EXPECT_EQ(core.getServerInfo("another", servers, false), 0);
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(ThreadLastError(), 0);
}

TEST_F(ServerInformation, CopyIsNotAgedWhenItIsRead) {
    Cache();
    clock.AdvanceSeconds(10'000'000);
    EXPECT_TRUE(IsCached());
    EXPECT_FALSE(lines.Contains("Cache timeout"));
}

TEST_F(ServerInformation, RecordFromTheConsumerServerIsCachedToo) {
    core.setPermissionMode(2);
    transport.Respond(kConsumerServers);
    EXPECT_EQ(core.getServerInfo("shared-token", servers, false), 0);
    EXPECT_EQ(servers.stun1Addr, "consumer");
    EXPECT_TRUE(IsCached());
}

TEST_F(ServerInformation, RefillReplacesTheWholeRecord) {
    Cache();
    core.ClearAllCache();
    transport.Respond(Servers("second"));
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(servers.stun1Addr, "second");
    EXPECT_TRUE(servers.vtmBackups.empty());
}

// ---- Failures

TEST_F(ServerInformation, FailureTouchesOnlyTheCostAndIsNotCached) {
    const struct {
        int curl;
        const char* body;
        int result;
    } rows[] = {
        {7, "", 100007},
        {0, "", 300001},
        {0, "<html>", 300001},
        {0, "{}", 300002},
        {0, R"({"resultCode":"20007","serverResp":{"stun1Addr":"refused"}})", 320007},
        {0, R"({"resultCode":"-1"})", 300002},
    };
    clock.SetSteadyStep(4'000'000);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        servers.stun1Addr = "mine";
        servers.iRequestCost = 0;
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Fetch(), row.result);
        EXPECT_EQ(servers.stun1Addr, "mine");
        EXPECT_EQ(servers.iRequestCost, 4);
        EXPECT_FALSE(IsCached());
    }
}

TEST_F(ServerInformation, FailureInvalidatesACopyThatAnotherFetchHasJustStored) {
    transport.Make([&](const SentRequest&) {
        Cache();
        EXPECT_TRUE(IsCached());
        return ScriptedResponse{7, ""};
    });
    EXPECT_EQ(Fetch(), 100007);
    EXPECT_FALSE(IsCached());
}

TEST_F(ServerInformation, RefusedConsumerResponseInvalidatesToo) {
    core.setPermissionMode(2);
    transport.Make([&](const SentRequest&) {
        Cache();
        return ScriptedResponse{0, R"({"meta":{"code":500}})"};
    });
    EXPECT_EQ(core.getServerInfo("shared-token", servers, false), 300500);
    EXPECT_FALSE(IsCached());
}

TEST_F(ServerInformation, RepeatIsServedWhatAnotherFetchHasStoredMeanwhile) {
    transport.Respond(kExpired);
    transport.Make([&](const SentRequest&) {
        Cache();
        return ScriptedResponse{0, RefreshResponse()};
    });
    clock.SetSteadyStep(4'000'000);
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Count(), 3U) << "expired, refresh, the other fetch";
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(servers.iRequestCost, 0);
}

// ---- The asynchronous form

TEST_F(ServerInformation, HitLeavesTheFutureUntouched) {
    Cache();
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_FALSE(future.valid());
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(servers.iRequestCost, 0);
    ExpectNoLine("futureServerInfo async");
    std::promise<int32_t> own;
    future = own.get_future();
    EXPECT_EQ(FetchInBackground(), 0);
    own.set_value(1234);
    EXPECT_EQ(future.get(), 1234);
}

TEST_F(ServerInformation, MissReturnsZeroAndTheRecordIsCompleteWhenTheFutureIsReady) {
    transport.Respond(kPlatformServers);
    EXPECT_EQ(FetchInBackground(), 0);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(servers.vtmBackups.size(), 2U);
    EXPECT_TRUE(IsCached());
    const LogLine line = OnlyLine("futureServerInfo async");
    EXPECT_EQ(line.Word(), "ERROR");
    EXPECT_EQ(line.level, 5U);
    EXPECT_EQ(line.Tag(), "CVantixDataCenter::getServerInfo::<lambda()>");
}

TEST_F(ServerInformation, FailureComesThroughTheFutureAndInvalidates) {
    transport.Make([&](const SentRequest&) {
        Cache();
        return ScriptedResponse{28, ""};
    });
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(future.get(), 100028);
    EXPECT_FALSE(IsCached());
}

TEST_F(ServerInformation, TaskRepeatsThroughTheSynchronousForm) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kPlatformServers);
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(Token(2), "new-token");
    EXPECT_EQ(lines.Count("futureServerInfo async"), 1U) << "no second task";
    EXPECT_TRUE(IsCached());
}

TEST_F(ServerInformation, TaskHasItsOwnCopyOfTheToken) {
    std::promise<void> release;
    core.setPermissionMode(2);
    {
        std::string token = "shared-token";
        transport.Make([&](const SentRequest&) {
            release.get_future().wait();
            return ScriptedResponse{0, kSessionGone};
        });
        transport.Respond(SessionResponse());
        transport.Respond(kConsumerServers);
        EXPECT_EQ(core.getServerInfo(token, servers, future, false), 0);
        token.assign(token.size(), '!');
    }
    release.set_value();
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(Address(2), "https://c.example/v3/configurations/system/info") << "the repeat knows the token too";
}

TEST_F(ServerInformation, SecondTaskIntoTheSameFutureWaitsForTheFirst) {
    std::promise<void> started;
    std::promise<void> release;
    transport.Make([&](const SentRequest&) {
        started.set_value();
        release.get_future().wait();
        return ScriptedResponse{0, R"({"resultCode":"200","serverResp":{"stun1Addr":"first"}})"};
    });
    transport.Make([&](const SentRequest&) {
        release.set_value();  // only the second lets the first end
        return ScriptedResponse{0, kPlatformServers};
    });
    ServerInfo first;
    EXPECT_EQ(core.getServerInfo("own-token", first, future, false), 0);
    started.get_future().wait();
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(first.stun1Addr, "first") << "the first task has ended";
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(servers.stun1Addr, "platform");
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(ServerInformation, WithoutThreadsTheFutureYieldsMinusOne) {
    {
        const NoThreads noThreads;
        EXPECT_EQ(FetchInBackground(), 0);
    }
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), -1);
    EXPECT_EQ(transport.Count(), 0U);
}

// ---- The end of validity

TEST_F(ServerInformation, ExpiringKeepsACopyOf120SecondsAndEndsOneOf121) {
    for (const auto& [age, cached] : {std::pair(0, true), {119, true}, {120, true}, {121, false}}) {
        core.ClearAllCache();
        Cache();
        clock.AdvanceSeconds(age);
        core.expireServerInfo();
        EXPECT_EQ(IsCached(), cached) << age;
    }
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Fetch(), 0);
    EXPECT_TRUE(IsCached()) << "fetched again";
}

TEST_F(ServerInformation, ExpiringIsSilentAndBeforeAnyFetchDoesNothing) {
    core.expireServerInfo();
    EXPECT_TRUE(lines.Lines().empty());
    Cache();
    clock.AdvanceSeconds(121);
    core.expireServerInfo();
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ServerInformation, ExpiringConcernsNoOtherCache) {
    P2PUserInfo user;
    P2PDevInfo device;
    transport.Respond(kPlatformUser);
    EXPECT_EQ(core.getP2PUserInfo("own-token", user, false), 0);
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(core.getP2PDevInfo(device, "own-token", "OWN", false), 0);
    clock.AdvanceSeconds(1000);
    core.expireServerInfo();
    EXPECT_EQ(core.getP2PUserInfo("own-token", user, false), 0);
    EXPECT_EQ(core.getP2PDevInfo(device, "own-token", "OWN", false), 0);
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(ServerInformation, FetchMakesTheAgeCountAnew) {
    Cache();
    clock.AdvanceSeconds(121);
    core.ClearAllCache();
    Cache();
    core.expireServerInfo();
    EXPECT_TRUE(IsCached());
}

}  // namespace
}  // namespace vantix::test
