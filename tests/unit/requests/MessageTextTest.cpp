#include "requests/MessageText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

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

TEST(MessageText, AboutACode) {
    EXPECT_EQ(Filled(CodeText("SyncRequest error:%d"), 7), "SyncRequest error:7");
    EXPECT_EQ(Filled(CodeText("code %d."), std::numeric_limits<int>::min()), "code -2147483648.");
}

TEST(MessageText, AboutABodyAndACode) {
    EXPECT_EQ(Filled(BodyCodeText("ParseX:%s error:%d"), "{\"a\":\"%s%n\"}", 10002),
              "ParseX:{\"a\":\"%s%n\"} error:10002");
}

TEST(MessageText, AboutMilliseconds) {
    EXPECT_EQ(Filled(CostText("/api CostTime: = %ld milliseconds"), std::numeric_limits<int32_t>::max()),
              "/api CostTime: = 2147483647 milliseconds");
}

TEST(MessageText, OneThatNoLineCanHoldIsCut) {
    const std::string whole = Filled(BodyCodeText("%s%d"), std::string(40900, 'x'), 7);
    EXPECT_EQ(whole, std::string(40900, 'x') + "7");
    EXPECT_EQ(Filled(BodyCodeText("%s%d"), std::string(50000, 'x'), 7), std::string(40961, 'x'));
}

}  // namespace
}  // namespace vantix
