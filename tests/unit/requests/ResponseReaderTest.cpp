#include "requests/ResponseReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "log/Logger.h"
#include "requests/Envelope.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

using json::Json11View;
using json::JsonCppDocument;
using json::JsonCppView;

class ResponseReader : public testing::Test {
protected:
    /// Reads a body by the common rule; the payload's result is 0 unless a case says another.
    int Read(const std::string& body, int payloadResult = 0) {
        return ReadResponse(m_site, body, EnvelopeCode, [&, payloadResult](const JsonCppView& root) {
            ++m_payloads;
            EXPECT_TRUE(root.IsObject());
            return payloadResult;
        });
    }
    /// Reads the object "result"."data" with JsonCpp, and notes the text "a" in it.
    int ReadObject(const std::string& body) {
        return ReadObjectResponse(m_site, body, EnvelopeCode, ResultData, [&](const JsonCppView& data) {
            ++m_payloads;
            data.Member("a").Read(m_text);
        });
    }
    /// The same with json11.
    int ReadObjectWithJson11(const std::string& body) {
        return ReadObjectResponse(m_site, body, EnvelopeCode, ResultData, [&](const Json11View& data) {
            ++m_payloads;
            data.Member("a").Read(m_text);
        });
    }

    void ExpectOneLine(const std::string& word, unsigned lineLevel, const std::string& message) {
        ASSERT_EQ(m_log.Messages(), std::vector<std::string>{message});
        const LogLine line = m_log.Lines()[0];
        EXPECT_EQ(line.Word(), word);
        EXPECT_EQ(line.level, lineLevel);
        EXPECT_EQ(line.Tag(), "ParseSomething");
        EXPECT_NE(line.text.find(">\t<17>,"), std::string::npos);
        m_log.Clear();
    }

    const CallSite m_site{"int vantix::ParseSomething(const std::string&)", 17};
    CleanSwitches m_switches;
    LogCapture m_log;
    int m_payloads = 0;
    std::string m_text;
};

TEST_F(ResponseReader, WhatIsNotJsonIsOneAndALineWithTheBody) {
    EXPECT_EQ(Read("<html>%s</html>"), 1);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = <html>%s</html>");
    EXPECT_EQ(Read(""), 1);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = ");
    EXPECT_EQ(m_payloads, 0);
}

TEST_F(ResponseReader, ACodeIsReturnedWithALineAndTheBody) {
    EXPECT_EQ(Read(R"({"resultCode": "10002"})"), 10002);
    ExpectOneLine("INFO ", 3, R"(Platform Response Error:10002, Resp:{"resultCode": "10002"})");
    EXPECT_EQ(Read("[1]"), 2);
    ExpectOneLine("INFO ", 3, "Platform Response Error:2, Resp:[1]");
    EXPECT_EQ(m_payloads, 0);
}

TEST_F(ResponseReader, ASuccessGoesToThePayloadWithoutALine) {
    EXPECT_EQ(Read(R"({"code": "200"})"), 0);
    EXPECT_EQ(m_payloads, 1);
    EXPECT_EQ(Read(R"({"code": "0"})", 2), 2) << "the payload's own code";
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(ResponseReader, TheRuleIsTheParsersChoice) {
    const std::string body = R"({"resultCode": "10002", "meta": {"code": 200}})";
    EXPECT_EQ(ReadResponse(m_site, body, MetaCode, [](const JsonCppView&) { return 0; }), 0);
    EXPECT_EQ(ReadResponse(m_site, body, EnvelopeCode, [](const JsonCppView&) { return 0; }), 10002);
}

TEST_F(ResponseReader, AnObjectIsReadWithEitherLibrary) {
    const std::string body = R"({"result":{"code":"200","data":{"a":"text"}}})";
    EXPECT_EQ(ReadObject(body), 0);
    EXPECT_EQ(m_text, "text");
    m_text.clear();
    EXPECT_EQ(ReadObjectWithJson11(body), 0);
    EXPECT_EQ(m_text, "text");
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(ResponseReader, APayloadThatIsNoObjectIsMalformed) {
    for (const std::string body :
         {R"({"code":"200"})", R"({"code":"200","result":{"data":null}})", R"({"code":"200","result":{"data":[]}})",
          R"({"code":"200","result":{"data":"{}"}})", R"({"code":"200","data":{}})"}) {
        EXPECT_EQ(ReadObject(body), 2);
        ExpectOneLine("ERROR", 5, "platform response invalid, szInfo = " + body);
        EXPECT_EQ(ReadObjectWithJson11(body), 2);
        ExpectOneLine("ERROR", 5, "platform response invalid, szInfo = " + body);
    }
    EXPECT_EQ(m_payloads, 0);
}

TEST_F(ResponseReader, AnObjectOfARefusedResponseIsNotLookedAt) {
    const std::string refused = R"({"result":{"code":"10002","data":{"a":"text"}}})";
    EXPECT_EQ(ReadObject(refused), 10002);
    ExpectOneLine("INFO ", 3, "Platform Response Error:10002, Resp:" + refused);
    EXPECT_EQ(ReadObjectWithJson11(refused), 10002);
    ExpectOneLine("INFO ", 3, "Platform Response Error:10002, Resp:" + refused);
    EXPECT_EQ(ReadObject("{"), 1);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = {");
    EXPECT_EQ(ReadObjectWithJson11("{"), 1);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = {");
    EXPECT_EQ(m_payloads, 0);
}

TEST_F(ResponseReader, ACheckReturnsTheCodeWithoutALine) {
    EXPECT_EQ(CheckResponse(m_site, R"({"code":"200"})", EnvelopeCode), 0);
    EXPECT_EQ(CheckResponse(m_site, R"({"code":"10002"})", EnvelopeCode), 10002);
    EXPECT_EQ(CheckResponse(m_site, "{}", EnvelopeCode), 2);
    EXPECT_TRUE(m_log.Lines().empty());
    EXPECT_EQ(CheckResponse(m_site, "", EnvelopeCode), 1);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = ");
}

TEST_F(ResponseReader, ABodyIsParsedOrLogged) {
    JsonCppDocument document;
    EXPECT_EQ(ParseBody(m_site, "{}", document), 0);
    EXPECT_TRUE(document.Root().IsObject());
    EXPECT_TRUE(m_log.Lines().empty());
    EXPECT_EQ(ParseBody(m_site, "{", document), 1);
    EXPECT_TRUE(document.Root().IsNull());
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = {");
}

TEST_F(ResponseReader, EveryLineHasItsWordsAndItsCode) {
    EXPECT_EQ(LogNotJson(m_site, "%s"), 1);
    ExpectOneLine("ERROR", 5, "platform response bad, szInfo = %s");
    EXPECT_EQ(LogMalformed(m_site, "{}"), 2);
    ExpectOneLine("ERROR", 5, "platform response invalid, szInfo = {}");
    EXPECT_EQ(LogMalformed(m_site, R"({"100%": 1})", "cameraInfo"), 2);
    ExpectOneLine("ERROR", 5, R"(platform response invalid, szInfo = {"100%": 1}, cameraInfo not exist!)");
    EXPECT_EQ(
        LogMissingText(m_site, "{}", "platform response invalid, [userName] not exist or not string, szInfo = %s"), 2);
    ExpectOneLine("ERROR", 5, "platform response invalid, [userName] not exist or not string, szInfo = {}");
    EXPECT_EQ(LogNoObject(m_site, "{}", "platform response bad, [result] is not object, Resp:%s"), 2);
    ExpectOneLine("INFO ", 3, "platform response bad, [result] is not object, Resp:{}");
}

TEST_F(ResponseReader, ALineThatIsFilteredOutChangesNoCode) {
    iLogLevel = 6;
    EXPECT_EQ(Read(""), 1);
    EXPECT_EQ(Read("{}"), 2);
    EXPECT_EQ(LogMalformed(m_site, ""), 2);
    EXPECT_TRUE(m_log.Lines().empty());
}

}  // namespace
}  // namespace vantix::test
