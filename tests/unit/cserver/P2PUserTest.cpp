// The user's P2P identity: two requests, one parser over both responses, and secrets that stay out of the log.

#include "cserver/P2P.h"
#include "support/FakeClock.h"
#include "support/FixedFeatureCode.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr char kP2PUserTag[] = "ParseP2PUserInfoFromCServer";
constexpr char kP2PUserRequest[] = "GetP2PUserInfoFromCServer";
constexpr char kFirst[] = R"({"meta":{"code":200},"userInfo":{"userId":"user-1"}})";
constexpr char kSecond[] = R"({"secret":"secret-2","data":{"version":3,"saltIndex":4}})";

const RecordFields<P2PUserInfo>& Rows() {
    static const RecordFields<P2PUserInfo> rows = {
        {"/response1/userInfo/userId", &P2PUserInfo::userId, "user-1"},
        {"/response2/secret", &P2PUserInfo::data, "secret-2"},
        {"/response2/data/version", &P2PUserInfo::version, 3},
        {"/response2/data/saltIndex", &P2PUserInfo::saltIndex, 4},
    };
    return rows;
}

Json Joined() { return {{"response1", Json::parse(kFirst)}, {"response2", Json::parse(kSecond)}}; }

P2PUserInfo Before() { return {"before", "before", -99, -99, 77}; }

class ConsumerP2PUser : public ConsumerResponse {
protected:
    int Parse(const std::string& joined) {
        info = Before();
        m_log.Clear();
        return ParseP2PUserInfoFromCServer(joined, info);
    }
    int Fetch() {
        info = Before();
        m_log.Clear();
        return GetP2PUserInfoFromCServer(Route(), info);
    }
    void ExpectUntouched() const {
        EXPECT_EQ(info.userId, "before");
        EXPECT_EQ(info.data, "before");
        EXPECT_EQ(info.version, -99);
        EXPECT_EQ(info.saltIndex, -99);
    }
    /// No line but the transport's, which shows every response as it comes, shows what identifies the user.
    void ExpectNoSecrets() const {
        for (const LogLine& line : m_log.Lines()) {
            if (line.Tag() == kP2PUserTag || line.Tag() == kP2PUserRequest) {
                EXPECT_EQ(line.text.find("SECRET"), std::string::npos) << line.text;
            }
        }
    }

    FixedFeatureCode featureCode;
    FakeClock clock;
    ScriptedTransport transport;
    P2PUserInfo info = Before();
};

TEST_F(ConsumerP2PUser, BothResponsesFillTheRecord) {
    EXPECT_EQ(Parse(Joined().dump()), 0);
    EXPECT_EQ(ValuesOf(Rows(), info), WholeValues(Rows()));
    EXPECT_TRUE(m_log.Lines().empty()) << "nothing of it is logged";
}

TEST_F(ConsumerP2PUser, SecretInsideDataIsReadToo) {
    EXPECT_EQ(Parse(R"({"response1":{"userInfo":{}},"response2":{"data":{"secret":"inner"}}})"), 0);
    EXPECT_EQ(info.data, "inner");
    EXPECT_EQ(Parse(R"({"response1":{"userInfo":{}},"response2":{"secret":"outer","data":{"secret":"inner"}}})"), 0);
    EXPECT_EQ(info.data, "outer") << "the one beside it goes first";
}

TEST_F(ConsumerP2PUser, MembersAreReadOnlyWithTheirType) {
    ExpectEachFieldOnItsOwn(Rows(), Joined(), Before(), IntValues(), [this](const std::string& joined) {
        EXPECT_EQ(Parse(joined), 0);
        return info;
    });
}

TEST_F(ConsumerP2PUser, FourObjectsMustBeThere) {
    const struct {
        const char* joined;
        const char* line;
    } rows[] = {
        {"{}", "platform response invalid, szInfo = {}, response1 not exist!"},
        {"[]", "platform response invalid, szInfo = [], response1 not exist!"},
        {"null", "platform response invalid, szInfo = null, response1 not exist!"},
        {R"({"response1":[],"response2":{}})",
         R"(platform response invalid, szInfo = {"response1":[],"response2":{}}, response1 not exist!)"},
        {R"({"response1":{}})", R"(platform response invalid, szInfo = {"response1":{}}, response2 not exist!)"},
        {R"({"response1":{},"response2":"x"})",
         R"(platform response invalid, szInfo = {"response1":{},"response2":"x"}, response2 not exist!)"},
        {R"({"response1":{},"response2":{"data":{}}})",
         R"(platform response invalid, szInfo = {"response1":{},"response2":{"data":{}}}, userInfo not exist!)"},
        {R"({"response1":{"userInfo":[]},"response2":{"data":{}}})",
         R"(platform response invalid, szInfo = {"response1":{"userInfo":[]},"response2":{"data":{}}})"
         ", userInfo not exist!"},
        {R"({"response1":{"userInfo":{}},"response2":{}})",
         R"(platform response invalid, szInfo = {"response1":{"userInfo":{}},"response2":{}}, data not exist!)"},
        {R"({"response1":{"userInfo":{}},"response2":{"data":[]}})",
         R"(platform response invalid, szInfo = {"response1":{"userInfo":{}},"response2":{"data":[]}})"
         ", data not exist!"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Parse(row.joined), 2) << row.joined;
        EXPECT_THAT(m_log.Lines(), ElementsAre(Line(5, "ERROR", kP2PUserTag, row.line)));
        ExpectUntouched();
    }
}

TEST_F(ConsumerP2PUser, WhatIdentifiesTheUserIsMaskedWhereTheResponseIsLogged) {
    EXPECT_EQ(Parse(R"({"response1":{},"response2":{"secret":"one","data":{"secret":"two","version":3}}})"), 2);
    EXPECT_THAT(
        m_log.Lines(),
        ElementsAre(Line(5, "ERROR", kP2PUserTag,
                         "platform response invalid, szInfo = "
                         R"({"response1":{},"response2":{"secret":"***","data":{"secret":"***","version":"***"}}})"
                         ", userInfo not exist!")));
    EXPECT_EQ(Parse(R"({"response1":{"userInfo":{"userId":"u","name":"n"}},"response2":{"data":[{"saltIndex":4}]}})"),
              2);
    EXPECT_THAT(
        m_log.Lines(),
        ElementsAre(
            Line(5, "ERROR", kP2PUserTag,
                 "platform response invalid, szInfo = "
                 R"({"response1":{"userInfo":{"userId":"***","name":"n"}},"response2":{"data":[{"saltIndex":"***"}]}})"
                 ", data not exist!")));
}

/// Wherever they stand, and whatever they are.
TEST_F(ConsumerP2PUser, SecretsOfNoShapeReachTheParsersLines) {
    for (const std::string& joined :
         {std::string(R"({"response1":[{"userInfo":{"userId":"SECRET"}}],"response2":{}})"),
          std::string(R"({"response1":{"userId":"SECRET"},"response2":{"secret":"SECRET"}})"),
          std::string(R"({"response1":{},"response2":{"secret":{"deep":"SECRET"}}})"),
          std::string(R"({"response1":{},"response2":{"secret":["SECRET","SECRET"]}})"),
          std::string(R"({"response1":{},"response2":[{"secret":"SECRET"},{"version":"SECRET"}]})"),
          std::string(
              R"({"response1":{"userInfo":{}},"response2":{"data":[{"secret":"SECRET","saltIndex":"SECRET"}]}})"),
          std::string(R"({"response1":{"userInfo":{"userId":"SECRET"},)"),
          std::string(R"({"response1":{"userInfo":{"userId":"SEC)"),
          R"({"response2":{"secret":"SECRET"},"x":)" + std::string(2000, '[') + std::string(2000, ']') + "}"}) {
        EXPECT_NE(Parse(joined), 0) << joined;
        EXPECT_EQ(m_log.Lines().size(), 1U);
        EXPECT_TRUE(m_log.Contains("***") || m_log.Contains("szInfo = ")) << joined;
        EXPECT_FALSE(m_log.Contains("SEC")) << joined;
    }
}

TEST_F(ConsumerP2PUser, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kP2PUserTag, "platform response bad, szInfo = " + body)));
    }
    ExpectTruncationIsNoJson(Joined().dump(), [this](const std::string& body) { return Parse(body); });
}

// ---- The requests

TEST_F(ConsumerP2PUser, TwoRequestsInSequenceFillTheRecord) {
    clock.SetSteadyStep(5'000'000);
    transport.Respond(kFirst);
    transport.Respond(kSecond);
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(ValuesOf(Rows(), info), WholeValues(Rows()));
    EXPECT_EQ(info.iRequestCost, 10) << "of both";
    ASSERT_EQ(transport.Count(), 2U);
    const std::vector<std::string> headers = {
        "clientType: 19", "clientVersion: v5.25.0", "customno: 100002",      "featureCode: f-code",
        "lang: EN",       "netType: UNKNOWN",       "sessionId: the-session"};
    EXPECT_EQ(transport.Sent()[0].method, "GET");
    EXPECT_EQ(transport.Sent()[0].url, "https://c.example/v3/users/info?");
    EXPECT_EQ(transport.Sent()[0].headers, headers);
    EXPECT_EQ(transport.Sent()[1].method, "GET");
    EXPECT_EQ(transport.Sent()[1].url, "https://c.example/v3/p2pbusiness/configurations/p2p?");
    EXPECT_EQ(transport.Sent()[1].headers, headers);
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kP2PUserRequest, "v3/users/info CostTime: = 5 milliseconds")).Times(1));
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kP2PUserRequest, "p2pbusiness/configurations/p2p CostTime: = 5 milliseconds"))
                    .Times(1));
}

TEST_F(ConsumerP2PUser, FirstResponseThatIsNoJsonGivesABareOne) {
    const struct {
        const char* body;
        const char* line;
    } rows[] = {
        {"", "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = "},
        {"<html></html>", "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = <html></html>"},
        {R"({"userInfo":{"userId":"SECRET)",
         R"(ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = {"userInfo":{"userId":"***")"},
    };
    for (const auto& row : rows) {
        transport.Respond(row.body);
        const size_t before = transport.Count();
        EXPECT_EQ(Fetch(), 1);
        EXPECT_EQ(transport.Count(), before + 1);
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserRequest, row.line)).Times(1));
        ExpectUntouched();
    }
}

TEST_F(ConsumerP2PUser, FirstResponseWithAFailureGivesASilentZero) {
    const struct {
        const char* body;
        const char* line;
    } rows[] = {
        {R"({"meta":{"code":500},"userInfo":{"userId":"SECRET"}})",
         R"(CheckResponseInfoFromPlatform:{"meta":{"code":500},"userInfo":{"userId":"***"}} error:500)"},
        {R"({"meta":{"code":401}})", R"(CheckResponseInfoFromPlatform:{"meta":{"code":401}} error:401)"},
        {R"({"meta":{"code":-1}})", R"(CheckResponseInfoFromPlatform:{"meta":{"code":-1}} error:-1)"},
        {R"({"userInfo":{"userId":"SECRET"}})",
         R"(CheckResponseInfoFromPlatform:{"userInfo":{"userId":"***"}} error:2)"},
        {R"({"meta":[]})", R"(CheckResponseInfoFromPlatform:{"meta":[]} error:2)"},
        {R"([{"userId":"SECRET"}])", R"(CheckResponseInfoFromPlatform:[{"userId":"***"}] error:2)"},
        {"5", "CheckResponseInfoFromPlatform:5 error:2"},
    };
    for (const auto& row : rows) {
        transport.Respond(row.body);
        const size_t before = transport.Count();
        EXPECT_EQ(Fetch(), 0) << row.body;
        EXPECT_EQ(transport.Count(), before + 1) << "no second request";
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserRequest, row.line)).Times(1));
        ExpectUntouched();
        ExpectNoSecrets();
    }
}

TEST_F(ConsumerP2PUser, FirstTransferThatFailsEndsIt) {
    clock.SetSteadyStep(5'000'000);
    transport.Fail(28);
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserRequest,
                                             "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:28"))
                                   .Times(1));
    EXPECT_EQ(info.iRequestCost, 5);
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondTransferThatFailsHasALabelOfItsOwn) {
    clock.SetSteadyStep(5'000'000);
    transport.Respond(kFirst);
    transport.Fail(56);
    EXPECT_EQ(Fetch(), 100056);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserRequest,
                                             "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequest error:56"))
                                   .Times(1));
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kP2PUserRequest, "p2pbusiness/configurations/p2p CostTime: = 5 milliseconds"))
                    .Times(1));
    EXPECT_EQ(info.iRequestCost, 10);
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondResponseThatIsNoJsonGivesABareOne) {
    const struct {
        const char* body;
        const char* line;
    } rows[] = {
        {"<html></html>", "platform response bad, szInfo = <html></html>"},
        {R"({"secret":"SECRET","data":{"version":"SECRET)",
         R"(platform response bad, szInfo = {"secret":"***","data":{"version":"***")"},
    };
    for (const auto& row : rows) {
        transport.Respond(kFirst);
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), 1);
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserRequest, row.line)).Times(1));
        ExpectUntouched();
        ExpectNoSecrets();
    }
}

TEST_F(ConsumerP2PUser, SecondResponsesEnvelopeIsNotLookedAt) {
    transport.Respond(kFirst);
    transport.Respond(R"({"meta":{"code":500},"secret":"s","data":{"version":3,"saltIndex":4}})");
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(info.data, "s");
}

TEST_F(ConsumerP2PUser, RefusalOfTheParserIsLoggedWithTheSecretsMasked) {
    const struct {
        const char* first;
        const char* second;
        const char* parserLine;
        const char* line;
    } rows[] = {
        {R"({"meta":{"code":0}})", R"({"secret":"SECRET","data":{"version":3,"saltIndex":"SECRET"}})",
         R"(platform response invalid, szInfo = {"response1":{"meta":{"code":0}},)"
         R"("response2":{"data":{"saltIndex":"***","version":"***"},"secret":"***"}}, userInfo not exist!)",
         R"(CheckResponseInfoFromPlatform:{"response1":{"meta":{"code":0}},)"
         R"("response2":{"data":{"saltIndex":"***","version":"***"},"secret":"***"}} error:2)"},
        {R"({"meta":{},"userInfo":{"userId":"SECRET"}})", R"([{"secret":"SECRET"}])",
         R"(platform response invalid, szInfo = {"response1":{"meta":{},"userInfo":{"userId":"***"}},)"
         R"("response2":[{"secret":"***"}]}, response2 not exist!)",
         R"(CheckResponseInfoFromPlatform:{"response1":{"meta":{},"userInfo":{"userId":"***"}},)"
         R"("response2":[{"secret":"***"}]} error:2)"},
        {R"({"meta":{},"userInfo":{"userId":"SECRET"}})", R"({"data":[{"s\u0065cret":"SECRET"}]})",
         R"(platform response invalid, szInfo = {"response1":{"meta":{},"userInfo":{"userId":"***"}},)"
         R"("response2":{"data":[{"secret":"***"}]}}, data not exist!)",
         R"(CheckResponseInfoFromPlatform:{"response1":{"meta":{},"userInfo":{"userId":"***"}},)"
         R"("response2":{"data":[{"secret":"***"}]}} error:2)"},
    };
    for (const auto& row : rows) {
        transport.Respond(row.first);
        transport.Respond(row.second);
        EXPECT_EQ(Fetch(), 300002);
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserTag, row.parserLine)).Times(1));
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserRequest, row.line)).Times(1));
        ExpectUntouched();
        ExpectNoSecrets();
    }
}

/// Each half can be read, both joined stand one level too deep.
TEST_F(ConsumerP2PUser, JoinedResponseThatIsTooDeepShowsNoSecretEither) {
    transport.Respond(R"({"meta":{"code":200},"userInfo":{"userId":"SECRET"}})");
    transport.Respond(R"({"secret":"SECRET","data":{"version":3,"x":)" + std::string(998, '[') + std::string(998, ']') +
                      "}}");
    EXPECT_EQ(Fetch(), 300001);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kP2PUserTag,
                                             testing::StartsWith("platform response bad, szInfo = "
                                                                 R"({"response1":{"meta")")))
                                   .Times(1));
    EXPECT_TRUE(m_log.Contains(R"("userId":"***")"));
    EXPECT_TRUE(m_log.Contains(R"("secret":"***")"));
    ExpectNoSecrets();
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondResponseWithoutItsObjectIsMalformed) {
    for (const char* body : {"[]", "5", "null"}) {
        transport.Respond(kFirst);
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 300002) << body;
        EXPECT_TRUE(m_log.Contains("response2 not exist!"));
    }
    for (const char* body : {"{}", R"({"secret":"s"})", R"({"data":[]})", R"({"meta":{"code":401}})"}) {
        transport.Respond(kFirst);
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 300002) << body;
        EXPECT_TRUE(m_log.Contains(", data not exist!"));
        ExpectUntouched();
    }
}

}  // namespace
}  // namespace vantix::test
