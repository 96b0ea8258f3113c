#include "requests/MessageText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"

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
    EXPECT_THAT(m_log.Lines(), testing::ElementsAre(test::Line(5, "ERROR", "CaseOf::Site", "SyncRequest error:7")));
    EXPECT_TRUE(m_log.Contains(">\t<42>,"));
}

TEST_F(MessageText, AboutANegativeCodeAtAnotherLevel) {
    LogError(m_site, level::kWarning, CodeText("code %d."), std::numeric_limits<int>::min());
    EXPECT_THAT(m_log.Lines(), testing::ElementsAre(test::Line(4, "ERROR", "CaseOf::Site", "code -2147483648.")));
    EXPECT_TRUE(m_log.Contains(">\t<42>,"));
}

TEST_F(MessageText, AboutABodyAndACode) {
    LogError(m_site, level::kError, BodyCodeText("ParseX:%s error:%d"), "{\"a\":\"%s%n\"}", 10002);
    EXPECT_THAT(m_log.Lines(),
                testing::ElementsAre(test::Line(5, "ERROR", "CaseOf::Site", "ParseX:{\"a\":\"%s%n\"} error:10002")));
    EXPECT_TRUE(m_log.Contains(">\t<42>,"));
}

TEST_F(MessageText, AboutMilliseconds) {
    LogInfo(m_site, level::kInfo, CostText("/api CostTime: = %ld milliseconds"), std::numeric_limits<int32_t>::max());
    EXPECT_THAT(m_log.Lines(), testing::ElementsAre(
                                   test::Line(3, "INFO ", "CaseOf::Site", "/api CostTime: = 2147483647 milliseconds")));
    EXPECT_TRUE(m_log.Contains(">\t<42>,"));
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
