// The queue of stream tokens: whose it is, when it is filled and when it is emptied.

#include "core/streams/StreamTokens.h"

#include <set>
#include <thread>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

/// A batch of tokens "<name>1", "<name>2", …
std::string Batch(const std::string& name, int count) {
    nlohmann::json response;
    response["resultCode"] = "200";
    response["tokenArray"] = nlohmann::json::array();
    for (int i = 1; i <= count; ++i) {
        response["tokenArray"].push_back(name + std::to_string(i));
    }
    return response.dump();
}

constexpr char kTag[] = "CVantixDataCenter::getOneStreamToken";

class StreamTokens : public FetchTest {
protected:
    int Take(const std::string& accessToken = "access-token") { return core.getOneStreamToken(accessToken, token); }

    std::string token = "what was there";
};

TEST_F(StreamTokens, SmallPermissionModeDoesNothing) {
    transport.Respond(Batch("t", 3));
    EXPECT_EQ(Take(), 0);
    core.setPermissionMode(1);
    token = "what was there";
    lines.Clear();
    EXPECT_EQ(Take(), -1) << "though there are two in the queue";
    EXPECT_EQ(token, "what was there");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "Small permissions do not need to use the following logic."));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(transport.Count(), 1U);
    core.setPermissionMode(0);
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "t2") << "the queue is as it was";
}

TEST_F(StreamTokens, EmptyQueueIsFilledByABatchOfTwenty) {
    transport.Respond(Batch("t", 20));
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "t1");
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.url, "https://b.example/api/user/token");
    EXPECT_EQ(sent.Param("accessToken"), "access-token");
    EXPECT_EQ(sent.Param("count"), "20");
    EXPECT_EQ(sent.Param("appKey"), "app-id");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "Returning B domain"));
}

TEST_F(StreamTokens, RestOfTheBatchIsServedInOrderWithoutARequest) {
    transport.Respond(Batch("t", 20));
    transport.Respond(Batch("second", 20));
    EXPECT_EQ(Take(), 0);
    lines.Clear();
    for (int i = 2; i <= 20; ++i) {
        EXPECT_EQ(Take(), 0);
        EXPECT_EQ(token, "t" + std::to_string(i));
    }
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_TRUE(lines.Lines().empty());
    EXPECT_EQ(Take(), 0) << "it has run dry";
    EXPECT_EQ(token, "second1");
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(StreamTokens, BatchOfAnySizeIsTaken) {
    transport.Respond(Batch("one", 1));
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "one1");
    transport.Respond(Batch("many", 25));
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "many1");
    for (int i = 2; i <= 25; ++i) {
        EXPECT_EQ(Take(), 0);
    }
    EXPECT_EQ(token, "many25");
    EXPECT_EQ(transport.Count(), 2U);
}

// ---- Whose the queue is

TEST_F(StreamTokens, AnotherAccessTokenEmptiesTheQueueAndBecomesTheCores) {
    transport.Respond(Batch("old", 20));
    EXPECT_EQ(Take(), 0);
    transport.Respond(Batch("new", 20));
    EXPECT_EQ(Take("other-token"), 0);
    EXPECT_EQ(token, "new1");
    EXPECT_EQ(Token(1), "other-token");
    EXPECT_EQ(transport.Sent()[1].Param("count"), "20");
    EXPECT_EQ(core.getAccessToken(), "other-token");
    EXPECT_EQ(Take("other-token"), 0);
    EXPECT_EQ(token, "new2") << "the queue belongs to it now";
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(StreamTokens, AnotherAccessTokenEmptiesTheQueueAlsoWhenItsBatchFails) {
    transport.Respond(Batch("old", 20));
    EXPECT_EQ(Take(), 0);
    transport.Fail(7);
    EXPECT_EQ(Take("other-token"), 100007);
    EXPECT_EQ(core.getAccessToken(), "access-token") << "only a batch makes it the core's";
    transport.Respond(Batch("new", 20));
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "new1");
    EXPECT_EQ(transport.Count(), 3U);
}

TEST_F(StreamTokens, QueueBelongsToWhateverAccessTokenIsCurrent) {
    transport.Respond(Batch("t", 20));
    EXPECT_EQ(Take(), 0);
    core.setAccessToken("set-by-the-host");
    EXPECT_EQ(Take("set-by-the-host"), 0);
    EXPECT_EQ(token, "t2");
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(StreamTokens, ClearingAllCachesKeepsTheQueue) {
    transport.Respond(Batch("t", 20));
    EXPECT_EQ(Take(), 0);
    core.ClearAllCache();
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "t2");
}

TEST_F(StreamTokens, TokensAreNotAged) {
    transport.Respond(Batch("t", 20));
    EXPECT_EQ(Take(), 0);
    clock.AdvanceSeconds(1'000'000);
    EXPECT_EQ(Take(), 0);
    EXPECT_EQ(token, "t2");
}

// ---- The domain

TEST_F(StreamTokens, SharedTokenHasTheCDomainInTheB2CMode) {
    core.setPermissionMode(2);
    core.setSharedAccessToken("shared-by-token");
    for (const char* shared : {"shared-token", "shared-by-token"}) {
        core.setAccessToken("access-token");  // the last batch made its token the core's own, which is never shared
        transport.Respond(Batch("t", 20));
        lines.Clear();
        EXPECT_EQ(Take(shared), 0);
        EXPECT_EQ(Address(transport.Count() - 1), "https://c.example/api/user/token");
        EXPECT_EQ(Token(transport.Count() - 1), shared);
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "Returning C domain for shared device"));
    }
}

TEST_F(StreamTokens, EveryOtherTokenAndModeHasTheBDomain) {
    for (const auto& [mode, asked] : {std::pair(0, "shared-token"), {3, "shared-token"}, {2, "own-token"}}) {
        core.setPermissionMode(mode);
        core.setAccessToken("access-token");
        transport.Respond(Batch("t", 20));
        lines.Clear();
        EXPECT_EQ(Take(asked), 0);
        EXPECT_EQ(Address(transport.Count() - 1), "https://b.example/api/user/token") << mode;
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "Returning B domain"));
    }
}

// ---- Failures

TEST_F(StreamTokens, FailedBatchIsLoggedAndItsCodeReturned) {
    const struct {
        int curl;
        const char* body;
        int logged;
        int result;
    } rows[] = {
        {7, "", 100007, 100007},
        {0, "", 300001, 300001},
        {0, R"({"resultCode":"200"})", 300002, 300002},
        {0, R"({"resultCode":"200","tokenArray":"t"})", 300002, 300002},
        {0, R"({"resultCode":"20007","tokenArray":["refused"]})", 320007, 320007},
        {0, kExpired, 310002, 310002},
        {0, R"({"resultCode":"200","tokenArray":[]})", 0, -1},
        {0, R"({"resultCode":"200","tokenArray":[1,{}]})", 0, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        lines.Clear();
        const size_t before = transport.Count();
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Take(), row.result);
        EXPECT_EQ(token, "what was there");
        EXPECT_EQ(transport.Count(), before + 1) << "no refresh, no repeat";
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kTag,
                                           "GetStreamTokensFromPlatform failed, iRet:" + std::to_string(row.logged)));
        EXPECT_EQ(core.getAccessToken(), "access-token");
    }
}

TEST_F(StreamTokens, EmptyAccessTokenFailsBeforeAnyRequest) {
    for (const int mode : {0, 2, 3}) {
        core.setPermissionMode(mode);
        SetThreadLastError(0);
        lines.Clear();
        EXPECT_EQ(Take(""), -1) << mode;
        EXPECT_EQ(ThreadLastError(), -1);
        ExpectOneCredentialError(kTag);
    }
    EXPECT_EQ(transport.Count(), 0U);
    EXPECT_EQ(core.getAccessToken(), "access-token") << "never replaced by nothing";
}

// ---- The batch as the server sends it

class StreamTokenResponse : public FetchTest {};

TEST_F(StreamTokenResponse, WholeResponseIsHandedOutAndTheCountSent) {
    std::string response;
    transport.Respond(kTokenBatch);
    EXPECT_EQ(core.getStreamTokens("own-token", 7, response, false), 0);
    EXPECT_EQ(response, kTokenBatch);
    EXPECT_EQ(transport.Sent()[0].Param("count"), "7");
    EXPECT_EQ(Token(0), "own-token");
}

TEST_F(StreamTokenResponse, FailureLeavesTheOutputAlone) {
    std::string response = "what was there";
    transport.Respond(CodeResponse("20007"));
    EXPECT_EQ(core.getStreamTokens("own-token", 7, response, false), 320007);
    EXPECT_EQ(response, "what was there");
}

TEST_F(StreamTokenResponse, ConsumerServersResponseIsNotLookedAt) {
    core.setPermissionMode(2);
    std::string response;
    for (const char* body : {"no json", kSessionGone, ""}) {
        transport.Respond(body);
        EXPECT_EQ(core.getStreamTokens("shared-token", 7, response, false), 0);
        EXPECT_EQ(response, body);
        EXPECT_EQ(transport.Sent().back().Param("sessionId"), "old-session");
        EXPECT_EQ(Session(transport.Count() - 1), "old-session");
    }
    ExpectNoLine("start RefreshSession");
}

// ---- Many at once

TEST_F(StreamTokens, NoTokenOfABatchIsServedTwice) {
    iLogLevel = 6;
    std::atomic<int> batches{0};
    transport.Always([&](const SentRequest&) {
        return ScriptedResponse{0, Batch("batch" + std::to_string(++batches) + "-", 20)};
    });
    std::vector<std::vector<std::string>> taken(8);
    std::vector<std::thread> threads;
    threads.reserve(taken.size());
    for (auto& own : taken) {
        threads.emplace_back([&] {
            for (int k = 0; k < 50; ++k) {
                std::string one;
                EXPECT_EQ(core.getOneStreamToken("access-token", one), 0);
                own.push_back(one);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::set<std::string> all;
    for (const auto& own : taken) {
        all.insert(own.begin(), own.end());
    }
    EXPECT_EQ(all.size(), 8U * 50U);
    EXPECT_FALSE(all.contains(""));
    EXPECT_GE(batches, 20);
}

}  // namespace
}  // namespace vantix::test
