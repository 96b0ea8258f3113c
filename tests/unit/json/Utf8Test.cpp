#include "json/Utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace vantix::json {
namespace {

TEST(Utf8, TakesEveryCharacterInItsShortestForm) {
    for (const std::string text :
         {"", "a", "\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEC\xBF\xBF", "\xED\x9F\xBF", "\xEE\x80\x80",
          "\xEF\xBF\xBD", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF3\xBF\xBF\xBF", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_TRUE(IsUtf8(text)) << text;
        EXPECT_TRUE(IsUtf8(std::string("x").append(text).append("\xE6\x91\x84").append(text))) << text;
    }
    EXPECT_TRUE(IsUtf8(std::string("a\0b", 3)));
}

TEST(Utf8, RefusesEverythingElse) {
    for (const std::string text : {"\x80",
                                   "\xBF",
                                   "\xC0\x80",
                                   "\xC1\xBF",
                                   "\xC2",
                                   "\xC2x",
                                   "\xC2\xC0",
                                   "\xE0\x9F\xBF",
                                   "\xE1\x7F\x80",
                                   "\xE1\x80\x7F",
                                   "\xE1\x80\xC0",
                                   "\xE1\x80",
                                   "\xED\xA0\x80",
                                   "\xED\xBF\xBF",
                                   "\xF0\x8F\xBF\xBF",
                                   "\xF1\x80\x80",
                                   "\xF1\x80\x80\x7F",
                                   "\xF4\x90\x80\x80",
                                   "\xF5\x80\x80\x80",
                                   "\xFE",
                                   "\xFF",
                                   "\xC9\xE3\xCF\xF1\xCD\xB7"}) {
        EXPECT_FALSE(IsUtf8(text));
        EXPECT_FALSE(IsUtf8("x" + text));
    }
}

}  // namespace
}  // namespace vantix::json
