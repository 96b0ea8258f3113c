// Texts that a server may send and no parser likes. Whatever they are, they are taken or refused, and no
// accessor throws.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

enum class Taken { No, Yes, Either };

struct Row {
    const char* name;
    std::string text;
    Taken json11;
    Taken jsonCpp;
};

std::string WithZero(const char* before, const char* after) { return std::string(before) + '\0' + after; }

const std::vector<Row>& Rows() {
    using enum Taken;
    static const std::vector<Row> rows = {
        {"empty", "", No, No},
        {"blanks", " \t\r\n ", No, No},
        {"root is an array", "[1, 2]", Yes, Yes},
        {"root is a string", R"("text")", Yes, Yes},
        {"root is a number", "42", Yes, Yes},
        {"root is a flag", "true", Yes, Yes},
        {"root is null", "null", Yes, Yes},
        {"open brace", "{", No, No},
        {"key alone", R"({"a"})", No, No},
        {"key and colon", R"({"a":})", No, No},
        {"unquoted key", "{a: 1}", No, No},
        {"single quotes", "{'a': 1}", No, No},
        {"open string", R"({"a": "text)", No, No},
        {"open escape", R"({"a": "text\)", No, No},
        {"unknown escape", R"({"a": "\q"})", No, No},
        {"short unicode escape", R"({"a": "\u12"})", No, No},
        {"unicode escape of other letters", R"({"a": "\uZZZZ"})", No, No},
        {"lone high surrogate", R"({"a": "\ud800"})", Either, Either},
        {"lone low surrogate", R"({"a": "\udc00"})", Either, Either},
        {"two high surrogates", R"({"a": "\ud800\ud800"})", Either, Either},
        {"trailing comma in an object", R"({"a": 1,})", No, Either},
        {"trailing comma in an array", "[1,]", No, Either},
        {"misspelt words", R"({"a": True})", No, No},
        {"not a number", R"({"a": NaN})", No, No},
        {"infinity", R"({"a": Infinity})", No, No},
        {"negative infinity", R"({"a": -Infinity})", No, No},
        {"beyond a real", R"({"a": 1e400})", Either, No},
        {"exponent without digits", R"({"a": 1e})", No, Either},
        {"minus without digits", R"({"a": -})", No, Yes},
        {"leading zero", R"({"a": 01})", No, Yes},
        {"comment", R"({/* why */ "a": 1})", No, Yes},
        {"trailing text", R"({"a": 1} and more)", No, Yes},
        {"two roots", R"({"a": 1}{"b": 2})", No, Yes},
        {"byte order mark", "\xEF\xBB\xBF{\"a\": 1}", No, No},
        {"raw newline in a string", "{\"a\": \"x\ny\"}", No, Yes},
        {"raw zero in a string", WithZero("{\"a\": \"x", "y\"}"), No, Yes},
        {"raw zero between tokens", WithZero("{", "\"a\": 1}"), No, No},
        {"raw zero behind the root", WithZero("{\"a\": 1}", ""), No, Yes},
        {"nothing but a zero", WithZero("", ""), No, No},
        {"escaped zero", R"({"a": "x\u0000y"})", Yes, Yes},
        {"duplicate keys", R"({"a": 1, "a": {"a": 2}, "a": [3]})", Yes, Yes},
        {"invalid UTF-8", "{\"a\": \"\xFF\xFE\xC0\x80\xED\xA0\x80\xF8\", \"\xC3\": 1}", Yes, Yes},
        {"HTML page", "<!DOCTYPE html>\n<html><body><h1>502 Bad Gateway</h1></body></html>\n", No, No},
        {"UTF-16",
         std::string("{\0\"\0a\0\"\0:\0"
                     "1\0}\0",
                     14),
         No, No},
        {"200 levels of arrays", NestedArrays(200), Yes, Yes},
        {"200 levels of objects", NestedObjects(200), Yes, Yes},
        {"999 levels of arrays", NestedArrays(999), No, Yes},
        {"999 levels of objects", NestedObjects(999), No, Yes},
        {"1,000 levels of objects", NestedObjects(1000), No, No},
        {"1,001 levels of arrays", NestedArrays(1001), No, No},
        {"1,001 open brackets", std::string(1001, '['), No, No},
        {"100,000 levels of arrays", NestedArrays(100'000), No, No},
        {"100,000 levels of objects", NestedObjects(100'000), No, No},
        {"100,000 open brackets", std::string(100'000, '['), No, No},
        {"a mebibyte of text", "{\"a\": \"" + std::string(1U << 20U, 'x') + "\"}", Yes, Yes},
        {"a mebibyte of noise", std::string(1U << 20U, '\xA5'), No, No},
        {"a number of 100,000 digits", "{\"a\": " + std::string(100'000, '9') + "}", Either, Either},
        {"formats", R"({"a": "%s%s%n%99999999d", "%n": "%n"})", Yes, Yes},
    };
    return rows;
}

/// Calls every accessor of a value; what they return does not matter here.
template <class View>
void CallAccessors(const View& view) {
    std::string text;
    int32_t number = 0;
    bool flag = false;
    view.IsNull();
    view.IsObject();
    view.IsArray();
    view.IsString();
    view.Read(text);
    view.Read(number);
    view.Read(flag);
    if constexpr (std::is_same_v<View, json::JsonCppView>) {
        int64_t wide = 0;
        view.ReadNumber(wide);
        view.Compact();
    } else {
        view.Text();
    }
}

/// The same for the root and everything on the way down its first elements and its members "a".
template <class View>
void CallAccessorsOnTheWayDown(View view) {
    CallAccessors(View());
    while (!view.IsNull()) {
        CallAccessors(view);
        CallAccessors(view.Element(1));
        CallAccessors(view.Member("absent"));
        view = view.IsArray() ? view.Element(0) : view.Member("a");
    }
}

template <class Reader>
class HostileText : public testing::Test {};
TYPED_TEST_SUITE(HostileText, BothReaders, ReaderName);

TYPED_TEST(HostileText, IsTakenOrRefusedAndNothingThrows) {
    for (const Row& row : Rows()) {
        SCOPED_TRACE(row.name);
        const Taken expected = std::is_same_v<TypeParam, JsonCpp> ? row.jsonCpp : row.json11;
        typename TypeParam::Document document;
        bool taken = false;
        ASSERT_NO_THROW(taken = document.Parse(row.text));
        if (expected != Taken::Either) {
            EXPECT_EQ(taken, expected == Taken::Yes);
        }
        EXPECT_NO_THROW(CallAccessorsOnTheWayDown(document.Root()));
        if (!taken) {
            EXPECT_TRUE(document.Root().IsNull());
        }
    }
}

TYPED_TEST(HostileText, TruncatedAtEveryByteIsRefused) {
    const std::string whole =
        R"({"resultCode": "200", "result": {"code": 200, "a": [1, -2.5e3, true, null, "\u20ac\n"]}, "a": {"b": "c"}})";
    for (size_t length = 0; length <= whole.size(); ++length) {
        SCOPED_TRACE(length);
        typename TypeParam::Document document;
        EXPECT_EQ(document.Parse(whole.substr(0, length)), length == whole.size());
        EXPECT_NO_THROW(CallAccessorsOnTheWayDown(document.Root()));
    }
}

TYPED_TEST(HostileText, WithAnyByteReplacedNothingThrows) {
    const std::string whole = R"({"a": [1.5, "x\n", true]})";
    for (size_t at = 0; at < whole.size(); ++at) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string text = whole;
            text[at] = static_cast<char>(byte);
            typename TypeParam::Document document;
            ASSERT_NO_THROW(document.Parse(text)) << at << ' ' << byte;
            ASSERT_NO_THROW(CallAccessorsOnTheWayDown(document.Root())) << at << ' ' << byte;
        }
    }
}

TYPED_TEST(HostileText, InvalidUtf8IsHandedOnAsItIs) {
    const std::string bytes = "\xFF\xC0\x80\xED\xA0\x80";
    typename TypeParam::Document document;
    ASSERT_TRUE(document.Parse("{\"a\": \"" + bytes + "\"}"));
    std::string text;
    EXPECT_TRUE(document.Root().Member("a").Read(text));
    EXPECT_EQ(text, bytes);
}

TYPED_TEST(HostileText, ManyElementsAreAllThere) {
    constexpr size_t kCount = 200'000;
    std::string text = "[0";
    for (size_t i = 1; i < kCount; ++i) {
        text += ",1";
    }
    typename TypeParam::Document document;
    ASSERT_TRUE(document.Parse(text + "]"));
    EXPECT_EQ(document.Root().Size(), kCount);
    int32_t last = 0;
    EXPECT_TRUE(document.Root().Element(kCount - 1).Read(last));
    EXPECT_EQ(last, 1);
}

}  // namespace
}  // namespace vantix::test
