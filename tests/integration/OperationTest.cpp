// The table of operations in the documents, held against what the cloud sees of each one in each mode.

#include <gmock/gmock.h>

#include <algorithm>

#include "OperationFixture.h"
#include "OperationTable.h"
#include "support/LocalFile.h"
#include "support/RequestCase.h"

namespace vantix::test {
namespace {

/// A permission mode, and in mode 2 what is asked for. The number is the column of the table.
enum Case { kOrdinary, kSmall, kOwnInB2C, kSharedInB2C };
constexpr Case kCases[] = {kOrdinary, kSmall, kOwnInB2C, kSharedInB2C};
constexpr int kModes[] = {0, 1, 2, 2};
constexpr const char* kNames[] = {"mode 0", "mode 1", "mode 2, own", "mode 2, shared"};

class OperationTest : public OperationFixture, public ::testing::WithParamInterface<OperationRow> {
protected:
    static const OperationRow& Row() { return GetParam(); }

    /// Goes into the mode with nothing remembered, and makes the call's input.
    Arguments Enter(Case mode) const {
        ForgetStreamTokens();
        Center().ClearAllCache();
        Center().setPermissionMode(kModes[mode]);
        Cloud().ForgetRequests();
        Arguments input;
        input.serial = mode == kSharedInB2C ? kShared : kCamera;
        // A valid token other than the access token distinguishes the two; in mode 2 it also says what is shared.
        input.token = kModes[mode] == 2 ? std::string("b2c.").append(input.serial) : Account("sharedAccessToken");
        input.url = BDomain() + kUploadPath;
        input.localPath = m_picture.Path();
        return input;
    }
    int Call(const Arguments& input) const { return test::Call(Center(), Row().name, input); }
    /// The paths that a request may use.
    static std::vector<std::string> Paths(const std::string& request) {
        return request == "UploadCloudPicFile" ? std::vector<std::string>{kUploadPath} : PathsOf(request);
    }

    std::string Credential(const std::string& word, const Arguments& input) const {
        const Pairs values = {{"access token", Account("accessToken")},
                              {"token argument", input.token},
                              {"Tk 1", Account("globalTkToken")},
                              {"Tk 2", "tk.device-C10000001-1"},
                              {"Tk 3", "tk.video-C10000001-1"},
                              {"B2C token", "b2c.C10000001"},
                              {"session", Center().getSessionId()},
                              {"refresh token", Account("refreshToken")},
                              {"none", "<none>"}};
        for (const auto& [known, value] : values) {
            if (known == word) {
                return value;
            }
        }
        return "an unknown word: " + word;
    }
    static std::string Domain(Case mode) {
        const std::string& domain = Row().domain;
        const bool isJudged =
            domain.rfind("channel", 0) == 0 || domain.rfind("token argument", 0) == 0 || domain == "B2C token";
        return domain == "C domain" || (isJudged && mode == kSharedInB2C) ? "C" : "B";
    }
    static const std::string& Request(Case mode) {
        return mode == kSharedInB2C ? Row().sharedRequest : Row().ownRequest;
    }

    void ExpectRequests(Case mode, const Arguments& input) const {
        const std::string& word = Row().credentials[mode];
        const auto requests = Cloud().Requests();
        if (word == "no request") {
            EXPECT_TRUE(requests.empty());
            return;
        }
        ASSERT_FALSE(requests.empty());
        for (const ReceivedRequest& request : requests) {
            EXPECT_THAT(Paths(Request(mode)), ::testing::Contains(request.path));
            EXPECT_EQ(request.domain, Domain(mode));
            EXPECT_EQ(CredentialOf(request), Credential(word, input));
            EXPECT_EQ(request.Header("sessionId") != "<none>", word == "session");
        }
        // The consumer servers return a user's P2P identity in two responses.
        EXPECT_EQ(requests.size(), Request(mode) == "GetP2PUserInfoFromCServer" ? 2U : 1U);
    }

    using Pairs = std::vector<std::pair<std::string, std::string>>;

    const LocalFile m_picture{u8"gate.jpg"};
};

TEST_P(OperationTest, SendsWhatTheTableSaysInEveryMode) {
    SetRefreshCredentials();
    Center().setPermissionMode(2);
    SetRefreshSession();
    for (const Case mode : kCases) {
        SCOPED_TRACE(kNames[mode]);
        const Arguments input = Enter(mode);
        // A renewal would put other tokens into the place of the sample's.
        const bool isRenewal = Row().credentials[mode] == "refresh token";
        Center().setRefreshToken(isRenewal ? Account("refreshToken") : "");
        const std::string session = Center().getSessionId();
        Call(input);
        if (Row().sharedRequest != "RefreshSessionFromCServer") {
            ExpectRequests(mode, input);
        } else {
            EXPECT_EQ(Cloud().RequestCount(), kModes[mode] == 2 ? 1U : 0U);
            EXPECT_EQ(Count(kSessionPath), Cloud().RequestCount());
            EXPECT_EQ(Center().getSessionId() != session, kModes[mode] == 2);
        }
    }
}

TEST_P(OperationTest, AsksOnceWhereTheTableNamesACache) {
    const Arguments input = Enter(kOrdinary);
    SetRefreshCredentials();
    Call(input);
    const size_t first = Cloud().RequestCount();
    EXPECT_EQ(first, Row().credentials[kOrdinary] == "no request" ? 0U : 1U);
    if (Row().name == "getOneStreamToken") {
        EXPECT_EQ(Center().getAccessToken(), input.token) << "the queue's token is the core's";
    }
    Call(input);
    EXPECT_EQ(Cloud().RequestCount(), Row().cache == "-" ? 2 * first : first);
}

/// Those whose response says that a token has expired, or that the platform has a transient failure.
class PlatformRenewalTest : public OperationTest {};

TEST_P(PlatformRenewalTest, RenewsTheAccessTokenWhereTheTableSaysSo) {
    const Arguments input = Enter(kOrdinary);
    SetRefreshCredentials();
    const std::string path = Paths(Row().ownRequest).front();
    Cloud().Script({{"path", path}, {"code", "10002"}});
    Call(input);
    const size_t renewals = Row().Renews("310002") ? 1 : 0;
    EXPECT_EQ(Count(path), 1 + renewals);
    EXPECT_EQ(Count(kRefreshPath), path == kRefreshPath ? 1 : renewals);
    EXPECT_EQ(Count(kSessionPath), 0U);
    EXPECT_EQ(Center().getAccessToken() != Account("accessToken"), renewals == 1);
}

TEST_P(PlatformRenewalTest, TriesAgainAfterTransientFailuresWhereTheTableSaysSo) {
    SetRefreshCredentials();
    size_t attempts = Row().Renews("three attempts on 349999, 350000") ? 3 : 1;
    attempts = Row().Renews("one repeat on 349999, 350000") ? 2 : attempts;
    for (const char* code : {"49999", "50000"}) {
        const Arguments input = Enter(kOrdinary);
        Cloud().Script({{"path", Paths(Row().ownRequest).front()}, {"code", code}, {"times", 0}});
        Call(input);
        EXPECT_EQ(Cloud().RequestCount(), attempts) << code;
        Cloud().ForgetScript();
    }
}

/// Those that ask the consumer servers for what is shared.
class SessionRenewalTest : public OperationTest {};

TEST_P(SessionRenewalTest, RenewsTheSessionWhereTheTableSaysSo) {
    Center().setPermissionMode(2);
    SetRefreshSession();
    SetRefreshCredentials();
    const Arguments input = Enter(kSharedInB2C);
    const std::string path = Paths(Row().sharedRequest).front();
    Cloud().Script({{"path", path}, {"domain", "C"}, {"code", 401}});
    Call(input);
    const size_t renewals = Row().Renews("session 401") ? 1 : 0;
    EXPECT_EQ(Count(path), 1 + renewals);
    EXPECT_EQ(Count(kSessionPath), renewals);
    EXPECT_EQ(Count(kRefreshPath), 0U);
}

std::vector<OperationRow> OperationsWhere(bool (*fits)(const OperationRow&)) {
    std::vector<OperationRow> rows = ReadOperations();
    rows.erase(std::remove_if(rows.begin(), rows.end(), [fits](const OperationRow& row) { return !fits(row); }),
               rows.end());
    return rows;
}

bool AsksThePlatform(const OperationRow& row) {
    return row.ownRequest != "UploadCloudPicFile" && row.credentials[kOrdinary] != "no request";
}

bool SendsASession(const OperationRow& row) {
    return row.credentials[kSharedInB2C] == "session" && row.name != "RefreshSession";
}

std::string NameOf(const ::testing::TestParamInfo<OperationRow>& row) { return row.param.name; }

INSTANTIATE_TEST_SUITE_P(Table, OperationTest, ::testing::ValuesIn(ReadOperations()), NameOf);
INSTANTIATE_TEST_SUITE_P(Table, PlatformRenewalTest, ::testing::ValuesIn(OperationsWhere(AsksThePlatform)), NameOf);
INSTANTIATE_TEST_SUITE_P(Table, SessionRenewalTest, ::testing::ValuesIn(OperationsWhere(SendsASession)), NameOf);

TEST(OperationTable, HasEveryOperationThatSends) {
    EXPECT_EQ(ReadOperations().size(), 50U);
    EXPECT_EQ(OperationsWhere(AsksThePlatform).size(), 48U);
    EXPECT_EQ(OperationsWhere(SendsASession).size(), 16U);
}

}  // namespace
}  // namespace vantix::test
