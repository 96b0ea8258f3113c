// The policy of repeats built alone: operations are scripted, renewals go to scripted transfers.

#include "core/renewal/Renewal.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/LastError.h"
#include "core/renewal/CredentialRefresh.h"
#include "core/settings/Settings.h"
#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "support/ScriptedTransport.h"

namespace vantix::test {
namespace {

constexpr Outcome kTokenExpired{310002, ServerFamily::Platform, false};
constexpr Outcome kTokenExpiredAtConsumer{310002, ServerFamily::Consumer, false};
constexpr Outcome kSessionExpired{300401, ServerFamily::Consumer, false};
constexpr Outcome kBareSessionExpired{401, ServerFamily::Consumer, false};
constexpr Outcome kNoSession{-1, ServerFamily::Consumer, true};
constexpr Outcome kNoToken{-1, ServerFamily::Platform, true};
constexpr Outcome kTransient{349999, ServerFamily::Platform, false};
constexpr Outcome kOtherTransient{350000, ServerFamily::Platform, false};
constexpr Outcome kSuccess{0, ServerFamily::Platform, false};
constexpr Outcome kAtPlatform401{300401, ServerFamily::Platform, false};

class RenewalTest : public testing::Test {
protected:
    RenewalTest() {
        settings.CDomain.Assign("https://c.example");
        settings.AuthAddr.Assign("https://auth.example");
        settings.appID.Assign("app");
        settings.RefreshToken.Assign("refresh");
        settings.OpenID.Assign("open");
        settings.refreshSessionId.Assign("refresh-session");
        settings.setPermissionMode(2);
        transport.Always([](const SentRequest& request) {
            return request.url.find("/oauth/") != std::string::npos
                       ? ScriptedResponse{0, R"({"result":{"code":"200","data":{"access_token":"new-token",
                             "openId":"o","refresh_token":"r","expires_in":7200}}})"}
                       : ScriptedResponse{0, R"({"meta":{"code":200},"sessionInfo":{"sessionId":"new-session"}})"};
        });
        SetThreadLastError(0);
    }
    void TearDown() override { SetThreadLastError(0); }

    /// Runs an operation that comes to these outcomes, one after the other.
    int Run(const std::vector<Outcome>& outcomes, const RepeatRules& rules, bool retried = false) {
        attempts.clear();
        lines.Clear();
        return renewal.Run(site, rules, retried, Subject::OfToken("given"), [&](const Attempt& attempt) {
            attempts.push_back(attempt);
            return attempts.size() <= outcomes.size() ? outcomes[attempts.size() - 1] : kSuccess;
        });
    }
    size_t Renewals(const std::string& path) const {
        size_t count = 0;
        for (const SentRequest& request : transport.Sent()) {
            count += request.url.find(path) != std::string::npos ? 1U : 0U;
        }
        return count;
    }

    CleanSwitches clean;
    LogCapture lines;
    ScriptedTransport transport;
    Settings settings;
    TkTokens tkTokens;
    B2CTokens b2cTokens;
    Routes routes{settings, tkTokens, b2cTokens};
    CredentialRefresh refresh{settings, routes};
    Renewal renewal{refresh};
    const CallSite site = VANTIX_HERE_AS("Operation");
    std::vector<Attempt> attempts;
};

struct Expected {
    const char* name;
    std::vector<Outcome> outcomes;
    RepeatRules rules;
    bool retried = false;
    int result = 0;
    size_t attempts = 1;
    size_t tokenRenewals = 0;
    size_t sessionRenewals = 0;
};

const Expected kCases[] = {
    {.name = "success", .outcomes = {kSuccess}, .rules = {}},
    {.name = "failure", .outcomes = {{320002}}, .rules = {}, .result = 320002},
    {.name = "token expired", .outcomes = {kTokenExpired}, .rules = {}, .attempts = 2, .tokenRenewals = 1},
    {.name = "token expired twice",
     .outcomes = {kTokenExpired, kTokenExpired},
     .rules = {},
     .result = 310002,
     .attempts = 2,
     .tokenRenewals = 1},
    {.name = "token expired, retried", .outcomes = {kTokenExpired}, .rules = {}, .retried = true, .result = 310002},
    {.name = "token expired, no renewal", .outcomes = {kTokenExpired}, .rules = {.renews = false}, .result = 310002},
    {.name = "token code of the consumer servers",
     .outcomes = {kTokenExpiredAtConsumer},
     .rules = {},
     .result = 310002},
    {.name = "token code of the consumer servers that counts",
     .outcomes = {kTokenExpiredAtConsumer},
     .rules = {.tokenCodeFromAnyFamily = true},
     .attempts = 2,
     .tokenRenewals = 1},
    {.name = "session expired", .outcomes = {kSessionExpired}, .rules = {}, .attempts = 2, .sessionRenewals = 1},
    {.name = "bare code of the session",
     .outcomes = {kBareSessionExpired},
     .rules = {},
     .attempts = 2,
     .sessionRenewals = 1},
    {.name = "session expired twice",
     .outcomes = {kSessionExpired, kSessionExpired},
     .rules = {},
     .result = 300401,
     .attempts = 2,
     .sessionRenewals = 1},
    {.name = "session, then token",
     .outcomes = {kSessionExpired, kTokenExpired},
     .rules = {},
     .result = 310002,
     .attempts = 2,
     .sessionRenewals = 1},
    {.name = "401 of the platform", .outcomes = {kAtPlatform401}, .rules = {}, .result = 300401},
    {.name = "no session", .outcomes = {kNoSession}, .rules = {}, .attempts = 2, .sessionRenewals = 1},
    {.name = "no session, retried", .outcomes = {kNoSession}, .rules = {}, .retried = true, .result = -1},
    {.name = "no token", .outcomes = {kNoToken}, .rules = {}, .result = -1},
    {.name = "transient without a rule", .outcomes = {kTransient}, .rules = {}, .result = 349999},
    {.name = "transient once", .outcomes = {kTransient}, .rules = {.transientRepeats = 1}, .attempts = 2},
    {.name = "transient, also when retried",
     .outcomes = {kOtherTransient},
     .rules = {.transientRepeats = 1},
     .retried = true,
     .attempts = 2},
    {.name = "transient too often",
     .outcomes = {kTransient, kOtherTransient, kTransient},
     .rules = {.transientRepeats = 2},
     .result = 349999,
     .attempts = 3},
    {.name = "349998 is not transient", .outcomes = {{349998}}, .rules = {.transientRepeats = 2}, .result = 349998},
    {.name = "350001 is not transient", .outcomes = {{350001}}, .rules = {.transientRepeats = 2}, .result = 350001},
    {.name = "transient anew with the renewed credential",
     .outcomes = {kTransient, kTransient, kTokenExpired, kTransient, kTransient, kTransient},
     .rules = {.transientRepeats = 2},
     .result = 349999,
     .attempts = 6,
     .tokenRenewals = 1},
};

TEST_F(RenewalTest, RepeatsAsTheRulesSay) {
    for (const Expected& row : kCases) {
        SCOPED_TRACE(row.name);
        const size_t tokens = Renewals("/oauth/token/refreshToken");
        const size_t sessions = Renewals("/v3/apigateway/login");
        EXPECT_EQ(Run(row.outcomes, row.rules, row.retried), row.result);
        EXPECT_EQ(attempts.size(), row.attempts);
        EXPECT_EQ(Renewals("/oauth/token/refreshToken") - tokens, row.tokenRenewals);
        EXPECT_EQ(Renewals("/v3/apigateway/login") - sessions, row.sessionRenewals);
    }
}

TEST_F(RenewalTest, AttemptKnowsItsReasonAndTheRenewedToken) {
    Run({kTransient, kTokenExpired}, {.transientRepeats = 1});
    ASSERT_EQ(attempts.size(), 3U);
    EXPECT_EQ(attempts[0].reason, AttemptReason::First);
    EXPECT_EQ(attempts[0].subject.token, "given");
    EXPECT_EQ(attempts[1].reason, AttemptReason::Transient);
    EXPECT_EQ(attempts[1].subject.token, "given");
    EXPECT_EQ(attempts[2].reason, AttemptReason::Renewed);
    EXPECT_EQ(attempts[2].subject.token, "new-token");
}

TEST_F(RenewalTest, RenewedSessionLeavesTheTokenAsItWas) {
    Run({kSessionExpired}, {});
    ASSERT_EQ(attempts.size(), 2U);
    EXPECT_EQ(attempts[1].subject.token, "given");
    EXPECT_EQ(settings.sessionId.Copy(), "new-session");
}

TEST_F(RenewalTest, RenewalThatYieldsNothingLeavesTheFirstResult) {
    settings.OpenID.Assign("");
    EXPECT_EQ(Run({kTokenExpired}, {}), 310002);
    EXPECT_EQ(attempts.size(), 1U);
    settings.refreshSessionId.Assign("");
    EXPECT_EQ(Run({kSessionExpired}, {}), 300401);
    EXPECT_EQ(attempts.size(), 1U);
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(RenewalTest, MissingCredentialIsRefusedInTheNameOfTheOperation) {
    settings.refreshSessionId.Assign("");
    for (const Outcome& outcome : {kNoToken, kNoSession}) {
        SetThreadLastError(55);
        EXPECT_EQ(Run({outcome}, {}), -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(lines.Count("get strToken error"), 1U);
        EXPECT_EQ(lines.Find("get strToken error").Tag(), "Operation");
        EXPECT_EQ(lines.Find("get strToken error").level, 5U);
    }
}

}  // namespace
}  // namespace vantix::test
