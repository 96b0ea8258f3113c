#include "requests/MessageText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "log/Logger.h"
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

TEST(MessageText, ATextWithoutAFormatIsNotThere) {
    EXPECT_FALSE(CodeText().IsThere());
    EXPECT_FALSE(CostText().IsThere());
    EXPECT_TRUE(CodeText("%d").IsThere());
    EXPECT_TRUE(BodyCodeText("%s%d").IsThere());
}

/// Every message is a line of the call site that is handed in.
class MessageLine : public testing::Test {
protected:
    /// The one line of the case, without the process id in front of it and the newline behind.
    std::string Line() const {
        const std::vector<test::LogLine> lines = m_log.Lines();
        EXPECT_EQ(lines.size(), 1U);
        const std::string text = lines.empty() ? "" : lines.front().text;
        return text.substr(std::min(text.find("VX"), text.size()), text.rfind('\n') - text.find("VX"));
    }
    unsigned Level() const { return m_log.Lines().at(0).level; }

    const CallSite m_site{"int vantix::GetSomething(int)", 5};
    test::CleanSwitches m_switches;
    test::LogCapture m_log;
};

TEST_F(MessageLine, AboutACode) {
    LogError(m_site, CodeText("SyncRequest error:%d"), std::numeric_limits<int>::min());
    EXPECT_EQ(Line(), "VX   ERROR\t<GetSomething>\t<5>,SyncRequest error:-2147483648");
    EXPECT_EQ(Level(), 5U);
}

TEST_F(MessageLine, AboutABodyAndACode) {
    LogError(m_site, BodyCodeText("ParseX:%s error:%d"), R"({"a":"%s%n"})", 10002);
    EXPECT_EQ(Line(), "VX   ERROR\t<GetSomething>\t<5>,ParseX:{\"a\":\"%s%n\"} error:10002");
}

TEST_F(MessageLine, AboutABody) {
    LogError(m_site, BodyText("no member: %s"), "{}");
    EXPECT_EQ(Line(), "VX   ERROR\t<GetSomething>\t<5>,no member: {}");
}

TEST_F(MessageLine, AboutABodyAsInformation) {
    LogInfo(m_site, BodyText("no member: %s"), "{}");
    EXPECT_EQ(Line(), "VX   INFO \t<GetSomething>\t<5>,no member: {}");
    EXPECT_EQ(Level(), 3U);
}

TEST_F(MessageLine, AboutMilliseconds) {
    LogInfo(m_site, CostText("/api CostTime: = %ld milliseconds"), std::numeric_limits<int32_t>::max());
    EXPECT_EQ(Line(), "VX   INFO \t<GetSomething>\t<5>,/api CostTime: = 2147483647 milliseconds");
}

TEST_F(MessageLine, IsDroppedBelowTheThreshold) {
    iLogLevel = 4;
    LogInfo(m_site, BodyText("no member: %s"), "{}");
    EXPECT_TRUE(m_log.Lines().empty());
    iLogLevel = 6;
    LogError(m_site, CodeText("SyncRequest error:%d"), 7);
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(MessageLine, HoldsATextThatJustFits) {
    LogError(m_site, BodyCodeText("%s%d"), std::string(40900, 'x'), 7);
    EXPECT_EQ(m_log.Messages(), std::vector<std::string>{std::string(40900, 'x') + "7"});
}

TEST_F(MessageLine, IsEmptyWhenItsTextDoesNotFit) {
    LogError(m_site, BodyCodeText("%s%d"), std::string(50000, 'x'), 7);
    ASSERT_EQ(m_log.Lines().size(), 1U);
    EXPECT_EQ(m_log.Lines().front().text, "");
}

}  // namespace
}  // namespace vantix
