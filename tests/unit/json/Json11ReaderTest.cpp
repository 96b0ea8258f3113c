#include "json/Json11Reader.h"

#include <gtest/gtest.h>

#include <string>

#include "unit/json/Readers.h"

namespace vantix::json {
namespace {

TEST(Json11Reader, TextIsTheStringsOwnBytes) {
    Json11Document document;
    ASSERT_TRUE(document.Parse(R"({"a": "x\u0000y", "b": ""})"));
    const std::string* text = document.Root().Member("a").Text();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(*text, std::string("x\0y", 3));
    EXPECT_EQ(document.Root().Member("a").Text(), text) << "no copy is made";
    ASSERT_NE(document.Root().Member("b").Text(), nullptr);
    EXPECT_EQ(*document.Root().Member("b").Text(), "");
}

TEST(Json11Reader, TextOfAnythingElseIsNull) {
    for (const char* json : {"null", "true", "1", "[]", R"(["a"])", "{}", R"({"a": "b"})"}) {
        SCOPED_TRACE(json);
        Json11Document document;
        ASSERT_TRUE(document.Parse(json));
        EXPECT_EQ(document.Root().Text(), nullptr);
    }
    EXPECT_EQ(Json11View().Text(), nullptr);
}

TEST(Json11Reader, TheErrorIsTheReasonOfAFailedParse) {
    Json11Document document;
    EXPECT_EQ(document.Error(), "");
    EXPECT_FALSE(document.Parse(R"({"a": })"));
    EXPECT_NE(document.Error(), "");
    EXPECT_FALSE(document.Parse(test::NestedArrays(1000)));
    EXPECT_NE(document.Error(), "");
    EXPECT_TRUE(document.Parse("{}"));
    EXPECT_EQ(document.Error(), "") << "of the last parse alone";
}

TEST(Json11Reader, StopsAtItsDepthLimit) {
    Json11Document document;
    EXPECT_TRUE(document.Parse(test::NestedArrays(200)));
    EXPECT_FALSE(document.Parse(test::NestedArrays(203)));
    EXPECT_TRUE(document.Root().IsNull());
}

}  // namespace
}  // namespace vantix::json
