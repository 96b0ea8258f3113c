#include "json/JsonCppReader.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

#include "support/CleanSwitches.h"

namespace vantix::json {
namespace {

struct CompactRow {
    const char* json;
    const char* compact;
};

constexpr CompactRow kRows[] = {
    {"null", "null"},
    {" true ", "true"},
    {"false", "false"},
    {"0", "0"},
    {"-2147483648", "-2147483648"},
    {"9223372036854775807", "9223372036854775807"},
    {"18446744073709551615", "18446744073709551615"},
    {"1.5", "1.5"},
    {"1.0", "1.0"},
    {R"("")", R"("")"},
    {R"("two words")", R"("two words")"},
    {R"("\"\\\n\t\u0001")", R"("\"\\\n\t\u0001")"},
    {R"("\/")", R"("/")"},
    {"[ ]", "[]"},
    {"{ }", "{}"},
    {"[ 1 , [ 2 , { } ] ]", "[1,[2,{}]]"},
    {"{\n  \"b\" : 1,\n  \"a\" : [ true, null ]\n}", R"({"a":[true,null],"b":1})"},
    {R"({"a": {"c": {"d": "e"}}})", R"({"a":{"c":{"d":"e"}}})"},
};

TEST(JsonCppCompact, IsOneLineWithoutBlanksAndWithoutANewline) {
    for (const CompactRow& row : kRows) {
        SCOPED_TRACE(row.json);
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.json));
        EXPECT_EQ(document.Root().Compact(), row.compact);
    }
}

TEST(JsonCppCompact, OfAnInnerValueIsThatValueAlone) {
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(R"({"data": {"list": [1, 2]}, "rest": 3})"));
    EXPECT_EQ(document.Root().Member("data").Compact(), R"({"list":[1,2]})");
    EXPECT_EQ(document.Root().Member("data").Member("list").Element(1).Compact(), "2");
}

TEST(JsonCppCompact, OfNothingIsEmpty) {
    EXPECT_EQ(JsonCppView().Compact(), "");
    EXPECT_EQ(JsonCppDocument().Root().Compact(), "");
}

TEST(JsonCppCompact, TextBeyondAsciiComesBackTheSame) {
    const std::string text = "\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80";
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse("[\"" + text + "\"]"));
    JsonCppDocument again;
    ASSERT_TRUE(again.Parse(document.Root().Compact()));
    std::string read;
    EXPECT_TRUE(again.Root().Element(0).Read(read));
    EXPECT_EQ(read, text);
}

TEST(JsonCppCompact, InvalidUtf8BecomesTheReplacementCharacter) {
    const test::CleanSwitches switches;
    bUtf8 = true;
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse("[\"\xFF\"]"));
    EXPECT_EQ(document.Root().Compact(), "[\"\\ufffd\"]");
}

TEST(JsonCppCompact, TextOfAnotherEncodingKeepsItsBytes) {
    const test::CleanSwitches switches;
    bUtf8 = false;
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse("{\"a\": \"\xC9\xE3\xCF\xF1\xCD\xB7\", \"b\": \"\\\"\"}"));
    EXPECT_EQ(document.Root().Compact(), "{\"a\":\"\xC9\xE3\xCF\xF1\xCD\xB7\",\"b\":\"\\\"\"}");
    ASSERT_TRUE(document.Parse("[\"\xC3\xA9\"]"));
    const char* utf8 = kHasCodePage ? "[\"\xC3\xA9\"]" : R"(["\u00e9"])";
    EXPECT_EQ(document.Root().Compact(), utf8) << "UTF-8 is written as ever";
}

#if defined(_WIN32)
TEST(JsonCppCompact, TextOfTheCodePageLeavesAsItCame) {
    const test::CleanSwitches switches;
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse("{\"b\": [\"\xC3\xC5\", \"\\t\\\"\", 1, 0.5, null, true, {}], \"a\": \"/\"}"));
    EXPECT_EQ(document.Root().Compact(), "{\"a\":\"/\",\"b\":[\"\xC3\xC5\",\"\\t\\\"\",1,0.5,null,true,{}]}");
}
#endif

struct TextRow {
    const char* json = nullptr;
    std::optional<std::string> text;
};

TEST(JsonCppReader, ReadTextTakesTextsAndIntegers) {
    const TextRow rows[] = {
        {R"("text")", "text"},
        {R"("")", ""},
        {R"("0012")", "0012"},
        {"0", "0"},
        {"-7", "-7"},
        {"2147483648", "2147483648"},
        {"9223372036854775807", "9223372036854775807"},
        {"-9223372036854775808", "-9223372036854775808"},
        {"9223372036854775808", std::nullopt},
        {"1.5", std::nullopt},
        {"1e20", std::nullopt},
        {"true", std::nullopt},
        {"null", std::nullopt},
        {"[]", std::nullopt},
        {R"(["text"])", std::nullopt},
        {"{}", std::nullopt},
    };
    for (const TextRow& row : rows) {
        SCOPED_TRACE(row.json);
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.json));
        std::string text = "before";
        EXPECT_EQ(document.Root().ReadText(text), row.text.has_value());
        EXPECT_EQ(text, row.text.value_or("before"));
    }
    std::string text = "before";
    EXPECT_FALSE(JsonCppView().ReadText(text));
    EXPECT_EQ(text, "before");
}

struct NumberRow {
    const char* json = nullptr;
    std::optional<int32_t> number;
};

TEST(JsonCppReader, ReadIntOrTextTakesIntegersAndTextsOfNumbers) {
    const NumberRow rows[] = {
        {"0", 0},
        {"8443", 8443},
        {"-1", -1},
        {"2147483647", 2147483647},
        {"2147483648", std::nullopt},
        {"3.0", 3},
        {"3.5", std::nullopt},
        {R"("8443")", 8443},
        {R"("-1")", -1},
        {R"(" 5 ")", 5},
        {R"("99999999999")", 2147483647},
        {"true", std::nullopt},
        {"null", std::nullopt},
        {"[5]", std::nullopt},
        {"{}", std::nullopt},
    };
    for (const NumberRow& row : rows) {
        SCOPED_TRACE(row.json);
        JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.json));
        int32_t number = 4711;
        EXPECT_EQ(document.Root().ReadIntOrText(number), row.number.has_value());
        EXPECT_EQ(number, row.number.value_or(4711));
    }
    int32_t number = 4711;
    EXPECT_FALSE(JsonCppView().ReadIntOrText(number));
    EXPECT_EQ(number, 4711);
}

TEST(JsonCppReader, MinusWithoutDigitsIsZero) {
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(R"({"a": -})"));
    int32_t number = 4711;
    EXPECT_TRUE(document.Root().Member("a").Read(number));
    EXPECT_EQ(number, 0);
}

TEST(JsonCppReader, TrailingTextIsNotLookedAt) {
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(R"({"a": 1} {"a": 2})"));
    int32_t number = 0;
    EXPECT_TRUE(document.Root().Member("a").Read(number));
    EXPECT_EQ(number, 1);
}

TEST(JsonCppReader, ARawZeroInAStringIsPartOfIt) {
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(std::string("{\"a\": \"x\0y\"}", 12)));
    std::string text;
    EXPECT_TRUE(document.Root().Member("a").Read(text));
    EXPECT_EQ(text, std::string("x\0y", 3));
}

}  // namespace
}  // namespace vantix::json
