// Every one-shot query through the interface: whose credential it carries and where it goes in each mode, and what an
// empty or expired credential becomes.

#include <gmock/gmock.h>

#include "OperationFixture.h"
#include "QueryCase.h"
#include "base/LastError.h"
#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

using ::testing::Contains;

class QueryTest : public OperationFixture, public ::testing::WithParamInterface<QueryCase> {
protected:
    static const QueryCase& Row() { return GetParam(); }

    /// A call about the account's own camera, or about the one that is shared.
    static Arguments Own() { return {.serial = kOwn, .token = kAccessToken}; }
    static Arguments Shared() { return {.serial = kShared, .token = "b2c.S60000006"}; }

    int Call(const Arguments& arguments) const { return test::Call(Center(), Row().operation, arguments); }
    void RespondExpired(int times) const {
        Cloud().Script({{"path", Row().path}, {"code", "10002"}, {"times", times}});
    }

    /// Calls with an empty credential.
    void ExpectNoCredential(const char* which, const Arguments& arguments) {
        SCOPED_TRACE(which);
        Cloud().ForgetRequests();
        m_log.Clear();
        SetThreadLastError(0);
        EXPECT_EQ(Call(arguments), -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(Cloud().RequestCount(), 0U);
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", Row().Tag(), "get strToken error")).Times(1));
        EXPECT_FALSE(m_log.Contains("FromPlatform error ["));
        EXPECT_FALSE(m_log.Contains("UrlPlatform error ["));
    }
    void ExpectSent(const Arguments& arguments, const char* path, const char* domain, const char* credential) {
        Cloud().ForgetRequests();
        m_log.Clear();
        // Whether the cloud knows the rest of what is asked for does not matter here.
        Call(arguments);
        const auto requests = Cloud().Requests();
        ASSERT_EQ(requests.size(), 1U);
        EXPECT_EQ(requests[0].path, path);
        EXPECT_EQ(requests[0].domain, domain);
        EXPECT_EQ(CredentialOf(requests[0]), credential);
        const bool isSession = std::string(credential) == kSession;
        EXPECT_EQ(requests[0].Header("sessionId"), isSession ? kSession : "<none>");
    }
    void ExpectDomainLine(const char* message) const {
        if (message == nullptr) {
            EXPECT_FALSE(m_log.Contains(" domain"));
        } else {
            EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", Row().domainTag, message)).Times(1));
        }
    }

    LogCapture m_log;
};

// ---- Credential and domain

TEST_P(QueryTest, OrdinaryModeAsksWithItsCredential) {
    ExpectSent(Own(), Row().path, Row().ownDomain, Row().credential);
    ExpectDomainLine(Row().ownLine);
    // The same serial and token mean nothing in this mode.
    ExpectSent(Shared(), Row().path, Row().ownDomain,
               std::string(Row().operation) == "getStreamTokens" ? "b2c.S60000006" : Row().credential);
    ExpectDomainLine(Row().ownLine);
}

TEST_P(QueryTest, ModeOfSmallPermissionsAsksWithItsToken) {
    SetPermissionMode(1);
    ExpectSent(Own(), Row().path, Row().ownDomain, Row().small);
    ExpectDomainLine(Row().ownLine);
}

TEST_P(QueryTest, SharedCameraIsAskedForAtItsDomain) {
    SetPermissionMode(2);
    ExpectSent(Own(), Row().path, Row().ownDomain, Row().credential);
    ExpectDomainLine(Row().ownLine);
    ExpectSent(Shared(), Row().sharedPath == nullptr ? Row().path : Row().sharedPath, Row().sharedDomain, Row().shared);
    ExpectDomainLine(Row().sharedLine);
}

// ---- No credential

TEST_P(QueryTest, EmptyCredentialEndsBeforeAnyRequestInEveryMode) {
    Center().setAccessToken("");
    if (!Row().needsCredential) {
        EXPECT_EQ(Call(Own()), 0);
        EXPECT_EQ(Cloud().RequestCount(), 1U);
        return;
    }
    Center().setSessionId("");
    Arguments arguments = Own();
    arguments.token = "";
    ExpectNoCredential("mode 0", arguments);
    SetPermissionMode(2);
    ExpectNoCredential("mode 2", arguments);
    if (std::string(Row().small) == "tk.global-77") {
        return;  // the global token cannot be taken back through the interface
    }
    SetPermissionMode(1);
    Center().setAccessToken(std::string(Row().small).rfind("tk.", 0) == 0 ? kAccessToken : "");
    Center().SetDeviceTkTokens("[]");
    ExpectNoCredential("mode 1", arguments);
}

TEST_P(QueryTest, EmptyCredentialForASharedCameraEndsBeforeAnyRequest) {
    SetPermissionMode(2);
    if (std::string(Row().shared) == kSession) {
        Center().setSessionId("");
        ExpectNoCredential("session", Shared());
    } else if (Row().needsCredential) {
        Center().setAccessToken("");
        ExpectNoCredential("access token", Shared());
    }
}

// ---- A credential that has expired

TEST_P(QueryTest, ExpiredTokenIsRenewedOnceAndTheRequestRepeated) {
    SetRefreshCredentials();
    RespondExpired(1);
    EXPECT_EQ(Call(Own()), Row().isRenewed ? 0 : Row().expired);
    const auto requests = Cloud().Requests(Row().path);
    if (!Row().isRenewed) {
        EXPECT_EQ(requests.size(), 1U);
        EXPECT_EQ(Cloud().RequestCount(), 1U);
        return;
    }
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(Count(kRefreshPath), 1U);
    EXPECT_EQ(Cloud().RequestCount(), 3U);
    EXPECT_EQ(CredentialOf(requests[0]), kAccessToken);
    EXPECT_EQ(CredentialOf(requests[1]), Center().getAccessToken());
    EXPECT_NE(Center().getAccessToken(), kAccessToken);
}

TEST_P(QueryTest, TokenThatExpiresTwiceIsNotRenewedAgain) {
    SetRefreshCredentials();
    RespondExpired(0);
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_EQ(Count(Row().path), Row().isRenewed ? 2U : 1U);
    EXPECT_EQ(Count(kRefreshPath), Row().isRenewed ? 1U : 0U);
}

TEST_P(QueryTest, RenewalThatGivesNothingReturnsTheFirstResult) {
    RespondExpired(0);
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
    SetRefreshCredentials();
    Cloud().Script({{"path", kRefreshPath}, {"code", "10002"}, {"times", 0}});
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_EQ(Count(Row().path), 2U);
    EXPECT_EQ(Count(kRefreshPath), Row().isRenewed ? 1U : 0U);
    EXPECT_EQ(Center().getAccessToken(), kAccessToken);
}

TEST_P(QueryTest, ModeOfSmallPermissionsRenewsNothing) {
    SetRefreshCredentials();
    SetPermissionMode(1);
    RespondExpired(0);
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
}

TEST_P(QueryTest, RepeatOfTheHostIsNotRepeated) {
    SetRefreshCredentials();
    RespondExpired(0);
    Arguments arguments = Own();
    arguments.retried = true;
    EXPECT_EQ(Call(arguments), Row().expired);
    const bool isRepeated = Row().isRenewed && !Row().takesRetried;
    EXPECT_EQ(Count(kRefreshPath), isRepeated ? 1U : 0U);
    EXPECT_EQ(Count(Row().path), isRepeated ? 2U : 1U);
}

TEST_P(QueryTest, FailedTransferRenewsNothing) {
    SetRefreshCredentials();
    Center().setDomain(Cloud().ClosedPort(), Cloud().ClosedPort());
    EXPECT_EQ(Call(Own()), 100007);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Table, QueryTest, ::testing::ValuesIn(QueryCases()),
                         [](const auto& query) { return query.param.operation; });

}  // namespace
}  // namespace vantix::test
