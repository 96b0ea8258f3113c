// The stream token that is fetched ahead of time: what fills it, what is too long for it, and its one use.

#include <atomic>
#include <thread>

#include "core/streams/FirstStreamToken.h"
#include "tvllog/tvllog.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

constexpr char kFast[] = "CVantixDataCenter::GetStreamTokenFast";
constexpr char kFrom[] = "CVantixDataCenter::GetStreamTokenFromQueue";

class FirstStreamTokenTest : public FetchTest {
protected:
    int Take(const std::string& accessToken = "access-token") {
        return core.GetStreamTokenFromQueue(accessToken, buffer);
    }
    void Prefetch(const std::string& response = kTokenBatch) {
        transport.Respond(response);
        EXPECT_EQ(core.GetStreamTokenFast(), 0);
    }
    /// A response of exactly this many characters.
    static std::string BodyOf(size_t length) {
        const std::string empty = R"({"resultCode":"200","x":""})";
        return R"({"resultCode":"200","x":")" + std::string(length - empty.size(), 'x') + R"("})";
    }
    void ExpectNothingPrefetched() {
        EXPECT_EQ(Take(), -1);
        EXPECT_STREQ(buffer, "untouched");
    }

    char buffer[size_t{4096} + 1] = "untouched";
};

// ---- Filling it

TEST_F(FirstStreamTokenTest, SmallPermissionModeStops) {
    core.setPermissionMode(1);
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "Small permissions do not need to use the following logic."));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(FirstStreamTokenTest, B2CModeStops) {
    core.setPermissionMode(2);
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "4200 B2c do not need to use the following logic."));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(FirstStreamTokenTest, TokenThatIsThereStops) {
    Prefetch();
    lines.Clear();
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "m_strFirstToken is not NULL"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(transport.Count(), 1U);
    core.setAccessToken("");
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    ExpectNoLine("getAccessToken is NULL");
}

TEST_F(FirstStreamTokenTest, EmptyAccessTokenStops) {
    core.setAccessToken("");
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "getAccessToken is NULL"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(FirstStreamTokenTest, RequestIsForTenTokens) {
    Prefetch();
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].url, "https://b.example/api/user/token");
    EXPECT_EQ(transport.Sent()[0].Param("count"), "10");
    EXPECT_EQ(Token(0), "access-token");
}

TEST_F(FirstStreamTokenTest, FailedRequestStops) {
    for (const auto& [curl, body] :
         {std::pair(7, std::string()), {0, CodeResponse("20007")}, {0, "no json"}, {0, "{}"}}) {
        lines.Clear();
        transport.Make([curl = curl, body = body](const SentRequest&) { return ScriptedResponse{curl, body}; });
        EXPECT_EQ(core.GetStreamTokenFast(), 0);
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "getStreamToken failed"));
        ExpectNothingPrefetched();
    }
}

TEST_F(FirstStreamTokenTest, TextualResultCodeThatIsNoSuccessOfTheAuthenticationStops) {
    transport.Respond(R"({"resultCode":"0"})");  // a success of the envelope, but not of the mapping
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "getStreamToken resultCode Error"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "ConvertVerifyErrorCode",
                                       "Authentication server response: OpenAPIRet:0, TokenError:-1"));
    ExpectNothingPrefetched();
}

CVantixDataCenter* g_lineSetsIn = nullptr;
std::vector<std::string> g_linesSince;

/// A host whose log takes another account's token as soon as a line says that one is renewed.
void SetFromALine(unsigned /*level*/, const char* /*module*/, const char* text) {
    const std::string line = text;
    g_linesSince.push_back(line.substr(line.find(">,") + 2));
    if (line.find("Set TokenExpireTime:") != std::string::npos) {
        g_lineSetsIn->setPermissionMode(2);
        g_lineSetsIn->setAccessToken("another-token");
    }
}

TEST_F(FirstStreamTokenTest, TextThatIsNoJsonStops) {
    // The consumer servers' text is handed on unread; the host goes over to them while the token is renewed.
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse("shared-token"));
    g_lineSetsIn = &core;
    g_linesSince.clear();
    TVLLOG_SetCallback(SetFromALine);
    Prefetch("no JSON");
    TVLLOG_SetCallback(nullptr);
    EXPECT_EQ(transport.Sent().back().url.substr(0, 17), "https://c.example");
    EXPECT_EQ(g_linesSince.back(), "getStreamToken failed\n");
    core.setPermissionMode(0);
    EXPECT_EQ(Take("shared-token"), -1);
    EXPECT_STREQ(buffer, "untouched");
}

TEST_F(FirstStreamTokenTest, ResultCodeThatIsNoTextIsNotMapped) {
    for (const char* response :
         {R"({"code":"200"})", R"({"code":"0"})", R"({"resultCode":0,"code":"200"})", R"({"result":{"code":200}})"}) {
        SCOPED_TRACE(response);
        lines.Clear();
        Prefetch(response);
        ExpectNoLine("Authentication server response");
        EXPECT_EQ(Take(), 0);
        EXPECT_STREQ(buffer, response);
    }
}

TEST_F(FirstStreamTokenTest, LongestTextHas4096Characters) {
    for (const size_t length : {100U, 4095U, 4096U}) {
        const std::string response = BodyOf(length);
        ASSERT_EQ(response.size(), length);
        Prefetch(response);
        EXPECT_EQ(Take(), 0) << length;
        EXPECT_EQ(std::string(buffer), response);
    }
}

TEST_F(FirstStreamTokenTest, LongerTextIsNotKept) {
    for (const size_t length : {4097U, 5000U, 20000U}) {
        lines.Clear();
        Prefetch(BodyOf(length));
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast,
                                           "strTokens length is over limited,length= " + std::to_string(length) + " "));
        ExpectNothingPrefetched();
    }
}

TEST_F(FirstStreamTokenTest, ExpiredTokenIsRenewedOnceAndTheNewOneIsTheOwner) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    Prefetch();
    ASSERT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Token(2), "new-token");
    EXPECT_EQ(transport.Sent()[2].Param("count"), "10");
    EXPECT_EQ(Take("access-token"), -1) << "it was not fetched for the expired one";
    EXPECT_EQ(Take("new-token"), 0);
    EXPECT_STREQ(buffer, kTokenBatch);
}

TEST_F(FirstStreamTokenTest, ExpiredTwiceStops) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    Prefetch(kExpired);
    EXPECT_EQ(transport.Count(), 3U);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFast, "getStreamToken failed"));
    EXPECT_EQ(Take("new-token"), -1);
}

TEST_F(FirstStreamTokenTest, AccessTokenThatTheHostSetsMeanwhileIsNotTheOwner) {
    transport.Make([&](const SentRequest&) {
        core.setAccessToken("set-meanwhile");
        return ScriptedResponse{0, kTokenBatch};
    });
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_EQ(Take("set-meanwhile"), -1);
    EXPECT_EQ(Take("access-token"), 0);
}

// ---- Its one use

TEST_F(FirstStreamTokenTest, TokenIsServedOnceToItsOwner) {
    Prefetch();
    lines.Clear();
    EXPECT_EQ(Take(), 0);
    EXPECT_STREQ(buffer, kTokenBatch);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFrom, "GetStreamTokenFromQueue SUC"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    lines.Clear();
    EXPECT_EQ(Take(), -1);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kFrom, "GetStreamTokenFromQueue failed"));
    EXPECT_EQ(lines.Lines().size(), 1U);
}

TEST_F(FirstStreamTokenTest, OnlyTheTextAndItsZeroAreWritten) {
    std::fill(std::begin(buffer), std::end(buffer), '#');
    Prefetch();
    EXPECT_EQ(Take(), 0);
    const size_t length = std::string(kTokenBatch).size();
    EXPECT_EQ(buffer[length], '\0');
    EXPECT_EQ(buffer[length + 1], '#');
}

TEST_F(FirstStreamTokenTest, NobodyElseIsServedAndNothingIsLogged) {
    EXPECT_EQ(Take(), -1) << "no owner yet";
    EXPECT_EQ(Take(""), -1) << "an empty owner is none";
    EXPECT_TRUE(lines.Lines().empty());
    Prefetch();
    lines.Clear();
    for (const char* other : {"", "access-toke", "access-token2", "ACCESS-TOKEN"}) {
        EXPECT_EQ(Take(other), -1) << other;
    }
    EXPECT_STREQ(buffer, "untouched");
    EXPECT_TRUE(lines.Lines().empty());
    EXPECT_EQ(Take(), 0);
}

TEST_F(FirstStreamTokenTest, TokenIsServedFor18000Seconds) {
    for (const auto& [age, result] : {std::pair(0, 0), {17'999, 0}, {18'000, 0}, {18'001, -1}, {100'000, -1}}) {
        SCOPED_TRACE(age);
        Prefetch();
        clock.AdvanceSeconds(age);
        lines.Clear();
        EXPECT_EQ(Take(), result);
        EXPECT_EQ(lines.Count("GetStreamTokenFromQueue failed"), result == 0 ? 0U : 1U);
        if (result != 0) {
            clock.AdvanceSeconds(-age);
            EXPECT_EQ(Take(), 0) << "it was refused and not dropped";
        }
    }
}

TEST_F(FirstStreamTokenTest, StaleTokenStillStopsThePrefetch) {
    Prefetch();
    clock.AdvanceSeconds(18'001);
    EXPECT_EQ(core.GetStreamTokenFast(), 0);
    EXPECT_EQ(lines.Count("m_strFirstToken is not NULL"), 1U);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(FirstStreamTokenTest, AgeIsADifferenceOf32BitsThatWraps) {
    const struct {
        int64_t fetched;
        int64_t taken;
        int result;
    } rows[] = {
        {INT32_MAX, int64_t{INT32_MAX} + 18'000, 0},
        {INT32_MAX, int64_t{INT32_MAX} + 18'001, -1},
        {0xFFFF'FFFFLL, 0x1'0000'0000LL + 17'999, 0},
        {0xFFFF'FFFFLL, 0x1'0000'0000LL + 18'000, -1},
        {1'800'000'000, 1'700'000'000, 0},  // a clock that was put back
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.taken);
        clock.SetWall(row.fetched);
        Prefetch();
        clock.SetWall(row.taken);
        EXPECT_EQ(Take(), row.result);
        clock.SetWall(row.fetched);
        Take();
    }
}

TEST_F(FirstStreamTokenTest, ServedTokenMayBeFetchedAgain) {
    Prefetch();
    EXPECT_EQ(Take(), 0);
    Prefetch(R"({"code":"200","again":1})");
    EXPECT_EQ(transport.Count(), 2U);
    EXPECT_EQ(Take(), 0);
    EXPECT_STREQ(buffer, R"({"code":"200","again":1})");
}

TEST_F(FirstStreamTokenTest, ItIsNotOfTheQueueAndNoCache) {
    Prefetch();
    std::string one;
    transport.Respond(R"({"resultCode":"200","tokenArray":["q1","q2"]})");
    EXPECT_EQ(core.getOneStreamToken("access-token", one), 0);
    EXPECT_EQ(one, "q1");
    core.ClearAllCache();
    EXPECT_EQ(Take(), 0);
    EXPECT_STREQ(buffer, kTokenBatch);
}

TEST_F(FirstStreamTokenTest, WithoutABufferNothingIsServed) {
    Prefetch();
    EXPECT_EQ(core.GetStreamTokenFromQueue("access-token", nullptr), -1);
    EXPECT_EQ(Take(), 0) << "it is still there";
}

TEST_F(FirstStreamTokenTest, OfManyCallersOneIsServed) {
    iLogLevel = 6;
    Prefetch();
    std::atomic<int> served{0};
    std::vector<std::thread> threads;
    threads.reserve(16);
    for (int i = 0; i < 16; ++i) {
        threads.emplace_back([&] {
            char own[size_t{4096} + 1] = {};
            if (core.GetStreamTokenFromQueue("access-token", own) == 0) {
                ++served;
                EXPECT_STREQ(own, kTokenBatch);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(served, 1);
}

}  // namespace
}  // namespace vantix::test
