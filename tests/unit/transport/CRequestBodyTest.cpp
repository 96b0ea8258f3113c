// How the body of a response is handed out, and what of it is logged.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"
#include "unit/transport/CurlSpy.h"
#include "unit/transport/Operations.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;

class CRequestBody : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
    CurlSpy m_spy;
};

TEST_F(CRequestBody, ArrivesInABlockOfItsOwnWithATerminatingZero) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_spy.Clear();
        m_spy.Respond(CURLE_OK, {R"({"code":)", "", R"("200"})"});
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.result, 0);
        ASSERT_NE(outcome.response, nullptr);
        EXPECT_EQ(outcome.length, 14U);
        EXPECT_STREQ(outcome.response, R"({"code":"200"})");
        const Outcome second(operation);
        EXPECT_NE(second.response, outcome.response);
        EXPECT_EQ(second.Body(), outcome.Body());
    }
}

TEST_F(CRequestBody, ThatIsEmptyIsABlockToo) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.result, 0);
        ASSERT_NE(outcome.response, nullptr);
        EXPECT_EQ(outcome.length, 0U);
        EXPECT_EQ(outcome.response[0], '\0');
    }
}

TEST_F(CRequestBody, OfAFailedTransferIsHandedOutAsFarAsItCame) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_spy.Clear();
        m_spy.Respond(CURLE_PARTIAL_FILE, {R"({"code")"});
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.result, CURLE_PARTIAL_FILE);
        EXPECT_EQ(outcome.Body(), R"({"code")");
        EXPECT_EQ(outcome.response[outcome.length], '\0');
    }
}

TEST_F(CRequestBody, MayHoldZeros) {
    const std::string body("a\0b\0", 4);
    m_spy.Respond(CURLE_OK, {body});
    const Outcome outcome(Operations()[0]);
    EXPECT_EQ(outcome.length, 4U);
    EXPECT_EQ(outcome.Body(), body);
    EXPECT_EQ(outcome.response[4], '\0');
}

TEST_F(CRequestBody, WithoutAPlaceForItHasItsLengthHandedOutAlone) {
    m_spy.Respond(CURLE_OK, {"text"});
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        const std::string second = operation.takesFile ? ExistingFile() : kParameters;
        uint32_t length = 4711;
        EXPECT_EQ(operation.run(CRequest(), kAddress, second.c_str(), nullptr, &length), 0);
        EXPECT_EQ(length, 4U);
    }
}

TEST_F(CRequestBody, MayBeMegabytes) {
    const std::string piece(1U << 20U, 'x');
    m_spy.Respond(CURLE_OK, {piece, piece, piece, piece});
    const Outcome outcome(Operations()[1]);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.length, 4U << 20U);
    EXPECT_EQ(outcome.Body(), piece + piece + piece + piece);
}

TEST_F(CRequestBody, IsLoggedInTheOperationsName) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_log.Clear();
        m_spy.Clear();
        m_spy.Respond(CURLE_OK, {R"({"rate":"100%s%n"})"});
        const Outcome outcome(operation);
        ASSERT_THAT(m_log.Messages(), ElementsAre(R"(strRsp:{"rate":"100%s%n"})"));
        EXPECT_EQ(m_log.Lines()[0].Word(), "INFO ");
        EXPECT_EQ(m_log.Lines()[0].level, 3U);
        EXPECT_EQ(m_log.Lines()[0].Tag(), operation.tag);
    }
}

TEST_F(CRequestBody, IsLoggedWhateverTheResult) {
    m_spy.Respond(CURLE_COULDNT_CONNECT, {"partial"});
    const Outcome failed(Operations()[0]);
    EXPECT_THAT(m_log.Messages(), ElementsAre("strRsp:partial"));
    m_log.Clear();
    m_spy.Clear();
    m_spy.FailInit();
    const Outcome none(Operations()[0]);
    EXPECT_THAT(m_log.Messages(), ElementsAre("strRsp:"));
}

TEST_F(CRequestBody, UpTo10240BytesIsLoggedWhole) {
    const std::string body(10240, 'x');
    m_spy.Respond(CURLE_OK, {body});
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_log.Clear();
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.length, 10240U);
        EXPECT_THAT(m_log.Messages(), ElementsAre("strRsp:" + body));
    }
}

TEST_F(CRequestBody, From10241BytesIsNotLogged) {
    for (const size_t size : {size_t{10241}, size_t{1} << 20U}) {
        m_spy.Clear();
        m_spy.Respond(CURLE_OK, {std::string(size, 'x')});
        for (const Operation& operation : Operations()) {
            SCOPED_TRACE(operation.name);
            m_log.Clear();
            const Outcome outcome(operation);
            EXPECT_EQ(outcome.length, size);
            ASSERT_THAT(m_log.Messages(), ElementsAre("strRsp outlen"));
            EXPECT_EQ(m_log.Lines()[0].Word(), "INFO ");
            EXPECT_EQ(m_log.Lines()[0].level, 3U);
            EXPECT_EQ(m_log.Lines()[0].Tag(), operation.tag);
        }
    }
}

TEST_F(CRequestBody, IsNotLoggedBelowTheThreshold) {
    iLogLevel = level::kWarning;
    m_spy.Respond(CURLE_OK, {"text"});
    const Outcome outcome(Operations()[0]);
    EXPECT_EQ(outcome.Body(), "text");
    EXPECT_THAT(m_log.Messages(), testing::IsEmpty());
}

TEST_F(CRequestBody, StaysInUtf8WhenTheHostAskedForIt) {
    const std::string body = "\xC3\xA9\xE2\x82\xAC \xE4\xB8\xAD \xFF";
    bUtf8 = true;
    m_spy.Respond(CURLE_OK, {body});
    m_spy.ConvertTo("converted");
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.Body(), body);
        EXPECT_EQ(m_log.Messages().back(), "strRsp:" + body);
    }
    EXPECT_THAT(m_spy.Converted(), testing::IsEmpty());
}

TEST_F(CRequestBody, GoesThroughTheConversionUnlessTheHostAskedForUtf8) {
    for (const Operation& operation : Operations()) {
        SCOPED_TRACE(operation.name);
        m_spy.Clear();
        m_spy.Respond(CURLE_PARTIAL_FILE, {"the b", "ody"});
        m_spy.ConvertTo("converted");
        const Outcome outcome(operation);
        EXPECT_EQ(outcome.result, CURLE_PARTIAL_FILE);
        EXPECT_EQ(outcome.Body(), "converted");
        EXPECT_EQ(m_log.Messages().back(), "strRsp:converted");
        EXPECT_THAT(m_spy.Converted(), ElementsAre("the body")) << "once, and whole";
    }
}

TEST_F(CRequestBody, IsEmptyWhenItsConversionFails) {
    m_spy.Respond(CURLE_RECV_ERROR, {"the body"});
    m_spy.ConvertTo("");
    const Outcome outcome(Operations()[0]);
    EXPECT_EQ(outcome.result, CURLE_RECV_ERROR) << "the transfer's own";
    EXPECT_EQ(outcome.length, 0U);
    ASSERT_NE(outcome.response, nullptr);
    EXPECT_STREQ(outcome.response, "");
    EXPECT_THAT(m_log.Messages(), ElementsAre("strRsp:"));
}

TEST_F(CRequestBody, IsConvertedWithTheSwitchOff) {
    const std::string body = "caf\xC3\xA9";
    m_spy.Respond(CURLE_OK, {body});
    const Outcome outcome(Operations()[0]);
#if defined(_WIN32)
    EXPECT_EQ(outcome.Body().substr(0, 3), "caf");
    EXPECT_NE(outcome.Body(), body);
#else
    EXPECT_EQ(outcome.Body(), body) << "there is no other code page here";
#endif
    EXPECT_THAT(m_log.Messages(), ElementsAre("strRsp:" + outcome.Body()));
}

}  // namespace
}  // namespace vantix::test
