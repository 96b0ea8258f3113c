#include "transport/CodePage.h"

#include <gtest/gtest.h>

#include <string>

#if defined(_WIN32)
#include <windows.h>
#endif

namespace vantix {
namespace {

std::string Converted(const std::string& text) {
    ResponseBody body;
    EXPECT_TRUE(body.Append(text));
    Utf8ToAnsi(body);
    return std::string(body.Text());
}

TEST(CodePage, AsciiStaysAsItIs) {
    const std::string text = "{\"code\":\"200\", \"x\":\"\\u00e9 ~\x7F\"}\r\n\t";
    EXPECT_EQ(Converted(text), text);
}

TEST(CodePage, AnEmptyTextStaysEmpty) { EXPECT_EQ(Converted(""), ""); }

TEST(CodePage, ZerosAreCharactersToo) {
    const std::string text("a\0b\0", 4);
    EXPECT_EQ(Converted(text), text);
}

TEST(CodePage, ALongTextIsConvertedWhole) {
    const std::string text(3U << 20U, 'x');
    EXPECT_EQ(Converted(text), text);
}

#if defined(_WIN32)

TEST(CodePage, AccentsBecomeThePagesOwnBytes) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "the expected bytes are those of code page 1252, not of " << GetACP();
    }
    EXPECT_EQ(Converted("caf\xC3\xA9 \xE2\x82\xAC"), "caf\xE9 \x80");
}

TEST(CodePage, WhatThePageLacksBecomesItsDefaultCharacter) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "the expected bytes are those of code page 1252, not of " << GetACP();
    }
    EXPECT_EQ(Converted("a\xE4\xB8\xAD"
                        "b"),
              "a?b");
}

TEST(CodePage, InvalidUtf8DoesNotStopTheConversion) {
    const std::string ansi = Converted(
        "a\xFF\xC0"
        "b");
    EXPECT_EQ(ansi.front(), 'a');
    EXPECT_EQ(ansi.back(), 'b');
}

#else

TEST(CodePage, WithoutAPageEverythingStaysAsItIs) {
    for (const char* text : {"caf\xC3\xA9 \xE2\x82\xAC", "\xE4\xB8\xAD\xE6\x96\x87", "\xFF\xC0\x80 invalid"}) {
        EXPECT_EQ(Converted(text), text);
    }
}

#endif

}  // namespace
}  // namespace vantix
