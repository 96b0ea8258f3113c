#include "json/JsonCppReader.h"

#include <gtest/gtest.h>

#include <string>

namespace vantix::json {
namespace {

struct Row {
    const char* json;
    const char* compact;
};

constexpr Row kRows[] = {
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
    for (const Row& row : kRows) {
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
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse("[\"\xFF\"]"));
    EXPECT_EQ(document.Root().Compact(), "[\"\\ufffd\"]");
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
