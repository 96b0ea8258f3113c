#include "requests/MessageText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

namespace vantix {
namespace {

using message_detail::HasConversions;

// Texts are checked when they are compiled, and so is this.
static_assert(HasConversions("", ""));
static_assert(HasConversions("no value", ""));
static_assert(HasConversions("error:%d", "%d"));
static_assert(HasConversions("%s error:%d", "%s%d"));
static_assert(HasConversions("%ld", "%ld"));
static_assert(HasConversions("cost %ld milliseconds", "%ld"));
static_assert(!HasConversions("no value", "%d"));
static_assert(!HasConversions("%d", ""));
static_assert(!HasConversions("%s", "%d"));
static_assert(!HasConversions("%ld", "%d"));
static_assert(!HasConversions("%d", "%ld"));
static_assert(!HasConversions("%d%d", "%d"));
static_assert(!HasConversions("%d %s", "%s%d"));
static_assert(!HasConversions("%s", "%s%d"));
static_assert(!HasConversions("100%", ""));
static_assert(!HasConversions("100%", "%d"));
static_assert(!HasConversions("%5d", "%d"));
static_assert(!HasConversions("%n", "%d"));

class MessageText : public testing::Test {
protected:
    void ExpectLine(const char* word, unsigned lineLevel, const std::string& message) const {
        ASSERT_EQ(m_log.Lines().size(), 1U);
        const test::LogLine line = m_log.Lines()[0];
        EXPECT_EQ(line.Word(), word);
        EXPECT_EQ(line.level, lineLevel);
        EXPECT_EQ(line.Message(), message);
        EXPECT_EQ(line.Tag(), "CaseOf::Site");
        EXPECT_NE(line.text.find(">\t<42>,"), std::string::npos);
    }

    const CallSite m_site{"void vantix::CaseOf::Site(int)", 42};
    test::CleanSwitches m_switches;
    test::LogCapture m_log;
};

TEST_F(MessageText, ATextWithoutAFormatIsNotThere) {
    EXPECT_FALSE(CodeText().IsThere());
    EXPECT_FALSE(CostText().IsThere());
    EXPECT_TRUE(CodeText("%d").IsThere());
    EXPECT_TRUE(BodyCodeText("%s%d").IsThere());
}

TEST_F(MessageText, AboutACode) {
    LogError(m_site, level::kError, CodeText("SyncRequest error:%d"), 7);
    ExpectLine("ERROR", 5, "SyncRequest error:7");
}

TEST_F(MessageText, AboutANegativeCodeAtAnotherLevel) {
    LogError(m_site, level::kWarning, CodeText("code %d."), std::numeric_limits<int>::min());
    ExpectLine("ERROR", 4, "code -2147483648.");
}

TEST_F(MessageText, AboutABodyAndACode) {
    LogError(m_site, level::kError, BodyCodeText("ParseX:%s error:%d"), "{\"a\":\"%s%n\"}", 10002);
    ExpectLine("ERROR", 5, "ParseX:{\"a\":\"%s%n\"} error:10002");
}

TEST_F(MessageText, AboutMilliseconds) {
    LogInfo(m_site, level::kInfo, CostText("/api CostTime: = %ld milliseconds"), std::numeric_limits<int32_t>::max());
    ExpectLine("INFO ", 3, "/api CostTime: = 2147483647 milliseconds");
}

TEST_F(MessageText, BelowTheThresholdIsNotWritten) {
    iLogLevel = 6;
    LogError(m_site, level::kError, CodeText("%d"), 7);
    LogError(m_site, level::kError, BodyCodeText("%s%d"), "", 7);
    LogInfo(m_site, level::kInfo, CostText("%ld"), 7);
    EXPECT_TRUE(m_log.Lines().empty());
}

}  // namespace
}  // namespace vantix
