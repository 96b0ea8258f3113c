// What every row of a request table is put through, in the programs of both families.

#include <ostream>

#include "support/RowCase.h"

namespace vantix::test {

void PrintTo(const RowCase& row, std::ostream* out) { *out << row.name; }

std::vector<std::string> RequestRows::OwnLines() const {
    std::vector<std::string> lines;
    for (const LogLine& line : m_log.Lines()) {
        if (line.Tag() == Row().function) {
            lines.push_back(line.Word() + std::to_string(line.level) + " " + line.Message());
        }
    }
    return lines;
}

namespace {

TEST_P(RequestRows, AreSentExactlySo) {
    m_transport.Respond("{}");
    Row().send();
    ASSERT_EQ(m_transport.Count(), 1U);
    const SentRequest sent = m_transport.Sent()[0];
    EXPECT_EQ(sent.method, Row().method);
    EXPECT_EQ(sent.url, Row().url);
    EXPECT_EQ(sent.body, Row().body);
    EXPECT_EQ(sent.headers, Row().headers);
}

TEST_P(RequestRows, SayWhyTheyWereNotSent) {
    m_transport.Fail(7);
    EXPECT_EQ(Row().send(), 100007);
    std::vector<std::string> expected;
    if (!Row().cost.empty()) {
        expected.push_back("INFO 3 " + Row().cost);
    }
    expected.push_back("ERROR5 " + Row().notSent);
    EXPECT_EQ(OwnLines(), expected);
}

TEST_P(RequestRows, SayWhatWasRefused) {
    for (const RefusedResponse& refused : Row().refused) {
        SCOPED_TRACE(refused.body);
        m_log.Clear();
        m_transport.Respond(refused.body);
        EXPECT_EQ(Row().send(), refused.result);
        const std::vector<std::string> lines = OwnLines();
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(lines.back(), "ERROR5 " + refused.line);
        EXPECT_EQ(lines.front() == "INFO 3 " + Row().cost, !Row().cost.empty());
    }
    EXPECT_EQ(m_transport.Count(), Row().refused.size());
}

}  // namespace
}  // namespace vantix::test
