// Numbers at the ends of the ranges. The two readers differ on purpose: JsonCpp's takes integers only, json11's
// truncates, as the libraries' own types say.

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();
constexpr int64_t kMax64 = std::numeric_limits<int64_t>::max();
constexpr int64_t kMin64 = std::numeric_limits<int64_t>::min();
constexpr auto kNo = std::nullopt;

struct NumberRow {
    const char* json = nullptr;
    std::optional<int32_t> json11;
    std::optional<int32_t> jsonCpp;
    std::optional<int64_t> wide;
};

const NumberRow kRows[] = {
    {"0", 0, 0, 0},
    {"-0", 0, 0, 0},
    {"0.0", 0, 0, 0},
    {"1.9", 1, kNo, 1},
    {"-1.9", -1, kNo, -1},
    {"0.999", 0, kNo, 0},
    {"-0.5", 0, kNo, 0},
    {"1e3", 1000, 1000, 1000},
    {"1.5e3", 1500, 1500, 1500},
    {"1E-3", 0, kNo, 0},
    {"5e-324", 0, kNo, 0},
    {"200.0", 200, 200, 200},
    {"2147483646", kMax - 1, kMax - 1, kMax - 1},
    {"2147483647", kMax, kMax, kMax},
    {"2147483647.0", kMax, kMax, kMax},
    {"2147483647.5", kMax, kNo, kMax},
    {"2147483648", kNo, kNo, 2147483648},
    {"2147483648.0", kNo, kNo, 2147483648},
    {"-2147483647", kMin + 1, kMin + 1, kMin + 1},
    {"-2147483648", kMin, kMin, kMin},
    {"-2147483648.5", kMin, kNo, kMin},
    {"-2147483649", kNo, kNo, -2147483649},
    {"4294967295", kNo, kNo, 4294967295},
    {"4294967296", kNo, kNo, 4294967296},
    {"9223372036854775806", kNo, kNo, kMax64 - 1},
    {"9223372036854775807", kNo, kNo, kMax64},
    {"9223372036854775807.0", kNo, kNo, kNo},  // a real of that size is 2^63
    {"9223372036854775808", kNo, kNo, kNo},
    {"18446744073709551615", kNo, kNo, kNo},
    {"18446744073709551616", kNo, kNo, kNo},
    {"-9223372036854775807", kNo, kNo, kMin64 + 1},
    {"-9223372036854775808", kNo, kNo, kMin64},
    {"-9223372036854775808.0", kNo, kNo, kMin64},
    {"-9223372036854777856", kNo, kNo, kNo},  // the next real below -2^63
    {"1e20", kNo, kNo, kNo},
    {"-1e20", kNo, kNo, kNo},
    {"1e308", kNo, kNo, kNo},
    {"-1e308", kNo, kNo, kNo},
    {"123456789012345678901234567890", kNo, kNo, kNo},
};

template <class Value, class View>
std::optional<Value> ReadAs(const View& view) {
    Value value{};
    return view.Read(value) ? std::optional<Value>(value) : std::nullopt;
}

std::optional<int64_t> ReadWide(const json::JsonCppView& view) {
    int64_t value = 0;
    return view.ReadNumber(value) ? std::optional<int64_t>(value) : std::nullopt;
}

TEST(Numbers, Json11TruncatesWithin32Bits) {
    for (const NumberRow& row : kRows) {
        SCOPED_TRACE(row.json);
        json::Json11Document document;
        ASSERT_TRUE(document.Parse(row.json));
        EXPECT_EQ(ReadAs<int32_t>(document.Root()), row.json11);
        EXPECT_FALSE(document.Root().IsNull());
    }
}

TEST(Numbers, JsonCppTakesIntegersWithin32Bits) {
    for (const NumberRow& row : kRows) {
        SCOPED_TRACE(row.json);
        json::JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.json));
        EXPECT_EQ(ReadAs<int32_t>(document.Root()), row.jsonCpp);
        EXPECT_FALSE(document.Root().IsNull());
    }
}

TEST(Numbers, JsonCppTruncatesAnyNumberWithin64Bits) {
    for (const NumberRow& row : kRows) {
        SCOPED_TRACE(row.json);
        json::JsonCppDocument document;
        ASSERT_TRUE(document.Parse(row.json));
        EXPECT_EQ(ReadWide(document.Root()), row.wide);
    }
}

TEST(Numbers, WhatIsNoNumberIsNotReadAsOne) {
    for (const char* text : {"null", "true", "false", R"("1")", R"("")", "[]", "[1]", "{}", R"({"a": 1})"}) {
        SCOPED_TRACE(text);
        json::JsonCppDocument document;
        ASSERT_TRUE(document.Parse(text));
        int64_t number = 4711;
        EXPECT_FALSE(document.Root().ReadNumber(number));
        EXPECT_EQ(number, 4711);
    }
    int64_t number = 4711;
    EXPECT_FALSE(json::JsonCppView().ReadNumber(number));
    EXPECT_EQ(number, 4711);
}

TEST(Numbers, ANumberBeyondARealIsNotReadByEither) {
    for (const char* text : {R"({"a": 1e400})", R"({"a": -1e400})"}) {
        SCOPED_TRACE(text);
        json::Json11Document fromJson11;
        int32_t number = 4711;
        if (fromJson11.Parse(text)) {
            EXPECT_FALSE(fromJson11.Root().Member("a").Read(number));
        }
        json::JsonCppDocument fromJsonCpp;
        EXPECT_FALSE(fromJsonCpp.Parse(text));
        EXPECT_EQ(number, 4711);
    }
}

}  // namespace
}  // namespace vantix::test
