// Stream tokens, which are passed on unread, and the renewal of the session with its bare codes.

#include "cserver/Tokens.h"

#include "support/FixedFeatureCode.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr char kTokensTag[] = "ParseRefreshSessionnFromCServer";
constexpr char kTokensRequest[] = "RefreshSessionFromCServer";
constexpr char kTokensWhole[] =
    R"({"meta":{"code":200},"sessionInfo":{"refreshSessionId":"fresh-refresher","sessionId":"fresh-session"}})";

class ConsumerSession : public ConsumerResponse {
protected:
    int Parse(const std::string& body) {
        session = {"old-session", "old-refresher"};
        m_log.Clear();
        return ParseRefreshSessionnFromCServer(body, session);
    }
    int Refresh() {
        session = {"old-session", "old-refresher"};
        m_log.Clear();
        return RefreshSessionFromCServer(Route(), session);
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
    EXPECT_EQ(Parse(kTokensWhole), 0);
    ExpectFresh();
    EXPECT_TRUE(m_log.Lines().empty());
}

/// The whole response without this member of the session, and with every value in its place that is no text.
std::vector<std::string> WithoutText(const char* name) {
    const std::string place = std::string("/sessionInfo/") + name;
    std::vector<std::string> bodies = {Without(Json::parse(kTokensWhole), place)};
    for (const MemberValue& value : NoTexts()) {
        bodies.push_back(WithValue(Json::parse(kTokensWhole), place, value.sent));
    }
    return bodies;
}

TEST_F(ConsumerSession, SessionIdMustBeAText) {
    for (const std::string& body : WithoutText("sessionId")) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kTokensTag,
                                     "platform response invalid, szInfo = " + body + ", sessionId not exist!")));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, WithoutARefreshIdTheOldOneStays) {
    for (const std::string& body : WithoutText("refreshSessionId")) {
        EXPECT_EQ(Parse(body), 0) << body;
        EXPECT_EQ(session.sessionId, "fresh-session");
        EXPECT_EQ(session.refreshSessionId, "old-refresher");
        EXPECT_TRUE(m_log.Lines().empty());
    }
}

TEST_F(ConsumerSession, SessionMustBeAnObject) {
    std::vector<std::string> bodies = {"{}",
                                       "[]",
                                       "5",
                                       "null",
                                       "\"x\"",
                                       Without(Json::parse(kTokensWhole), "/sessionInfo"),
                                       R"({"data":{"sessionInfo":{"sessionId":"a","refreshSessionId":"b"}}})"};
    for (const MemberValue& value : NoObjects()) {
        bodies.push_back(WithValue(Json::parse(kTokensWhole), "/sessionInfo", value.sent));
    }
    for (const std::string& body : bodies) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kTokensTag,
                                     "platform response invalid, szInfo = " + body + ", sessionInfo not exist!")));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kTokensTag, "platform response bad, szInfo = " + body)));
    }
    ExpectTruncationIsNoJson(kTokensWhole, [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerSession, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(Json::parse(kTokensWhole), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(m_log.Lines(), ElementsAre(Line(3, "INFO ", kTokensTag, row.line + body)));
            ExpectUntouched();
        }
    }
    EXPECT_EQ(Parse(Without(Json::parse(kTokensWhole), "/meta")), 0) << "the parser needs no envelope";
}

// ---- The request

TEST_F(ConsumerSession, RefreshReplacesBothIds) {
    transport.Respond(kTokensWhole);
    EXPECT_EQ(Refresh(), 0);
    ExpectFresh();
    EXPECT_FALSE(m_log.Contains("CostTime")) << "this request is not timed";
}

TEST_F(ConsumerSession, RefreshSaysOfThisComputerTheSameInHeaderAndParameter) {
    const FixedFeatureCode fixed;
    transport.Respond(kTokensWhole);
    EXPECT_EQ(Refresh(), 0);
    EXPECT_EQ(transport.Sent()[0].Param("featureCode"), "f-code");
    EXPECT_THAT(transport.Sent()[0].headers, Contains("featureCode: f-code"));
}

TEST_F(ConsumerSession, RefreshReturnsTheServersOwnCodeBare) {
    const struct {
        int code;
        const char* body;
        const char* line;
    } rows[] = {
        {401, R"({"meta":{"code":401},"sessionInfo":{"sessionId":"a"}})",
         R"(ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:401, Resp:{"meta":{"code":401},"sessionInfo":{"sessionId":"a"}})"},
        {10002, R"({"meta":{"code":10002}})",
         R"(ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:10002, Resp:{"meta":{"code":10002}})"},
        {2, R"({"meta":{"code":2}})",
         R"(ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:2, Resp:{"meta":{"code":2}})"},
        {-5, R"({"meta":{"code":-5}})",
         R"(ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:-5, Resp:{"meta":{"code":-5}})"},
        {2147483647, R"({"meta":{"code":2147483647}})",
         R"(ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:2147483647, Resp:{"meta":{"code":2147483647}})"},
    };
    for (const auto& row : rows) {
        transport.Respond(row.body);
        EXPECT_EQ(Refresh(), row.code);
        EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTokensRequest, row.line)).Times(1));
        EXPECT_FALSE(m_log.Contains(kTokensTag));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, RefreshGivesABareOneForWhatIsNoJson) {
    for (const char* body : {"", "<html>%s</html>", "{\"meta\":"}) {
        transport.Respond(body);
        EXPECT_EQ(Refresh(), 1);
        EXPECT_THAT(
            m_log.Lines(),
            Contains(Line(5, "ERROR", kTokensRequest,
                          std::string("ZQR TEST QX_API_B2C_REFRESH_SESSION platform response bad, szInfo = ") + body))
                .Times(1));
        EXPECT_FALSE(m_log.Contains(kTokensTag));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, RefreshWithoutAnEnvelopeIsMalformed) {
    for (const std::string& body :
         {std::string("{}"), std::string("[]"), std::string("5"), Without(Json::parse(kTokensWhole), "/meta"),
          WithValue(Json::parse(kTokensWhole), "/meta", "401")}) {
        transport.Respond(body);
        EXPECT_EQ(Refresh(), 300002) << body;
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kTokensRequest,
                                                 "ZQR TEST RefreshSessionFromCServer:" + body + " error:2"))
                                       .Times(1));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, ParsersRefusalOfARefreshHasTheBase) {
    for (const char* body :
         {R"({"meta":{"code":200}})", R"({"meta":{"code":0},"sessionInfo":{"refreshSessionId":"a"}})",
          R"({"meta":{},"sessionInfo":[]})"}) {
        transport.Respond(body);
        EXPECT_EQ(Refresh(), 300002) << body;
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(5, "ERROR", kTokensRequest,
                                  std::string("ZQR TEST RefreshSessionFromCServer:") + body + " error:2"))
                        .Times(1));
        ExpectUntouched();
    }
}

TEST_F(ConsumerSession, FailedTransferOfARefreshIsPassedOn) {
    transport.Fail(28);
    EXPECT_EQ(Refresh(), 100028);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kTokensRequest,
                                             "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:28"))
                                   .Times(1));
    ExpectUntouched();
}

// ---- Stream tokens

TEST_F(ConsumerSession, StreamTokensAreTheWholeResponseWhateverItSays) {
    for (const std::string& body : {std::string(R"({"resultCode":"200","tokenArray":["t"]})"), std::string(),
                                    std::string("no json"), std::string(R"({"meta":{"code":401}})")}) {
        std::string response = "before";
        m_log.Clear();
        transport.Respond(body);
        EXPECT_EQ(GetStreamTokensFromCServer(Route(), response), 0);
        EXPECT_EQ(response, body);
        for (const LogLine& line : m_log.Lines()) {
            EXPECT_NE(line.Tag(), "GetStreamTokensFromCServer") << line.text;
        }
    }
    EXPECT_FALSE(m_log.Contains("the-session"));
}

TEST_F(ConsumerSession, StreamTokensOfAFailedTransferStayAsTheyWere) {
    std::string response = "before";
    transport.Fail(35);
    EXPECT_EQ(GetStreamTokensFromCServer(Route(), response), 100035);
    EXPECT_EQ(response, "before");
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(5, "ERROR", "GetStreamTokensFromCServer", "SyncRequest error:35")).Times(1));
}

}  // namespace
}  // namespace vantix::test
