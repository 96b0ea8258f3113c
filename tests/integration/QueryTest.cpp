// Every one-shot query through the interface: what it sends, and what each kind of failure becomes.

#include <gmock/gmock.h>

#include <algorithm>

#include "OperationFixture.h"
#include "OperationTable.h"
#include "PlatformCase.h"
#include "QueryPage.h"
#include "base/LastError.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

constexpr int kExpired = 310002;

class QueryTest : public OperationFixture, public ::testing::WithParamInterface<QueryPageRow> {
protected:
    static const QueryPageRow& Row() { return GetParam(); }
    static std::string Path() { return PathsOf(Row().request).front(); }
    static std::string SharedPath() { return PathsOf(Row().SharedRequest()).front(); }
    static std::string Tag() { return "CVantixDataCenter::" + Row().name; }

    /// A call about the account's own device, or about the one that is shared.
    OperationInput Input(bool shared = false) const {
        OperationInput input;
        input.serial = shared ? kShared : kOwn;
        input.token = shared ? std::string("b2c.").append(kShared) : Account("accessToken");
        return input;
    }
    int Call(const OperationInput& input, Json& output) const { return CallOf(Row().name)(Center(), input, output); }
    int Call(const OperationInput& input) const {
        Json output;
        return Call(input, output);
    }
    void Answer(const Json& code, int times) const {
        Cloud().ScriptResponse({{"path", Path()}, {"code", code}, {"times", times}});
    }

    /// What the operation makes of an expired token that it does not renew.
    static int Unrenewed() {
        if (Row().Deviates("unread")) {
            return 0;
        }
        return Row().Deviates("expired is -1") ? -1 : kExpired;
    }
    static bool CarriesNothing() { return Row().tkKind == "none"; }

    void ExpectLine(const std::string& message, const std::string& word, unsigned level, const std::string& tag) const {
        EXPECT_EQ(m_log.Count(message), 1U) << message;
        const LogLine line = m_log.Find(message);
        EXPECT_EQ(line.Word(), word) << message;
        EXPECT_EQ(line.level, level) << message;
        EXPECT_EQ(line.Tag(), tag) << message;
    }
    /// Calls with an empty credential.
    void ExpectRefusal(const char* which, const OperationInput& input) {
        SCOPED_TRACE(which);
        Cloud().ForgetRequests();
        m_log.Clear();
        SetThreadLastError(0);
        EXPECT_EQ(Call(input), -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(Cloud().RequestCount(), 0U);
        ExpectLine("get strToken error", "ERROR", 5, Tag());
        EXPECT_FALSE(m_log.Contains("FromPlatform error ["));
        EXPECT_FALSE(m_log.Contains("UrlPlatform error ["));
    }

    LogCapture m_log;
};

// ---- Success, in the terms of the platform's own cases

struct PlatformQuery {
    QueryPageRow row;
    PlatformCase platform;
};

void PrintTo(const PlatformQuery& query, std::ostream* out) { PrintTo(query.row, out); }

std::vector<PlatformQuery> PlatformQueries() {
    std::vector<PlatformQuery> queries;
    const std::vector<PlatformCase> cases = PlatformCases();
    for (const QueryPageRow& row : ReadQueryPage()) {
        const auto found = std::find_if(cases.begin(), cases.end(),
                                        [&](const PlatformCase& platform) { return platform.function == row.request; });
        if (found != cases.end()) {
            queries.push_back({row, *found});
        }
    }
    return queries;
}

class QuerySuccessTest : public OperationFixture, public ::testing::WithParamInterface<PlatformQuery> {
protected:
    static const PlatformCase& Platform() { return GetParam().platform; }

    /// The device and channel that the platform's case is about.
    OperationInput Input() const {
        OperationInput input;
        input.token = Account("accessToken");
        for (const auto& [key, value] : Platform().parameters) {
            if (key == "deviceSerial") {
                input.serial = value;
            } else if (key == "cameraNo" || key == "channelNo" || key == "localIndex") {
                input.ch = std::stoi(value);
            }
        }
        return input;
    }
    std::string Filled(std::string text) const {
        const Pairs places = {
            {"$token", Account("accessToken")}, {"$key", Account("appKey")}, {"$feature", ExpectedFeatureCode()}};
        for (const auto& [place, value] : places) {
            if (const size_t at = text.find(place); at != std::string::npos) {
                text.replace(at, place.size(), value);
            }
        }
        return text;
    }
    std::vector<std::string> ExpectedParameters() const {
        std::vector<std::string> texts;
        for (const auto& [key, value] : Platform().parameters) {
            texts.push_back(std::string(key).append("=").append(Filled(value)));
        }
        return texts;
    }
};

TEST_P(QuerySuccessTest, EveryArgumentReachesItsPlace) {
    const OperationInput input = Input();
    Json output;
    ASSERT_EQ(CallOf(GetParam().row.name)(Center(), input, output), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].domain, Platform().isOnConsumer ? "C" : "B");
    EXPECT_EQ(requests[0].path, Platform().path);
    if (Platform().IsJson()) {
        EXPECT_EQ(requests[0].body, Filled(Platform().body));
    } else {
        EXPECT_THAT(requests[0].Parameters(), ::testing::UnorderedElementsAreArray(ExpectedParameters()));
    }
    if (GetParam().row.name == "getDeviceDetailInfo") {
        // Its case counts the milliseconds of a clock that stands still here.
        EXPECT_EQ(output.at("channel").at("cameraNo"), input.ch);
        EXPECT_EQ(output.at("device").at("deviceIP"), Cloud().Device(input.serial).at("device").at("deviceIP"));
        return;
    }
    Platform().expect(output, Cloud());
}

std::string NameOfQuery(const ::testing::TestParamInfo<PlatformQuery>& query) { return query.param.row.name; }

INSTANTIATE_TEST_SUITE_P(Page, QuerySuccessTest, ::testing::ValuesIn(PlatformQueries()), NameOfQuery);

TEST(QueryPage, EveryQueryHasAPlatformCase) {
    EXPECT_EQ(ReadQueryPage().size(), 30U);
    EXPECT_EQ(PlatformQueries().size(), 30U);
}

// ---- Failures

TEST_P(QueryTest, EmptyCredentialEndsBeforeAnyRequestInEveryMode) {
    OperationInput input = Input();
    if (CarriesNothing()) {
        Center().setAccessToken("");
        EXPECT_EQ(Call(input), 0);
        EXPECT_EQ(Cloud().RequestCount(), 1U);
        return;
    }
    Center().setSessionId("");
    Center().setAccessToken("");
    input.token = "";
    ExpectRefusal("mode 0", input);
    SetPermissionMode(2);
    ExpectRefusal("mode 2", input);
    SetPermissionMode(1);
    if (Row().tkKind == "1") {
        return;  // the global token cannot be taken back through the interface
    }
    const bool hasTk = Row().tkKind == "2" || Row().tkKind == "3";
    Center().setAccessToken(hasTk ? Account("accessToken") : "");
    Center().SetDeviceTkTokens("[]");
    ExpectRefusal("mode 1", input);
}

TEST_P(QueryTest, EmptyCredentialForASharedChannelEndsBeforeAnyRequest) {
    SetPermissionMode(2);
    if (Row().SharesSession()) {
        Center().setSessionId("");
        ExpectRefusal("session", Input(true));
    } else if (!CarriesNothing()) {
        Center().setAccessToken("");
        ExpectRefusal("access token", Input(true));
    }
}

TEST_P(QueryTest, ExpiredTokenIsRenewedOnceAndTheRequestRepeated) {
    SetRefreshCredentials();
    Answer("10002", 1);
    EXPECT_EQ(Call(Input()), Row().isRefreshed ? 0 : Unrenewed());
    const auto requests = Cloud().Requests(Path());
    ASSERT_EQ(requests.size(), Row().isRefreshed ? 2U : 1U);
    EXPECT_EQ(Count(kRefreshPath), Row().isRefreshed ? 1U : 0U);
    EXPECT_EQ(Cloud().RequestCount(), requests.size() + Count(kRefreshPath));
    if (Row().isRefreshed) {
        EXPECT_EQ(CredentialOf(requests[0]), Account("accessToken"));
        EXPECT_EQ(CredentialOf(requests[1]), Center().getAccessToken());
        EXPECT_NE(CredentialOf(requests[1]), CredentialOf(requests[0]));
    }
}

TEST_P(QueryTest, TokenThatExpiresTwiceIsNotRenewedAgain) {
    SetRefreshCredentials();
    Answer("10002", 0);
    EXPECT_EQ(Call(Input()), Unrenewed());
    EXPECT_EQ(Count(Path()), Row().isRefreshed ? 2U : 1U);
    EXPECT_EQ(Count(kRefreshPath), Row().isRefreshed ? 1U : 0U);
}

TEST_P(QueryTest, RenewalThatGivesNothingReturnsTheFirstResult) {
    Answer("10002", 0);
    EXPECT_EQ(Call(Input()), Unrenewed());
    EXPECT_EQ(Cloud().RequestCount(), 1U);
    SetRefreshCredentials();
    Cloud().ScriptResponse({{"path", kRefreshPath}, {"code", "10002"}, {"times", 0}});
    EXPECT_EQ(Call(Input()), Unrenewed());
    EXPECT_EQ(Count(Path()), 2U);
    EXPECT_EQ(Count(kRefreshPath), Row().isRefreshed ? 1U : 0U);
    EXPECT_EQ(Center().getAccessToken(), Account("accessToken"));
}

TEST_P(QueryTest, SmallPermissionModeRenewsNothing) {
    SetRefreshCredentials();
    SetPermissionMode(1);
    Answer("10002", 0);
    EXPECT_EQ(Call(Input()), Unrenewed());
    EXPECT_EQ(Cloud().RequestCount(), 1U);
}

TEST_P(QueryTest, FailedTransferReturnsTheTransportsCode) {
    SetRefreshCredentials();
    Center().setDomain(Cloud().ClosedPort(), Cloud().ClosedPort());
    EXPECT_EQ(Call(Input()), 100007);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
    Center().setDomain(BDomain(), CDomain());
}

TEST_P(QueryTest, SharedChannelIsAskedForAtItsDomain) {
    SetPermissionMode(2);
    for (const bool isShared : {false, true}) {
        SCOPED_TRACE(isShared ? "shared" : "own");
        Cloud().ForgetRequests();
        m_log.Clear();
        // Whether the cloud knows the rest of what is asked for does not matter here.
        Call(Input(isShared));
        const bool byChannel = Row().domain.rfind("channel", 0) == 0;
        const bool byArgument = Row().tkKind == "argument";
        const bool isConsumer = isShared && (byChannel || byArgument);
        const auto requests = Cloud().Requests();
        ASSERT_EQ(requests.size(), 1U);
        EXPECT_EQ(requests[0].path, isShared ? SharedPath() : Path());
        EXPECT_EQ(requests[0].domain, isConsumer || Row().domain == "consumer" ? "C" : "B");
        EXPECT_EQ(requests[0].Header("sessionId"),
                  Row().tkKind == "session" || (isShared && Row().SharesSession()) ? Account("sessionId") : "<none>");
        if (Row().domain == "consumer") {
            EXPECT_FALSE(m_log.Contains(" domain"));
            continue;
        }
        const std::string other =
            Row().domain == "token" ? "Returning B domain not a shared device" : "Returning B domain";
        const std::string byWhom =
            Row().domain == "token" ? "CVantixDataCenter::getDomainByToken" : "CVantixDataCenter::getDomain";
        const bool inPlace = Row().domain.find("in place") != std::string::npos;
        ExpectLine(isConsumer ? "Returning C domain for shared device" : other, "INFO ", 3, inPlace ? Tag() : byWhom);
    }
}

TEST_P(QueryTest, RepeatOfTheHostIsNotRepeated) {
    OperationInput input = Input();
    input.retried = true;
    const std::vector<OperationRow> operations = ReadOperations();
    const auto operation = std::find_if(operations.begin(), operations.end(),
                                        [](const OperationRow& candidate) { return candidate.name == Row().name; });
    ASSERT_NE(operation, operations.end());
    SetRefreshCredentials();
    Answer("10002", 0);
    EXPECT_EQ(Call(input), Unrenewed());
    const bool isRepeated = Row().isRefreshed && !operation->Takes("retried");
    EXPECT_EQ(Count(kRefreshPath), isRepeated ? 1U : 0U);
    EXPECT_EQ(Count(Path()), isRepeated ? 2U : 1U);
}

INSTANTIATE_TEST_SUITE_P(Page, QueryTest, ::testing::ValuesIn(ReadQueryPage()),
                         [](const ::testing::TestParamInfo<QueryPageRow>& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
