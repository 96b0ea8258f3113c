// Stream tokens, which nobody looks at here, and the renewal of the session with its bare codes.

#include "cserver/Tokens.h"

#include "requests/FeatureCode.h"
#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseRefreshSessionnFromCServer";
constexpr char kRequest[] = "RefreshSessionFromCServer";
constexpr char kGolden[] =
    R"({"meta":{"code":200},"sessionInfo":{"refreshSessionId":"fresh-refresher","sessionId":"fresh-session"}})";

class ConsumerSession : public ConsumerAnswer {
protected:
    int Parse(const std::string& body) {
        session = {"old-session", "old-refresher"};
        lines.Clear();
        return ParseRefreshSessionnFromCServer(body, session);
    }
    int Refresh() {
        session = {"old-session", "old-refresher"};
        lines.Clear();
        return RefreshSessionFromCServer({"https://c.example", "the-session", "the-app"}, session);
    }
    void ExpectUntouched() const {
        EXPECT_EQ(session.sessionId, "old-session");
        EXPECT_EQ(session.refreshSessionId, "old-refresher");
    }
    void ExpectFresh() const {
        EXPECT_EQ(session.sessionId, "fresh-session");
        EXPECT_EQ(session.refreshSessionId, "fresh-refresher");
    }

    ScriptedTransport transport;
    SessionInfo session;
};

TEST_F(ConsumerSession, BothIdsAreReplaced) {
    EXPECT_EQ(Parse(kGolden), 0);
    ExpectFresh();
    EXPECT_TRUE(lines.Lines().empty());
}

/// The golden answer without this member of the session, and with every value in its place that is no text.
std::vector<std::string> WithoutText(const char* name) {
    const std::string place = std::string("/sessionInfo/") + name;
    std::vector<std::string> bodies = {Without(Json::parse(kGolden), place)};
    for (const std::string& value : OddValues()) {
        if (value[0] != '"') {
            bodies.push_back(WithValue(Json::parse(kGolden), place, value));
        }
    }
    return bodies;
}

TEST_F(ConsumerSession, SessionIdMustBeAText) {
    for (const std::string& body : WithoutText("sessionId")) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(),
                    testing::ElementsAre(Line(
                        5, "ERROR", kTag, "platform response invalid, szInfo = " + body + ", sessionId not exist!")));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, WithoutARefreshIdTheOldOneStays) {
    for (const std::string& body : WithoutText("refreshSessionId")) {
        EXPECT_EQ(Parse(body), 0) << body;
        EXPECT_EQ(session.sessionId, "fresh-session");
        EXPECT_EQ(session.refreshSessionId, "old-refresher");
        EXPECT_TRUE(lines.Lines().empty());
    }
}

TEST_F(ConsumerSession, SessionMustBeAnObject) {
    std::vector<std::string> bodies = {"{}",
                                       "[]",
                                       "5",
                                       "null",
                                       "\"x\"",
                                       Without(Json::parse(kGolden), "/sessionInfo"),
                                       R"({"data":{"sessionInfo":{"sessionId":"a","refreshSessionId":"b"}}})"};
    for (const std::string& value : OddValues()) {
        if (value[0] != '{') {
            bodies.push_back(WithValue(Json::parse(kGolden), "/sessionInfo", value));
        }
    }
    for (const std::string& body : bodies) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(),
                    testing::ElementsAre(Line(
                        5, "ERROR", kTag, "platform response invalid, szInfo = " + body + ", sessionInfo not exist!")));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        if (body.size() < 1000) {
            EXPECT_THAT(lines.Lines(),
                        testing::ElementsAre(Line(5, "ERROR", kTag, "platform response bad, szInfo = " + body)));
        }
    }
    ExpectTruncationIsNoJson(kGolden, [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerSession, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(Json::parse(kGolden), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(
                                           3, "INFO ", kTag,
                                           "Platform Response Error:" + std::to_string(row.code) + ", Resp:" + body)));
            ExpectUntouched();
        }
    }
    EXPECT_EQ(Parse(Without(Json::parse(kGolden), "/meta")), 0) << "the parser needs no envelope";
}

// ---- The request

TEST_F(ConsumerSession, RefreshIsAPutWithoutABody) {
    transport.Respond(kGolden);
    EXPECT_EQ(Refresh(), 0);
    ExpectFresh();
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "PUT");
    EXPECT_EQ(sent.url, "https://c.example/v3/apigateway/login?featureCode=" + PublicGetHDSign() +
                            "&refreshSessionId=old-refresher");
    EXPECT_EQ(sent.body, "");
    EXPECT_FALSE(lines.Contains("CostTime")) << "this request is not timed";
}

TEST_F(ConsumerSession, RefreshReturnsTheServersOwnCodeBare) {
    for (const int code : {401, 201, 10002, 1, 2, -5, 2147483647}) {
        const std::string text = std::to_string(code);
        const std::string body =
            R"({"meta":{"code":)" + text + R"(},"sessionInfo":{"sessionId":"a","refreshSessionId":"b"}})";
        transport.Respond(body);
        EXPECT_EQ(Refresh(), code);
        EXPECT_THAT(lines.Lines(),
                    HasLine(3, "INFO ", kRequest,
                            std::string("ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:").append(text) +
                                ", Resp:" + body));
        EXPECT_FALSE(lines.Contains(kTag));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, RefreshGivesABareOneForWhatIsNoJson) {
    for (const char* body : {"", "<html>%s</html>", "{\"meta\":"}) {
        transport.Respond(body);
        EXPECT_EQ(Refresh(), 1);
        EXPECT_THAT(
            lines.Lines(),
            HasLine(5, "ERROR", kRequest,
                    std::string("ZQR TEST QX_API_B2C_REFRESH_SESSION platform response bad, szInfo = ") + body));
        EXPECT_FALSE(lines.Contains(kTag));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, RefreshWithoutAnEnvelopeIsMalformed) {
    for (const std::string& body :
         {std::string("{}"), std::string("[]"), std::string("5"), Without(Json::parse(kGolden), "/meta"),
          WithValue(Json::parse(kGolden), "/meta", "401")}) {
        transport.Respond(body);
        EXPECT_EQ(Refresh(), 300002) << body;
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", kRequest, "ZQR TEST RefreshSessionFromCServer:" + body + " error:2"));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, ParsersRefusalOfARefreshHasTheBase) {
    for (const char* body :
         {R"({"meta":{"code":200}})", R"({"meta":{"code":0},"sessionInfo":{"refreshSessionId":"a"}})",
          R"({"meta":{},"sessionInfo":[]})"}) {
        transport.Respond(body);
        EXPECT_EQ(Refresh(), 300002) << body;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest,
                                           std::string("ZQR TEST RefreshSessionFromCServer:") + body + " error:2"));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, FailedTransferOfARefreshIsPassedOn) {
    transport.Fail(28);
    EXPECT_EQ(Refresh(), 100028);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", kRequest, "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:28"));
    ExpectUntouched();
}

// ---- Stream tokens

TEST_F(ConsumerSession, StreamTokensAreTheWholeAnswerWhateverItSays) {
    for (const std::string& body : {std::string(R"({"resultCode":"200","tokenArray":["t"]})"), std::string(),
                                    std::string("no json"), std::string(R"({"meta":{"code":401}})")}) {
        std::string answer = "before";
        lines.Clear();
        transport.Respond(body);
        EXPECT_EQ(GetStreamTokensFromCServer({"https://c.example", "the-session", "the-app"}, answer), 0);
        EXPECT_EQ(answer, body);
        for (const LogLine& line : lines.Lines()) {
            EXPECT_NE(line.Tag(), "GetStreamTokensFromCServer") << line.text;
        }
    }
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.url, "https://c.example/api/user/token/get?sessionId=the-session");
    EXPECT_EQ(sent.body, "");
    EXPECT_EQ(sent.headers, std::vector<std::string>{"sessionId: the-session"});
    EXPECT_FALSE(lines.Contains("the-session"));
}

TEST_F(ConsumerSession, StreamTokensOfAFailedTransferStayAsTheyWere) {
    std::string answer = "before";
    transport.Fail(35);
    EXPECT_EQ(GetStreamTokensFromCServer({"https://c.example", "the-session", "the-app"}, answer), 100035);
    EXPECT_EQ(answer, "before");
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "GetStreamTokensFromCServer", "SyncRequest error:35"));
}

}  // namespace
}  // namespace vantix::test
