#pragma once

/// @file
/// The tests of a request table: each row is sent by its operation, over a scripted transport. One file of a program
/// includes this.

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/FakeClock.h"
#include "support/Handle.h"
#include "support/LineMatcher.h"
#include "support/OutputJson.h"
#include "support/RequestCase.h"
#include "support/ScriptedTransport.h"

namespace vantix::test {

class RequestTest : public testing::TestWithParam<RequestCase> {
protected:
    void SetUp() override {
        m_handle->setDomain("https://b.example", "https://c.example");
        m_handle->setAuthAddr("https://b.example");
        m_clock.SetSteadyStep(3'000'000);
        Prepare();
    }
    void TearDown() override { m_handle->setPermissionMode(0); }

    static const RequestCase& Row() { return GetParam(); }
    static std::string Address() {
        return (Row().domain == "B" ? "https://b.example" : "https://c.example") + Row().path;
    }

    /// Puts the data center back, and forgets what was sent and logged.
    void Prepare() {
        PrepareFor(Row(), *m_handle);
        m_transport.DropScript();
        for (const Exchange& exchange : Row().before) {
            m_transport.Respond(exchange.response);
        }
        m_log.Clear();
    }
    /// Calls the operation; what it changes in outputs that all held something is in `changes`.
    int Call(Json& changes) const {
        Outputs outputs = Prefilled();
        const Json before = ToJson(outputs);
        const int result = test::Call(*m_handle, Row().operation, Row().arguments, outputs).result;
        changes = Changes(before, ToJson(outputs));
        return result;
    }
    int CallWithGoodResponse(Json& changes) {
        m_transport.Respond(Row().response);
        for (const Exchange& exchange : Row().after) {
            m_transport.Respond(exchange.response);
        }
        return Call(changes);
    }
    void ExpectRefused(const Refusal& refusal);

    /// The matchers of the request function's lines: those about elapsed times, and then these.
    static std::vector<testing::Matcher<const LogLine&>> OwnLines(const std::vector<ExpectedLine>& more,
                                                                  const std::string& body) {
        std::vector<testing::Matcher<const LogLine&>> lines;
        for (const std::string& cost : Row().costLines) {
            lines.push_back(Line(3, "INFO ", Row().function, cost));
        }
        for (const ExpectedLine& line : more) {
            lines.push_back(LineAbout(line, body));
        }
        return lines;
    }
    static testing::Matcher<const LogLine&> LineAbout(const ExpectedLine& line, const std::string& body) {
        std::string message = line.message;
        if (const size_t at = message.find("$body"); at != std::string::npos) {
            message.replace(at, 5, body);
        }
        return Line(line.level, line.word, line.tag, message);
    }
    /// What the request function has logged.
    std::vector<LogLine> LoggedByTheFunction() const {
        std::vector<LogLine> lines = m_log.Lines();
        lines.erase(std::remove_if(lines.begin(), lines.end(),
                                   [](const LogLine& line) { return line.Tag() != Row().function; }),
                    lines.end());
        return lines;
    }
    /// All lines from that on which says that this request starts.
    std::vector<LogLine> LoggedFromTheStart() const {
        std::vector<LogLine> lines = m_log.Lines();
        const auto start = std::find_if(lines.begin(), lines.end(), [](const LogLine& line) {
            return line.Message().find("start Posts") == 0 && line.Message().find(Row().path) != std::string::npos;
        });
        lines.erase(lines.begin(), start);
        return lines;
    }

    CleanSwitches m_switches;
    FakeClock m_clock;
    ScriptedTransport m_transport;
    LogCapture m_log;
    Handle m_handle = NewHandle();
};

TEST_P(RequestTest, IsSentExactlySo) {
    Json changes;
    ASSERT_EQ(CallWithGoodResponse(changes), 0);
    const std::vector<SentRequest> sent = m_transport.Sent();
    ASSERT_EQ(sent.size(), Row().before.size() + 1 + Row().after.size());
    const SentRequest& request = sent[Row().before.size()];
    EXPECT_EQ(request.method, Row().method);
    EXPECT_EQ(request.url, Address() + (Row().body.empty() ? "?" + WithFeatureCode(Row().query) : ""));
    EXPECT_EQ(request.body, WithFeatureCode(Row().body));
    std::vector<std::string> headers;
    for (const std::string& header : Row().headers) {
        headers.push_back(WithFeatureCode(header));
    }
    EXPECT_EQ(request.headers, headers);
}

TEST_P(RequestTest, FillsItsOutputsFromTheResponse) {
    Json changes;
    ASSERT_EQ(CallWithGoodResponse(changes), 0);
    EXPECT_EQ(changes, Row().fills);
}

TEST_P(RequestTest, LogsWhatItSendsAndWhatItReceives) {
    Json changes;
    ASSERT_EQ(CallWithGoodResponse(changes), 0);
    const std::string parameters = Masked(WithFeatureCode(Row().body.empty() ? Row().query : Row().body));
    std::vector<testing::Matcher<const LogLine&>> expected = {
        Line(3, "INFO ", Row().transport, "start Posts url and Param = " + Address() + "?" + parameters)};
    if (Row().body.empty()) {
        for (const std::string& header : Row().headers) {
            expected.push_back(
                Line(3, "INFO ", Row().transport, std::string("heads = ").append(Masked(WithFeatureCode(header)))));
        }
    }
    expected.push_back(Line(3, "INFO ", Row().sender, "strRsp:" + Row().response));
    expected.push_back(Line(3, "INFO ", Row().transport, "end Posts url and Param result = 0"));
    if (!Row().costLines.empty()) {
        expected.push_back(Line(3, "INFO ", Row().function, Row().costLines.back()));
    }
    std::vector<LogLine> lines = LoggedFromTheStart();
    ASSERT_GE(lines.size(), expected.size());
    lines.resize(expected.size());
    EXPECT_THAT(lines, testing::ElementsAreArray(expected));
    EXPECT_THAT(LoggedByTheFunction(), testing::ElementsAreArray(OwnLines(Row().lines, Row().response)));
    for (const char* secret : {"access-token", "session-id", "stream-token"}) {
        EXPECT_FALSE(m_log.Contains(secret)) << secret;
    }
}

TEST_P(RequestTest, PassesATransportFailureOn) {
    m_transport.Fail(7);
    Json changes;
    EXPECT_EQ(Call(changes), Row().unsentResult);
    EXPECT_EQ(changes, Row().costFills);
    EXPECT_THAT(LoggedByTheFunction(),
                testing::ElementsAreArray(OwnLines({{5, "ERROR", Row().function, Row().unsent}}, "")));
    EXPECT_FALSE(m_log.Contains("platform response"));
}

inline void RequestTest::ExpectRefused(const Refusal& refusal) {
    SCOPED_TRACE(refusal.body);
    m_transport.Always([&](const SentRequest& /*request*/) { return ScriptedResponse{0, refusal.body}; });
    Json changes;
    EXPECT_EQ(Call(changes), refusal.result);
    Json fills = Row().costFills;
    fills.update(refusal.fills);
    EXPECT_EQ(changes, fills);
    EXPECT_THAT(LoggedByTheFunction(), testing::ElementsAreArray(OwnLines(refusal.lines, refusal.body)));
    bool isCodeReported = false;
    for (const ExpectedLine& line : refusal.parserLines) {
        EXPECT_THAT(m_log.Lines(), testing::Contains(LineAbout(line, refusal.body)).Times(1));
        isCodeReported = isCodeReported || line.level == 3;
    }
    if (!isCodeReported) {
        EXPECT_FALSE(m_log.Contains(">,Platform Response Error:"));
    }
    m_transport.Always(nullptr);
}

TEST_P(RequestTest, TurnsARefusalIntoItsResult) {
    ASSERT_FALSE(Row().refusals.empty());
    for (const Refusal& refusal : Row().refusals) {
        Prepare();
        ExpectRefused(refusal);
    }
}

}  // namespace vantix::test
