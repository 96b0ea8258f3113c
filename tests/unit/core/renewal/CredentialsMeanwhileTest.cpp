// The host changes its credentials while a renewal is under way: what was sent is what is logged, and what the host set
// stays.

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class CredentialsMeanwhile : public FetchTest {
protected:
    /// Responds to the next request once the host has changed everything that it sent.
    void RespondAfterChanges(const std::string& body) {
        transport.Make([this, body](const SentRequest&) {
            core.setAuthAddr("https://later.example");
            core.setAppId("later-app");
            core.setOpenID("later-open");
            core.setRefreshToken("later-refresh");
            core.setScope("later-scope");
            core.setState("later-state");
            core.setDomain("", "https://later.example");
            core.setSessionId("later-session");
            return ScriptedResponse{0, body};
        });
    }

    std::string token = "what was there";
};

TEST_F(CredentialsMeanwhile, FailedRenewalLogsWhatItSent) {
    RespondAfterChanges(kExpired);
    EXPECT_EQ(core.RefreshToken(token), -1);
    OnlyLine(
        "Refresh Token Failed, AuthAddr:https://auth.example, OpenID:open-id, RefreshToken:refresh-token, "
        "appID:app-id, Scope:the-scope, State:the-state");
}

TEST_F(CredentialsMeanwhile, RenewalLeavesWhatTheHostSet) {
    RespondAfterChanges(RefreshResponse());
    EXPECT_EQ(core.RefreshToken(token), 0);
    EXPECT_EQ(core.getAccessToken(), "new-token");
    EXPECT_EQ(core.getAuthAddr(), "https://later.example");
    EXPECT_EQ(core.getRefreshToken(), "later-refresh");
    EXPECT_EQ(core.getOpenID(), "later-open");
    EXPECT_EQ(core.getScope(), "later-scope");
    EXPECT_EQ(core.getState(), "later-state");
}

TEST_F(CredentialsMeanwhile, FailedRenewalOfASessionLogsWhatItSent) {
    core.setPermissionMode(2);
    RespondAfterChanges(kSessionGone);
    EXPECT_EQ(core.RefreshSession("refresh-id", token), -1);
    OnlyLine("Refresh Session Failed, Domain:https://c.example, OldRefreshSessionID:refresh-id");
    EXPECT_EQ(core.getSessionId(), "later-session");
}

}  // namespace
}  // namespace vantix::test
