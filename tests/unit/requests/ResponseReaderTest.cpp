#include "requests/ResponseReader.h"

#include <gtest/gtest.h>

#include <string>

#include "requests/Envelope.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

namespace vantix::json {
namespace {

class Answer : public testing::Test {
protected:
    /// Reads a body by the common rule; the payload's result is 0 unless a case says another.
    int Read(const std::string& body, int payloadResult = 0) {
        return ReadAnswer(VANTIX_HERE, body, EnvelopeCode<JsonCppView>, [&, payloadResult](const JsonCppView& root) {
            ++payloads;
            rootIsObject = root.IsObject();
            return payloadResult;
        });
    }

    void ExpectOneLine(const std::string& word, unsigned lineLevel, const std::string& message) const {
        ASSERT_EQ(log.Messages(), std::vector<std::string>{message});
        EXPECT_EQ(log.Lines()[0].Word(), word);
        EXPECT_EQ(log.Lines()[0].level, lineLevel);
    }

    test::CleanSwitches switches;
    test::LogCapture log;
    int payloads = 0;
    bool rootIsObject = false;
};

TEST_F(Answer, ThatIsNotJsonIsOneAndALineWithTheBody) {
    EXPECT_EQ(Read("<html>%s</html>"), 1);
    EXPECT_EQ(payloads, 0);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = <html>%s</html>");
}

TEST_F(Answer, ThatIsEmptyIsNotJson) {
    EXPECT_EQ(Read(""), 1);
    EXPECT_EQ(payloads, 0);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = ");
}

TEST_F(Answer, WithACodeIsThatCodeAndALineWithTheBody) {
    EXPECT_EQ(Read(R"({"resultCode": "10002"})"), 10002);
    EXPECT_EQ(payloads, 0);
    ExpectOneLine("INFO ", 3, R"(Platform Response Error:10002, Resp:{"resultCode": "10002"})");
}

TEST_F(Answer, WithoutAnEnvelopeIsTwoAndALineWithTheBody) {
    EXPECT_EQ(Read("[1]"), 2);
    EXPECT_EQ(payloads, 0);
    ExpectOneLine("INFO ", 3, "Platform Response Error:2, Resp:[1]");
}

TEST_F(Answer, ThatIsASuccessGoesToThePayloadWithoutALine) {
    EXPECT_EQ(Read(R"({"code": "200"})"), 0);
    EXPECT_EQ(payloads, 1);
    EXPECT_TRUE(rootIsObject);
    EXPECT_TRUE(log.Lines().empty());
}

TEST_F(Answer, GivesThePayloadsOwnCodeWithoutALine) {
    EXPECT_EQ(Read(R"({"code": "0"})", 2), 2);
    EXPECT_TRUE(log.Lines().empty());
}

TEST_F(Answer, LinesBearTheCallSitesName) {
    ReadAnswer(CallSite{"int vantix::ParseSomething(const std::string&)", 17}, "", EnvelopeCode<JsonCppView>,
               [](const JsonCppView&) { return 0; });
    ASSERT_EQ(log.Lines().size(), 1U);
    EXPECT_EQ(log.Lines()[0].Tag(), "ParseSomething");
    EXPECT_NE(log.Lines()[0].text.find(">\t<17>,"), std::string::npos);
}

TEST_F(Answer, TheRuleIsTheCallers) {
    const std::string body = R"({"resultCode": "10002", "meta": {"code": 200}})";
    EXPECT_EQ(ReadAnswer(VANTIX_HERE, body, MetaCode<JsonCppView>, [](const JsonCppView&) { return 0; }), 0);
    EXPECT_EQ(ReadAnswer(VANTIX_HERE, body, EnvelopeCode<JsonCppView>, [](const JsonCppView&) { return 0; }), 10002);
}

TEST_F(Answer, ParseBodyTellsAndLogs) {
    JsonCppDocument document;
    EXPECT_TRUE(ParseBody(VANTIX_HERE, "{}", document));
    EXPECT_TRUE(document.Root().IsObject());
    EXPECT_TRUE(log.Lines().empty());
    EXPECT_FALSE(ParseBody(VANTIX_HERE, "{", document));
    EXPECT_TRUE(document.Root().IsNull());
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = {");
}

TEST_F(Answer, MalformedIsTwoAndALine) {
    EXPECT_EQ(Malformed(VANTIX_HERE, "{}"), 2);
    ExpectOneLine("ERROR", 5, "platform response invalid, szInfo = {}");
}

TEST_F(Answer, MalformedMayNameTheMember) {
    EXPECT_EQ(Malformed(VANTIX_HERE, "{\"100%\": 1}", "cameraInfo"), 2);
    ExpectOneLine("ERROR", 5, R"(platform response invalid, szInfo = {"100%": 1}, cameraInfo not exist!)");
}

TEST_F(Answer, ALineThatIsFilteredOutChangesNoCode) {
    iLogLevel = 6;
    EXPECT_EQ(Read(""), 1);
    EXPECT_EQ(Read("{}"), 2);
    EXPECT_EQ(Malformed(VANTIX_HERE, ""), 2);
    EXPECT_TRUE(log.Lines().empty());
}

}  // namespace
}  // namespace vantix::json
