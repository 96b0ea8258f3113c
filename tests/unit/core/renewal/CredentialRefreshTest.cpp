// Renewing the access token and the consumer servers' session, step by step.

#include <atomic>
#include <thread>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

// ---- The access token

class TokenRefresh : public FetchTest {
protected:
    int Refresh() { return core.RefreshToken(token); }

    std::string token = "what was there";
};

constexpr char kTokenTag[] = "CVantixDataCenter::RefreshToken";

TEST_F(TokenRefresh, SmallPermissionModeStopsBeforeEverything) {
    core.setPermissionMode(1);
    EXPECT_EQ(Refresh(), -1);
    EXPECT_EQ(token, "");
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kTokenTag, "Small permissions do not need to use the following logic"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(transport.Count(), 0U);
    EXPECT_EQ(core.getAccessToken(), "access-token");
}

TEST_F(TokenRefresh, EachOfFourParametersIsRequired) {
    const struct {
        void (CVantixDataCenter::*set)(const std::string&);
        const char* line;
        const char* value;
    } rows[] = {
        {&CVantixDataCenter::setAuthAddr, "AuthAddr:, OpenID:open-id, RefreshToken:refresh-token, appID:app-id",
         "https://auth.example"},
        {&CVantixDataCenter::setOpenID,
         "AuthAddr:https://auth.example, OpenID:, RefreshToken:refresh-token, appID:app-id", "open-id"},
        {&CVantixDataCenter::setRefreshToken,
         "AuthAddr:https://auth.example, OpenID:open-id, RefreshToken:, appID:app-id", "refresh-token"},
        {&CVantixDataCenter::setAppId,
         "AuthAddr:https://auth.example, OpenID:open-id, RefreshToken:refresh-token, appID:", "app-id"},
    };
    for (const auto& row : rows) {
        (core.*row.set)("");
        lines.Clear();
        token = "what was there";
        EXPECT_EQ(Refresh(), -1);
        EXPECT_EQ(token, "");
        EXPECT_THAT(lines.Lines(),
                    HasLine(3, "INFO ", kTokenTag, "Refresh Token, params invalid, " + std::string(row.line)));
        EXPECT_EQ(lines.Lines().size(), 1U);
        (core.*row.set)(row.value);
    }
    EXPECT_EQ(transport.Count(), 0U);
    transport.Respond(RefreshResponse());
    EXPECT_EQ(Refresh(), 0) << "with all four again";
}

TEST_F(TokenRefresh, RequestGoesToTheAuthorisationServiceAndSendsTheRefreshCredentials) {
    transport.Respond(RefreshResponse());
    EXPECT_EQ(Refresh(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.url, "https://auth.example/oauth/token/refreshToken");
    EXPECT_EQ(sent.Param("refresh_token"), "refresh-token");
    EXPECT_EQ(sent.Param("grant_type"), "refresh_token");
    EXPECT_EQ(sent.Param("client_id"), "app-id");
    EXPECT_EQ(sent.Param("open_id"), "open-id");
    EXPECT_EQ(sent.Param("scope"), "the-scope");
    EXPECT_EQ(sent.Param("state"), "the-state");
    EXPECT_EQ(sent.Param("accessToken"), "<none>");
}

TEST_F(TokenRefresh, ScopeAndStateGoAsTheyAreAlsoWhenEmpty) {
    core.setScope("");
    core.setState("");
    transport.Respond(RefreshResponse());
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(transport.Sent()[0].Param("scope"), "");
    EXPECT_EQ(transport.Sent()[0].Param("state"), "");
}

TEST_F(TokenRefresh, NeedsNoAccessToken) {
    core.setAccessToken("");
    transport.Respond(RefreshResponse());
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(core.getAccessToken(), "new-token");
}

TEST_F(TokenRefresh, SuccessIsStoredReturnedAndLoggedByFiveCharacters) {
    core.setAccessToken("OLDOLsecret");
    transport.Respond(RefreshResponse("NEWNEsecret"));
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(token, "NEWNEsecret");
    EXPECT_EQ(core.getAccessToken(), "NEWNEsecret");
    EXPECT_EQ(core.getTokenExpireTime(), "7200");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kTokenTag,
                        "Refresh Token Success, OldAccessToken:OLDOL***, NewAccessToken:NEWNE***, ExpireTime:7200"));
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setTokenExpireTime", "Set TokenExpireTime:7200"));
    EXPECT_EQ(lines.Messages().back(), "Set TokenExpireTime:7200") << "the expiry is stored last";
    ExpectNoLine("OLDOLsecret");
}

TEST_F(TokenRefresh, ShortTokensAreLoggedWhole) {
    core.setAccessToken("abc");
    transport.Respond(RefreshResponse("x"));
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(lines.Count("Refresh Token Success, OldAccessToken:abc***, NewAccessToken:x***, ExpireTime:7200"), 1U);
}

TEST_F(TokenRefresh, TokenOfTheNextRefreshIsNotTakenFromTheResponse) {
    transport.Respond(RefreshResponse());
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(core.getRefreshToken(), "refresh-token");
    EXPECT_EQ(core.getOpenID(), "open-id");
}

TEST_F(TokenRefresh, WorksInEveryModeButTheSmallOne) {
    for (const int mode : {0, 2, 3, -1}) {
        core.setPermissionMode(mode);
        transport.Respond(RefreshResponse());
        EXPECT_EQ(Refresh(), 0) << mode;
    }
}

TEST_F(TokenRefresh, FailureLeavesEveryCredentialAsItWasAndLogsWhatWasSent) {
    auto without = [](const char* key) {
        auto response = nlohmann::json::parse(RefreshResponse());
        response["result"]["data"].erase(key);
        return response.dump();
    };
    const struct {
        int curl;
        std::string body;
    } rows[] = {
        {7, ""},
        {28, RefreshResponse()},
        {0, ""},
        {0, "<html>gone</html>"},
        {0, "[]"},
        {0, "{}"},
        {0, CodeResponse("10002")},
        {0, CodeResponse("60000")},
        {0, R"({"result":{"code":"200","data":[]}})"},
        {0, without("access_token")},
        {0, without("openId")},
        {0, without("refresh_token")},
        {0, without("expires_in")},
        {0, RefreshResponse("")},
    };
    core.setTokenExpireTime("the old time");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        lines.Clear();
        token = "what was there";
        EXPECT_EQ(Refresh(), -1);
        EXPECT_EQ(token, "");
        EXPECT_THAT(
            lines.Lines(),
            HasLine(5, "ERROR", kTokenTag,
                    "Refresh Token Failed, AuthAddr:https://auth.example, OpenID:open-id, RefreshToken:refresh-token, "
                    "appID:app-id, Scope:the-scope, State:the-state"));
        EXPECT_EQ(core.getAccessToken(), "access-token");
        EXPECT_EQ(core.getTokenExpireTime(), "the old time");
        EXPECT_EQ(core.getRefreshToken(), "refresh-token");
        ExpectNoLine("Refresh Token Success");
    }
}

TEST_F(TokenRefresh, ManyExpiredCallersAllGetAResultAfterAtMostOneRefreshEach) {
    iLogLevel = 6;
    std::atomic<int> refreshes{0};
    std::atomic<int> requests{0};
    transport.Always([&](const SentRequest& request) {
        if (request.url.find("refreshToken") != std::string::npos) {
            return ScriptedResponse{0, RefreshResponse("fresh-" + std::to_string(++refreshes))};
        }
        ++requests;
        const bool isFresh = request.Param("accessToken").rfind("fresh-", 0) == 0;
        return ScriptedResponse{0, isFresh ? kPlatformServers : kExpired};
    });
    constexpr int kCallers = 8;
    std::vector<std::thread> threads;
    threads.reserve(kCallers);
    for (int i = 0; i < kCallers; ++i) {
        threads.emplace_back([&] {
            std::string json;
            EXPECT_EQ(core.getVideoVtmAddr("C1", 1, json, false), 0);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GE(refreshes, 1);
    EXPECT_LE(refreshes, kCallers);
    EXPECT_EQ(requests, kCallers + refreshes) << "one request each, and one more after each refresh";
    EXPECT_EQ(core.getAccessToken().rfind("fresh-", 0), 0U);
}

// ---- The session

class SessionRefresh : public FetchTest {
protected:
    SessionRefresh() { core.setPermissionMode(2); }

    int Refresh(const std::string& refreshSessionId = "") { return core.RefreshSession(refreshSessionId, session); }

    std::string session = "what was there";
};

constexpr char kSessionTag[] = "CVantixDataCenter::RefreshSession";

TEST_F(SessionRefresh, OtherModesStopAfterTheFirstLine) {
    for (const int mode : {0, 1, 3, -1}) {
        core.setPermissionMode(mode);
        lines.Clear();
        session = "what was there";
        EXPECT_EQ(Refresh(), -1) << mode;
        EXPECT_EQ(session, "");
        ASSERT_EQ(lines.Lines().size(), 2U);
        EXPECT_EQ(lines.Messages()[0], "start RefreshSession");
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kSessionTag, "start RefreshSession"));
        EXPECT_THAT(lines.Lines(),
                    HasLine(3, "INFO ", kSessionTag, "Not 4200 B2C Mode, do not need to use the following logic"));
    }
    EXPECT_EQ(transport.Count(), 0U);
    EXPECT_EQ(core.getSessionId(), "old-session");
}

TEST_F(SessionRefresh, DomainIsRequired) {
    CVantixDataCenter bare;
    bare.setPermissionMode(2);
    bare.setSessionId("S");
    EXPECT_EQ(bare.RefreshSession("R", session), -1);
    EXPECT_EQ(session, "");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kSessionTag,
                                       "Refresh Session, params invalid, CDomain:, SessionID:S, RefreshSessionID:R"));
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(SessionRefresh, RefreshSessionIdIsRequired) {
    CVantixDataCenter bare;
    bare.setPermissionMode(2);
    bare.setDomain("", "https://c.example");
    bare.setSessionId("S");
    EXPECT_EQ(bare.RefreshSession("", session), -1);
    EXPECT_EQ(session, "");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kSessionTag,
                        "Refresh Session, params invalid, CDomain:https://c.example, SessionID:S, RefreshSessionID:"));
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(SessionRefresh, SessionItselfIsNotRequired) {
    core.setSessionId("");
    transport.Respond(SessionResponse());
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(core.getSessionId(), "new-session");
}

TEST_F(SessionRefresh, RequestGoesToTheConsumerServerWithBothIds) {
    transport.Respond(SessionResponse());
    EXPECT_EQ(Refresh(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].method, "PUT");
    EXPECT_EQ(Address(0), "https://c.example/v3/apigateway/login");
    EXPECT_EQ(transport.Sent()[0].Param("refreshSessionId"), "refresh-id");
    EXPECT_EQ(Session(0), "old-session");
    EXPECT_EQ(Token(0), "<none>");
}

TEST_F(SessionRefresh, GivenRefreshSessionIdIsStoredFirstInEveryMode) {
    core.setPermissionMode(0);
    EXPECT_EQ(Refresh("brought-in"), -1);
    core.setPermissionMode(2);
    transport.Respond(kSessionGone);
    EXPECT_EQ(Refresh(), -1);
    EXPECT_EQ(transport.Sent()[0].Param("refreshSessionId"), "brought-in");
    transport.Respond(kSessionGone);
    EXPECT_EQ(Refresh("another"), -1);
    EXPECT_EQ(transport.Sent()[1].Param("refreshSessionId"), "another");
}

TEST_F(SessionRefresh, OneTextMayBringInTheIdAndTakeTheSession) {
    session = "brought-in";
    transport.Respond(SessionResponse());
    EXPECT_EQ(core.RefreshSession(session, session), 0);
    EXPECT_EQ(transport.Sent()[0].Param("refreshSessionId"), "brought-in");
    EXPECT_EQ(session, "new-session");
}

TEST_F(SessionRefresh, SuccessIsStoredReturnedAndWordedAsATokens) {
    transport.Respond(SessionResponse("NEWNEsecret"));
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(session, "NEWNEsecret");
    EXPECT_EQ(core.getSessionId(), "NEWNEsecret");
    EXPECT_EQ(lines.Messages().front(), "start RefreshSession");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kSessionTag,
                        "Refresh Token Success,  NewSession:NEWNE***, RefreshSessionID:next-refresh-id"));
    transport.Respond(kSessionGone);
    EXPECT_EQ(Refresh(), -1);
    EXPECT_EQ(transport.Sent()[1].Param("refreshSessionId"), "next-refresh-id") << "both ids were replaced";
    EXPECT_EQ(Session(1), "NEWNEsecret");
}

TEST_F(SessionRefresh, FailureLeavesBothIdsAsTheyWere) {
    auto without = [](const char* key) {
        auto response = nlohmann::json::parse(SessionResponse());
        response["sessionInfo"].erase(key);
        return response.dump();
    };
    const struct {
        int curl;
        std::string body;
    } rows[] = {
        {7, ""},
        {0, ""},
        {0, "<html>gone</html>"},
        {0, kSessionGone},
        {0, R"({"meta":{"code":-1}})"},
        {0, R"({"meta":{"code":200}})"},
        {0, without("sessionId")},
        {0, SessionResponse("")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        lines.Clear();
        session = "what was there";
        EXPECT_EQ(Refresh(), -1);
        EXPECT_EQ(session, "");
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", kSessionTag,
                            "Refresh Session Failed, Domain:https://c.example, OldRefreshSessionID:refresh-id"));
        EXPECT_EQ(core.getSessionId(), "old-session");
        EXPECT_EQ(transport.Sent().back().Param("refreshSessionId"), "refresh-id");
        ExpectNoLine("Refresh Token Success");
    }
}

TEST_F(SessionRefresh, ResponseWithoutARefreshIdKeepsTheOldOne) {
    for (const char* info : {R"({"sessionId":"S1"})", R"({"sessionId":"S1","refreshSessionId":""})"}) {
        transport.Respond(R"({"meta":{"code":200},"sessionInfo":)" + std::string(info) + "}");
        EXPECT_EQ(Refresh(), 0);
        EXPECT_EQ(core.getSessionId(), "S1");
        transport.Respond(SessionResponse());
        EXPECT_EQ(Refresh(), 0);
        EXPECT_EQ(transport.Sent().back().Param("refreshSessionId"), "refresh-id");
        core.RefreshSession("refresh-id", session);
    }
}

}  // namespace
}  // namespace vantix::test
