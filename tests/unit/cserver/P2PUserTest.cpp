// The user's P2P identity: two requests, one parser over both answers, and a secret that stays out of the log.

#include "cserver/P2P.h"
#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseP2PUserInfoFromCServer";
constexpr char kRequest[] = "GetP2PUserInfoFromCServer";
constexpr char kFirst[] = R"({"meta":{"code":200},"userInfo":{"userId":"user-1"}})";
constexpr char kSecond[] = R"({"secret":"secret-2","data":{"version":3,"saltIndex":4}})";
constexpr char kUserPath[] = "https://c.example/v3/users/info?";
constexpr char kConfigurationPath[] = "https://c.example/v3/p2pbusiness/configurations/p2p?";

const std::vector<Member<P2PUserInfo>>& Rows() {
    static const std::vector<Member<P2PUserInfo>> rows = {
        {"/response1/userInfo/userId", &P2PUserInfo::userId},
        {"/response2/secret", &P2PUserInfo::data},
        {"/response2/data/version", &P2PUserInfo::version},
        {"/response2/data/saltIndex", &P2PUserInfo::saltIndex},
    };
    return rows;
}

Json Golden() { return {{"response1", Json::parse(kFirst)}, {"response2", Json::parse(kSecond)}}; }

P2PUserInfo Before() { return {"before", "before", -99, -99, 77}; }

class ConsumerP2PUser : public ConsumerAnswer {
protected:
    int Parse(const std::string& joined) {
        info = Before();
        lines.Clear();
        return ParseP2PUserInfoFromCServer(joined, info);
    }
    int Fetch() {
        info = Before();
        lines.Clear();
        return GetP2PUserInfoFromCServer({"https://c.example", "the-session", "the-app"}, info);
    }
    void ExpectUntouched() const { EXPECT_EQ(Values(Rows(), info), Values(Rows(), Before())); }
    size_t LinesOf(const std::string& tag) const {
        size_t count = 0;
        for (const LogLine& line : lines.Lines()) {
            count += line.Tag() == tag ? 1U : 0U;
        }
        return count;
    }

    FakeClock clock;
    ScriptedTransport transport;
    P2PUserInfo info = Before();
};

TEST_F(ConsumerP2PUser, BothAnswersFillTheRecord) {
    EXPECT_EQ(Parse(Golden().dump()), 0);
    ExpectFilled(Rows(), Golden(), info);
    EXPECT_TRUE(lines.Lines().empty()) << "nothing of it is logged";
}

TEST_F(ConsumerP2PUser, SecretInsideDataIsReadToo) {
    Json joined = Golden();
    joined["response2"].erase("secret");
    joined["response2"]["data"]["secret"] = "inner";
    EXPECT_EQ(Parse(joined.dump()), 0);
    EXPECT_EQ(info.data, "inner");
    joined["response2"]["secret"] = "outer";
    EXPECT_EQ(Parse(joined.dump()), 0);
    EXPECT_EQ(info.data, "outer") << "the one beside it goes first";
}

TEST_F(ConsumerP2PUser, MembersAreReadOnlyWithTheirType) {
    ExpectEveryMemberOnItsOwn(Rows(), Golden(), Before(), [this](const std::string& joined) {
        EXPECT_EQ(Parse(joined), 0);
        return info;
    });
}

TEST_F(ConsumerP2PUser, FourObjectsMustBeThere) {
    const struct {
        const char* place;
        const char* name;
    } rows[] = {{"/response1", "response1"},
                {"/response2", "response2"},
                {"/response1/userInfo", "userInfo"},
                {"/response2/data", "data"}};
    for (const auto& row : rows) {
        std::vector<std::string> bodies = {Without(Golden(), row.place)};
        for (const std::string& value : OddValues()) {
            if (value[0] != '{') {
                bodies.push_back(WithValue(Golden(), row.place, value));
            }
        }
        for (const std::string& body : bodies) {
            SCOPED_TRACE(body);
            EXPECT_EQ(Parse(body), 2);
            ASSERT_EQ(lines.Lines().size(), 1U);
            const LogLine line = lines.Lines()[0];
            EXPECT_EQ(line.Message().rfind("platform response invalid, szInfo = {", 0), 0U);
            const std::string end = std::string(", ") + row.name + " not exist!";
            EXPECT_EQ(line.Message().substr(line.Message().size() - end.size()), end);
            EXPECT_EQ(line.Word(), "ERROR");
            EXPECT_EQ(line.level, 5U);
            EXPECT_EQ(line.Tag(), kTag);
            EXPECT_FALSE(lines.Contains("secret-2"));
            ExpectUntouched();
        }
    }
    for (const char* body : {"{}", "[]", "5", "null", "\"x\""}) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(
            lines.Lines(),
            testing::ElementsAre(Line(
                5, "ERROR", kTag,
                R"(platform response invalid, szInfo = {"response1":null,"response2":null}, response1 not exist!)")));
    }
}

TEST_F(ConsumerP2PUser, WhatIdentifiesTheUserIsMaskedWhereTheAnswerIsLogged) {
    EXPECT_EQ(Parse(R"({"response1":{},"response2":{"secret":"one","data":{"secret":"two","version":3}}})"), 2);
    EXPECT_THAT(lines.Lines(),
                testing::ElementsAre(
                    Line(5, "ERROR", kTag,
                         "platform response invalid, szInfo = "
                         R"({"response1":{},"response2":{"data":{"secret":"***","version":"***"},"secret":"***"}})"
                         ", userInfo not exist!")));
    EXPECT_EQ(Parse(R"({"response1":{"userInfo":{"userId":"somebody","name":"n"}},"response2":{}})"), 2);
    EXPECT_THAT(lines.Lines(),
                testing::ElementsAre(
                    Line(5, "ERROR", kTag,
                         "platform response invalid, szInfo = "
                         R"({"response1":{"userInfo":{"name":"n","userId":"***"}},"response2":{}}, data not exist!)")));
    EXPECT_EQ(Parse(R"({"response1":{},"response2":{"secret":{"deep":"one"}}})"), 2);
    EXPECT_FALSE(lines.Contains("one"));
}

TEST_F(ConsumerP2PUser, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        if (body.size() < 1000) {
            EXPECT_THAT(lines.Lines(),
                        testing::ElementsAre(Line(5, "ERROR", kTag, "platform response bad, szInfo = " + body)));
        }
    }
    ExpectTruncationIsNoJson(Golden().dump(), [this](const std::string& body) { return Parse(body); });
}

// ---- The requests

TEST_F(ConsumerP2PUser, TwoRequestsInSequenceFillTheRecord) {
    clock.SetSteadyStep(5'000'000);
    transport.Respond(kFirst);
    transport.Respond(kSecond);
    EXPECT_EQ(Fetch(), 0);
    ExpectFilled(Rows(), Golden(), info);
    EXPECT_EQ(info.iRequestCost, 10) << "of both";
    ASSERT_EQ(transport.Count(), 2U);
    EXPECT_EQ(transport.Sent()[0].url, kUserPath);
    EXPECT_EQ(transport.Sent()[1].url, kConfigurationPath);
    EXPECT_EQ(transport.Sent()[0].headers, transport.Sent()[1].headers);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kRequest, "v3/users/info CostTime: = 5 milliseconds"));
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kRequest, "p2pbusiness/configurations/p2p CostTime: = 5 milliseconds"));
}

TEST_F(ConsumerP2PUser, FirstAnswerThatIsNoJsonGivesABareOne) {
    for (const char* body : {"", "<html></html>", "{"}) {
        transport.Respond(body);
        const size_t before = transport.Count();
        EXPECT_EQ(Fetch(), 1);
        EXPECT_EQ(transport.Count(), before + 1);
        EXPECT_THAT(
            lines.Lines(),
            HasLine(5, "ERROR", kRequest,
                    std::string("ZQR TEST QX_API_B2C_GET_P2P_USER_INFO platform response bad, szInfo = ") + body));
        ExpectUntouched();
    }
}

TEST_F(ConsumerP2PUser, FirstAnswerWithAFailureGivesASilentZero) {
    const struct {
        const char* body;
        int code;
    } rows[] = {{R"({"meta":{"code":500},"userInfo":{"userId":"u"}})", 500},
                {R"({"meta":{"code":401}})", 401},
                {R"({"meta":{"code":-1}})", -1},
                {R"({"userInfo":{"userId":"u"}})", 2},
                {R"({"meta":[]})", 2},
                {R"({"meta":null})", 2},
                {"[]", 2},
                {"5", 2}};
    for (const auto& row : rows) {
        transport.Respond(row.body);
        const size_t before = transport.Count();
        EXPECT_EQ(Fetch(), 0) << row.body;
        EXPECT_EQ(transport.Count(), before + 1) << "no second request";
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest,
                                           std::string("CheckResponseInfoFromPlatform:") + row.body +
                                               " error:" + std::to_string(row.code)));
        ExpectUntouched();
    }
}

TEST_F(ConsumerP2PUser, FirstTransferThatFailsEndsIt) {
    clock.SetSteadyStep(5'000'000);
    transport.Fail(28);
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kRequest, "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:28"));
    EXPECT_EQ(info.iRequestCost, 5);
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondTransferThatFailsHasALabelOfItsOwn) {
    clock.SetSteadyStep(5'000'000);
    transport.Respond(kFirst);
    transport.Fail(56);
    EXPECT_EQ(Fetch(), 100056);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kRequest, "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequest error:56"));
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kRequest, "p2pbusiness/configurations/p2p CostTime: = 5 milliseconds"));
    EXPECT_EQ(info.iRequestCost, 10);
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondAnswerThatIsNoJsonGivesABareOne) {
    transport.Respond(kFirst);
    transport.Respond("<html></html>");
    EXPECT_EQ(Fetch(), 1);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest, "platform response bad, szInfo = <html></html>"));
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondAnswersEnvelopeIsNotLookedAt) {
    transport.Respond(kFirst);
    transport.Respond(R"({"meta":{"code":500},"secret":"s","data":{"version":3,"saltIndex":4}})");
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(info.data, "s");
}

TEST_F(ConsumerP2PUser, RefusalOfTheParserIsLoggedWithTheSecretMasked) {
    transport.Respond(R"({"meta":{"code":0}})");
    transport.Respond(kSecond);
    EXPECT_EQ(Fetch(), 300002);
    const std::string joined =
        R"({"response1":{"meta":{"code":0}},"response2":{"data":{"saltIndex":"***","version":"***"},"secret":"***"}})";
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kTag, "platform response invalid, szInfo = " + joined + ", userInfo not exist!"));
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest, "CheckResponseInfoFromPlatform:" + joined + " error:2"));
    EXPECT_EQ(LinesOf(kTag), 1U);
    for (const LogLine& line : lines.Lines()) {
        if (line.Tag() == kTag || line.Tag() == kRequest) {
            EXPECT_EQ(line.text.find("secret-2"), std::string::npos) << line.text;
        }
    }
    ExpectUntouched();
}

TEST_F(ConsumerP2PUser, SecondAnswerWithoutItsObjectIsMalformed) {
    for (const char* body : {"[]", "5", "null"}) {
        transport.Respond(kFirst);
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 300002) << body;
        EXPECT_TRUE(lines.Contains("response2 not exist!"));
    }
    for (const char* body : {"{}", R"({"secret":"s"})", R"({"data":[]})", R"({"meta":{"code":401}})"}) {
        transport.Respond(kFirst);
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 300002) << body;
        EXPECT_TRUE(lines.Contains(", data not exist!"));
        ExpectUntouched();
    }
}

}  // namespace
}  // namespace vantix::test
