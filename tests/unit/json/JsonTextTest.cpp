#include "json/JsonText.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "json/JsonCppReader.h"
#include "support/CleanSwitches.h"

namespace vantix::json {
namespace {

TEST(JsonBuilder, EmptyValues) {
    EXPECT_EQ(JsonBuilder::Object().Compact(), "{}");
    EXPECT_EQ(JsonBuilder::Array().Compact(), "[]");
    EXPECT_EQ(JsonBuilder::CopyOf(JsonCppView()).Compact(), "null");
}

TEST(JsonBuilder, MembersOfEveryKind) {
    EXPECT_EQ(JsonBuilder::Object()
                  .Set("text", std::string("two words"))
                  .Set("literal", "x")
                  .Set("number", -5)
                  .Set("object", JsonBuilder::Object().Set("a", 1))
                  .Set("array", JsonBuilder::Array().Append(JsonBuilder::Object()).Append(JsonBuilder::Array()))
                  .Compact(),
              R"({"array":[{},[]],"literal":"x","number":-5,"object":{"a":1},"text":"two words"})");
}

TEST(JsonBuilder, NumbersToTheEndsOfTheirRange) {
    EXPECT_EQ(JsonBuilder::Object()
                  .Set("a", std::numeric_limits<int32_t>::min())
                  .Set("b", 0)
                  .Set("c", std::numeric_limits<int32_t>::max())
                  .Compact(),
              R"({"a":-2147483648,"b":0,"c":2147483647})");
}

TEST(JsonBuilder, TextsAreEscaped) {
    EXPECT_EQ(JsonBuilder::Object().Set("a\"b", std::string("\"\\\n\t") + '\x01').Compact(),
              R"({"a\"b":"\"\\\n\t\u0001"})");
    EXPECT_EQ(JsonBuilder::Object().Set("a", std::string()).Compact(), R"({"a":""})");
    const test::CleanSwitches switches;
    bUtf8 = true;
    EXPECT_EQ(JsonBuilder::Object().Set("a", "\xFF").Compact(), R"({"a":"\ufffd"})");
}

TEST(JsonBuilder, AZeroInATextIsKept) {
    EXPECT_EQ(JsonBuilder::Object().Set("a", std::string("x\0y", 3)).Compact(), R"({"a":"x\u0000y"})");
}

TEST(JsonBuilder, ALaterMemberOfTheSameNameReplaces) {
    EXPECT_EQ(JsonBuilder::Object().Set("a", 1).Set("a", "two").Compact(), R"({"a":"two"})");
}

TEST(JsonBuilder, CopiesWhatAReaderSees) {
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(R"({"a": [1, {"b": null}], "n": null})"));
    EXPECT_EQ(JsonBuilder::CopyOf(document.Root()).Compact(), R"({"a":[1,{"b":null}],"n":null})");
    EXPECT_EQ(JsonBuilder::CopyOf(document.Root().Member("a").Element(1)).Compact(), R"({"b":null})");
    EXPECT_EQ(JsonBuilder::CopyOf(document.Root().Member("absent")).Compact(), "null");
}

TEST(JsonBuilder, SetIfThereDoesNothingForNothing) {
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(R"({"a": [1], "n": null})"));
    EXPECT_EQ(JsonBuilder::Object()
                  .SetIfThere("first", document.Root().Member("a"))
                  .SetIfThere("second", document.Root().Member("absent"))
                  .SetIfThere("third", document.Root().Member("n"))
                  .Compact(),
              R"({"first":[1],"third":null})");
}

TEST(JsonBuilder, CopiesAreTheirOwn) {
    JsonBuilder first = JsonBuilder::Object().Set("a", 1);
    JsonBuilder second(first);
    second.Set("a", 2);
    EXPECT_EQ(first.Compact(), R"({"a":1})");
    EXPECT_EQ(second.Compact(), R"({"a":2})");
    first = second;
    second.Set("a", 3);
    EXPECT_EQ(first.Compact(), R"({"a":2})");
    const JsonBuilder& same = first;
    first = same;
    EXPECT_EQ(first.Compact(), R"({"a":2})");
}

TEST(JsonBuilder, WhatItWritesReadsBack) {
    const std::string text = "caf\xC3\xA9 \xF0\x9F\x98\x80 / \\ \"";
    JsonCppDocument document;
    ASSERT_TRUE(document.Parse(JsonBuilder::Object().Set("a", text).Compact()));
    std::string read;
    EXPECT_TRUE(document.Root().Member("a").Read(read));
    EXPECT_EQ(read, text);
}

}  // namespace
}  // namespace vantix::json
