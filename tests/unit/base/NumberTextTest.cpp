#include "base/NumberText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>

namespace {

using vantix::DecimalPrefix;

constexpr int32_t kMax = std::numeric_limits<int32_t>::max();
constexpr int32_t kMin = std::numeric_limits<int32_t>::min();

struct Row {
    std::string_view text;
    int32_t number;
};

constexpr Row kRows[] = {
    {"0", 0},      {"200", 200}, {"10002", 10002},     {"-1", -1},          {"+7", 7},
    {"00012", 12}, {"-0", 0},    {" 10002abc", 10002}, {"\t\n\v\f\r 5", 5}, {"5 6", 5},
    {"5abc", 5},   {"1.9", 1},   {"1e3", 1},           {"0x10", 0},         {"1,000", 1},
};

constexpr Row kNoDigits[] = {
    {"", 0}, {" ", 0}, {"\t \n", 0}, {"abc", 0}, {"-", 0}, {"+", 0}, {"+-5", 0}, {"--5", 0}, {"- 5", 0}, {".5", 0},
};

constexpr Row kRangeEnds[] = {
    {"2147483646", kMax - 1},
    {"2147483647", kMax},
    {"2147483648", kMax},
    {"-2147483647", kMin + 1},
    {"-2147483648", kMin},
    {"-2147483649", kMin},
    {"4294967295", kMax},
    {"4294967296", kMax},
    {"9223372036854775807", kMax},
    {"9223372036854775808", kMax},
    {"-9223372036854775808", kMin},
    {"-9223372036854775809", kMin},
    {"100000000000000000000", kMax},
    {"-100000000000000000000", kMin},
    {"99999999999999999999999999999999999999999999999999999999999999999999", kMax},
    {"0000000000000000000000000000000000000000000000000000000000000000002147483647", kMax},
};

template <size_t Count>
void ExpectRows(const Row (&rows)[Count]) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DecimalPrefix(row.text), row.number);
    }
}

TEST(DecimalPrefix, ReadsTheNumberAtTheStart) { ExpectRows(kRows); }

TEST(DecimalPrefix, NoDigitsGiveZero) { ExpectRows(kNoDigits); }

TEST(DecimalPrefix, ANumberOutsideBecomesTheNearestOneInside) { ExpectRows(kRangeEnds); }

TEST(DecimalPrefix, AgreesWithTheCLibraryWhereThatIsDefined) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(DecimalPrefix(row.text), std::atoi(std::string(row.text).c_str()));
    }
}

TEST(DecimalPrefix, AgreesWithAStreamExtractionAlsoBeyondTheRange) {
    for (const Row& row : kRangeEnds) {
        SCOPED_TRACE(row.text);
        std::istringstream stream{std::string(row.text)};
        int32_t number = 0;
        stream >> number;
        EXPECT_EQ(DecimalPrefix(row.text), number);
    }
}

TEST(DecimalPrefix, AZeroByteEndsTheNumber) {
    EXPECT_EQ(DecimalPrefix(std::string_view("12\0"
                                             "34",
                                             5)),
              12);
    EXPECT_EQ(DecimalPrefix(std::string_view("\0"
                                             "34",
                                             3)),
              0);
}

TEST(DecimalPrefix, BytesBeyondAsciiAreNoDigitsAndNoBlanks) {
    EXPECT_EQ(DecimalPrefix("7\xFF"), 7);
    EXPECT_EQ(DecimalPrefix("\xC2\xA0"
                            "7"),
              0)
        << "a no-break space";
    EXPECT_EQ(DecimalPrefix("\xEF\xBC\x97"), 0) << "a full-width digit";
}

TEST(DecimalPrefix, ReadsNoFurtherThanItsText) {
    const std::string_view text = "123456";
    EXPECT_EQ(DecimalPrefix(text.substr(0, 3)), 123);
    EXPECT_EQ(DecimalPrefix(text.substr(0, 0)), 0);
}

}  // namespace
