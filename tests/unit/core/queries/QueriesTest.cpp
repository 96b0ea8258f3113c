// Every one-shot query: which credential it sends and where it goes in each mode, what an empty or expired credential
// becomes, and what is repeated.

#include <gmock/gmock.h>

#include "base/LastError.h"
#include "boundary/CVantixDataCenterWrapper.h"
#include "support/LineMatcher.h"
#include "support/RequestCase.h"
#include "unit/core/CoreTest.h"
#include "unit/core/queries/QueryCase.h"

namespace vantix::test {
namespace {

using testing::Contains;

constexpr char kExpired[] = R"({"resultCode":"10002","meta":{"code":10002},"result":{"code":"10002"}})";
constexpr char kTransientFailure[] = R"({"resultCode":"50000","meta":{"code":50000},"result":{"code":"50000"}})";
constexpr char kRefreshed[] = R"({"result":{"code":"200","data":{"access_token":"new-token","openId":"open-id",)"
                              R"("refresh_token":"next","expires_in":7200}}})";
constexpr char kRefreshPath[] = "/oauth/token/refreshToken";

/// The response that satisfies the request for this path.
std::string GoodResponse(const std::string& path) {
    for (const auto& family : {PlatformRequests(), ConsumerRequests()}) {
        for (const RequestCase& row : family) {
            if (row.path == path) {
                return row.response;
            }
        }
    }
    return "no request for " + path;
}

std::string DomainOf(const SentRequest& request) { return request.url.substr(0, sizeof("https://x.example") - 1); }

std::string PathOf(const SentRequest& request) {
    const size_t begin = sizeof("https://x.example") - 1;
    return request.url.substr(begin, request.url.find('?') - begin);
}

/// The credential of a request, wherever it stands.
std::string CredentialOf(const SentRequest& request) {
    for (const std::string& header : request.headers) {
        if (header.rfind("sessionId: ", 0) == 0) {
            return header.substr(sizeof("sessionId: ") - 1);
        }
    }
    const Json body = Json::parse(request.body, nullptr, false);
    return body.is_object() ? body.value("accessToken", "<none>") : request.Param("accessToken");
}

class QueryTest : public CoreTest, public testing::WithParamInterface<QueryCase> {
protected:
    QueryTest() {
        Configure();
        core.setSessionId(kSession);
        core.setGlobalTkToken("tk-global");
        core.SetDeviceTkTokens(R"([{"deviceTkToken":"tk-device","deviceVideoTkToken":"tk-video",
                                    "deviceSerial":"C10000001","channelNo":"1"}])");
        core.SetB2CTokens(R"([{"token":"own-token","deviceSerial":"C10000001","channelNo":"1","isShared":0},
                              {"token":"shared-token","deviceSerial":"S60000006","channelNo":"1","isShared":1}])");
        transport.Always([this](const SentRequest& request) { return ScriptedResponse{0, Respond(PathOf(request))}; });
        SetThreadLastError(0);
        lines.Clear();
    }

    static const QueryCase& Row() { return GetParam(); }
    static std::string SharedPath() { return Row().sharedPath == nullptr ? Row().path : Row().sharedPath; }

    /// A call about the account's own camera, or about the one that is shared.
    static Arguments Own() { return {.serial = "C10000001", .token = kAccessToken}; }
    static Arguments Shared() { return {.serial = "S60000006", .token = "shared-token"}; }
    int Call(const Arguments& arguments) { return test::Call(m_center, Row().operation, arguments); }

    void SetRefreshCredentials() {
        core.setAuthAddr("https://a.example");
        core.setRefreshToken("refresh-token");
        core.setOpenID("open-id");
    }
    /// The responses to come: the first `refused` of the query get this one, and a renewal may fail.
    std::string Respond(const std::string& path) {
        if (path == kRefreshPath) {
            return m_isRenewalRefused ? kExpired : kRefreshed;
        }
        return m_refused-- > 0 ? m_refusal : GoodResponse(path);
    }
    /// The paths of all requests so far.
    std::vector<std::string> Paths() const {
        std::vector<std::string> paths;
        for (const SentRequest& request : transport.Sent()) {
            paths.push_back(PathOf(request));
        }
        return paths;
    }

    void ExpectNoCredential(const char* which, const Arguments& arguments) {
        SCOPED_TRACE(which);
        lines.Clear();
        SetThreadLastError(0);
        EXPECT_EQ(Call(arguments), -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_THAT(Paths(), testing::IsEmpty());
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", Row().Tag(), "get strToken error"));
        for (const char* other : {" domain", "FromPlatform error [", "UrlPlatform error ["}) {
            ExpectNoLine(other);
        }
    }
    void ExpectSent(const Arguments& arguments, const std::string& path, const char* domain,
                    const std::string& credential, const char* domainLine) {
        lines.Clear();
        const size_t before = transport.Count();
        EXPECT_EQ(Call(arguments), 0);
        ASSERT_EQ(transport.Count(), before + 1);
        const SentRequest request = transport.Sent().back();
        EXPECT_EQ(PathOf(request), path);
        EXPECT_EQ(DomainOf(request), std::string(domain) == "B" ? "https://b.example" : "https://c.example");
        EXPECT_EQ(CredentialOf(request), credential);
        if (domainLine == nullptr) {
            ExpectNoLine(" domain");
        } else {
            EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", Row().domainTag, domainLine));
        }
    }

    CVantixDataCenterWrapper m_center{&core};
    const char* m_refusal = kExpired;
    int m_refused = 0;
    bool m_isRenewalRefused = false;
};

constexpr int kAlways = 1000;

// ---- Credential and domain

TEST_P(QueryTest, OrdinaryModeAsksWithItsCredential) {
    ExpectSent(Own(), Row().path, Row().ownDomain, Row().credential, Row().ownLine);
    // In this mode nothing is shared; a token that is handed in goes as it is.
    const bool isHandedIn = std::string(Row().operation) == "getStreamTokens";
    ExpectSent(Shared(), Row().path, Row().ownDomain, isHandedIn ? "shared-token" : Row().credential, Row().ownLine);
}

TEST_P(QueryTest, ModeOfSmallPermissionsAsksWithItsToken) {
    core.setPermissionMode(1);
    ExpectSent(Own(), Row().path, Row().ownDomain, Row().small, Row().ownLine);
}

TEST_P(QueryTest, SharedCameraIsAskedForAtItsDomain) {
    core.setPermissionMode(2);
    ExpectSent(Own(), Row().path, Row().ownDomain, Row().credential, Row().ownLine);
    ExpectSent(Shared(), SharedPath(), Row().sharedDomain, Row().shared, Row().sharedLine);
}

// ---- No credential

TEST_P(QueryTest, EmptyCredentialEndsBeforeAnyRequestInEveryMode) {
    core.setAccessToken("");
    if (!Row().needsCredential) {
        EXPECT_EQ(Call(Own()), 0);
        EXPECT_EQ(transport.Count(), 1U);
        return;
    }
    core.setSessionId("");
    Arguments arguments = Own();
    arguments.token = "";
    ExpectNoCredential("mode 0", arguments);
    core.setPermissionMode(2);
    ExpectNoCredential("mode 2", arguments);
    if (std::string(Row().small) == "tk-global") {
        return;  // the global token cannot be taken back
    }
    core.setPermissionMode(1);
    core.setAccessToken(std::string(Row().small).rfind("tk-", 0) == 0 ? kAccessToken : "");
    core.SetDeviceTkTokens("[]");
    ExpectNoCredential("mode 1", arguments);
}

TEST_P(QueryTest, EmptyCredentialForASharedCameraEndsBeforeAnyRequest) {
    core.setPermissionMode(2);
    core.setSessionId("");
    if (std::string(Row().shared) != kSession) {
        core.setAccessToken("");
    }
    lines.Clear();
    EXPECT_EQ(Call(Shared()), Row().needsCredential ? -1 : 0);
    EXPECT_EQ(transport.Count(), Row().needsCredential ? 0U : 1U);
    EXPECT_THAT(lines.Lines(),
                Contains(Line(5, "ERROR", Row().Tag(), "get strToken error")).Times(Row().needsCredential ? 1 : 0));
}

// ---- A credential that has expired, and a transient failure of the platform

TEST_P(QueryTest, ExpiredTokenIsRenewedOnceAndTheRequestRepeated) {
    SetRefreshCredentials();
    m_refused = 1;
    EXPECT_EQ(Call(Own()), Row().isRenewed ? 0 : Row().expired);
    if (!Row().isRenewed) {
        EXPECT_THAT(Paths(), testing::ElementsAre(Row().path));
        return;
    }
    ASSERT_THAT(Paths(), testing::ElementsAre(Row().path, kRefreshPath, Row().path));
    EXPECT_EQ(CredentialOf(transport.Sent()[0]), kAccessToken);
    EXPECT_EQ(CredentialOf(transport.Sent()[2]), "new-token");
    EXPECT_EQ(m_center.getAccessToken(), "new-token");
}

TEST_P(QueryTest, TokenThatExpiresTwiceIsNotRenewedAgain) {
    SetRefreshCredentials();
    m_refused = kAlways;
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_EQ(transport.Count(), Row().isRenewed ? 3U : 1U);
}

TEST_P(QueryTest, RenewalThatGivesNothingReturnsTheFirstResult) {
    m_refused = kAlways;
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_THAT(Paths(), testing::ElementsAre(Row().path)) << "nothing to renew it with";
    SetRefreshCredentials();
    m_isRenewalRefused = true;
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_EQ(transport.Count(), Row().isRenewed ? 3U : 2U);
    EXPECT_EQ(m_center.getAccessToken(), kAccessToken);
}

TEST_P(QueryTest, ModeOfSmallPermissionsRenewsNothing) {
    SetRefreshCredentials();
    core.setPermissionMode(1);
    m_refused = kAlways;
    EXPECT_EQ(Call(Own()), Row().expired);
    EXPECT_THAT(Paths(), testing::ElementsAre(Row().path));
}

TEST_P(QueryTest, RepeatOfTheHostIsNotRepeated) {
    SetRefreshCredentials();
    m_refused = kAlways;
    Arguments arguments = Own();
    arguments.retried = true;
    EXPECT_EQ(Call(arguments), Row().expired);
    EXPECT_EQ(transport.Count(), Row().isRenewed && !Row().takesRetried ? 3U : 1U);
}

TEST_P(QueryTest, FailedTransferRenewsAndRepeatsNothing) {
    SetRefreshCredentials();
    transport.Fail(28);
    EXPECT_EQ(Call(Own()), 100028);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_P(QueryTest, TransientFailureIsRepeatedOnceWhereTheRowSaysSo) {
    SetRefreshCredentials();
    m_refusal = kTransientFailure;
    m_refused = kAlways;
    EXPECT_EQ(Call(Own()), std::string(Row().operation) == "getRecordByAlarmID" ? 0 : 350000);
    EXPECT_EQ(transport.Count(), Row().repeatsTransient ? 2U : 1U);
}

INSTANTIATE_TEST_SUITE_P(Table, QueryTest, ::testing::ValuesIn(QueryCases()),
                         [](const auto& query) { return query.param.operation; });

// ---- A core that never had a global token

class QueryWithoutAGlobalTokenTest : public CoreTest {
protected:
    QueryWithoutAGlobalTokenTest() { Configure(); }

    void ExpectNoCredential(int result, const std::string& tag) {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(transport.Count(), 0U);
        EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(5, "ERROR", tag, "get strToken error")));
        SetThreadLastError(0);
        lines.Clear();
    }
};

TEST_F(QueryWithoutAGlobalTokenTest, AccountListsOfTheSmallPermissionModeNeedOne) {
    core.setPermissionMode(1);
    core.SetDeviceTkTokens(R"([{"deviceTkToken":"d","deviceVideoTkToken":"v","deviceSerial":"","channelNo":"1"}])");
    SetThreadLastError(0);
    lines.Clear();
    DeviceList list;
    ExpectNoCredential(core.getDevList(0, 10, list, false), "CVantixDataCenter::getDevList");
    ExpectNoCredential(core.getDeviceList(0, 10, "GB", list, false), "CVantixDataCenter::getDeviceList");
    ExpectNoCredential(core.getShareDevList(0, 10, list, false), "CVantixDataCenter::getShareDevList");
}

}  // namespace
}  // namespace vantix::test
