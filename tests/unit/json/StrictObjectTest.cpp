// Texts of hosts, which must be one object and nothing else.

#include <gtest/gtest.h>

#include <string>

#include "json/JsonCppReader.h"
#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

using json::JsonCppDocument;

TEST(StrictObject, IsReadAsItIs) {
    const struct {
        const char* text;
        const char* compact;
    } rows[] = {{"{}", "{}"},
                {" \t\r\n{ } \t\r\n", "{}"},
                {R"({"b":[1,{"c":null}],"a":"x"})", R"({"a":"x","b":[1,{"c":null}]})"},
                {R"({"a":1.5,"b":-2,"c":true,"d":9223372036854775807})",
                 R"({"a":1.5,"b":-2,"c":true,"d":9223372036854775807})"},
                {R"({"a":"/* text */ // text"})", R"({"a":"/* text */ // text"})"},
                {R"({"a":1,"a":2})", R"({"a":2})"},
                {R"({"":{}})", R"({"":{}})"}};
    for (const auto& row : rows) {
        JsonCppDocument document;
        EXPECT_TRUE(document.ParseObjectStrictly(row.text)) << row.text;
        EXPECT_EQ(document.Root().Compact(), row.compact) << row.text;
    }
}

TEST(StrictObject, IsRefusedWithSomethingBehindOrBesideIt) {
    for (const std::string& text :
         {std::string("{}x"), std::string("{} {}"), std::string("{}{}"), std::string("{},"), std::string("{}]"),
          std::string("{}0"), std::string("{} null"), std::string("{}\0", 3), std::string("x{}"), std::string("[{}]"),
          std::string("/* before */{}"), std::string("// before\n{}"), std::string("{}/* behind */"),
          std::string("{}// behind"), std::string(R"({/* inside */"a":1})"), std::string("{\"a\":1// inside\n}"),
          std::string("{\"a\"/**/:1}"), std::string("\xEF\xBB\xBF{}")}) {
        JsonCppDocument document;
        EXPECT_FALSE(document.ParseObjectStrictly(text)) << text;
        EXPECT_TRUE(document.Root().IsNull()) << text;
    }
}

TEST(StrictObject, IsRefusedWhenItIsNone) {
    for (const std::string& text : {std::string(),
                                    std::string(" "),
                                    std::string("[]"),
                                    std::string("null"),
                                    std::string("5"),
                                    std::string("\"{}\""),
                                    std::string("true"),
                                    std::string("{"),
                                    std::string("}"),
                                    std::string("{]"),
                                    std::string(R"({"a"})"),
                                    std::string(R"({"a":})"),
                                    std::string(R"({"a":1,})"),
                                    std::string("{'a':1}"),
                                    std::string("{a:1}"),
                                    std::string("{1:1}"),
                                    std::string(R"({"a":NaN})"),
                                    std::string(R"({"a":Infinity})"),
                                    std::string(R"({"a":1e400})"),
                                    std::string(R"({"a":,"b":1})"),
                                    std::string("<html></html>")}) {
        JsonCppDocument document;
        EXPECT_FALSE(document.ParseObjectStrictly(text)) << text;
        EXPECT_TRUE(document.Root().IsNull()) << text;
    }
}

TEST(StrictObject, IsRefusedWhenItIsTooDeep) {
    JsonCppDocument document;
    EXPECT_TRUE(document.ParseObjectStrictly(NestedObjects(900)));
    EXPECT_FALSE(document.ParseObjectStrictly(NestedObjects(100'000)));
    EXPECT_FALSE(document.ParseObjectStrictly(R"({"a":)" + NestedArrays(100'000) + "}"));
}

TEST(StrictObject, ReplacesWhatWasReadBefore) {
    JsonCppDocument document;
    EXPECT_TRUE(document.Parse(R"({"a":1})"));
    EXPECT_TRUE(document.ParseObjectStrictly(R"({"b":1})"));
    EXPECT_EQ(document.Root().Compact(), R"({"b":1})");
    EXPECT_FALSE(document.ParseObjectStrictly("[]"));
    EXPECT_TRUE(document.Root().IsNull());
}

TEST(StrictObject, LenientReaderStillTakesWhatServersSend) {
    for (const char* text : {"{}x", "/* before */{}", "{} {}", "[]", "5"}) {
        JsonCppDocument document;
        EXPECT_TRUE(document.Parse(text)) << text;
    }
}

}  // namespace
}  // namespace vantix::test
