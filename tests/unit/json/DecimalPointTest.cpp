#include "json/DecimalPoint.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "json/JsonCppReader.h"
#include "support/CommaLocale.h"

namespace vantix::json {
namespace {

struct Row {
    const char* text;
    const char* without;
};

constexpr Row kNumbers[] = {
    {"1.25", "125e-2"},
    {"1.5e3", "15e2"},
    {"1.5E+3", "15e2"},
    {"1.5e-3", "15e-4"},
    {"-2.5", "-25e-1"},
    {"0.5", "5e-1"},
    {"0.0", "0e-1"},
    {"0.00", "0e-2"},
    {"0.001", "1e-3"},
    {"10.0", "100e-1"},
    {"100.001", "100001e-3"},
    {"8.443", "8443e-3"},
    {"1234567.0", "12345670e-1"},
    {"9007199254740993.5", "90071992547409935e-1"},
    {"0.1e1", "1e0"},
};

constexpr Row kUntouched[] = {
    {"", ""},
    {"0", "0"},
    {"200", "200"},
    {"-1", "-1"},
    {"1e3", "1e3"},
    {"1E-3", "1E-3"},
    {"12345678901234567890", "12345678901234567890"},
    {"true", "true"},
    {"1.", "1."},
    {".5", ".5"},
    {"1.e5", "1.e5"},
    {"\"1.5\"", "\"1.5\""},
    {R"("a\"1.5\"b")", R"("a\"1.5\"b")"},
    {R"("\\")", R"("\\")"},
    {"\"1.5", "\"1.5"},
    {"\"1.5\\", "\"1.5\\"},
    {"\"", "\""},
    {"\"\\", "\"\\"},
};

/// An exponent without digits is none: what is no number does not become one.
constexpr Row kUnfinished[] = {
    {"[1.5e", "[15e-1e"},       {"[1.5e+", "[15e-1e+"},   {"[1.5E-", "[15e-1E-"},
    {"[1.5e,2]", "[15e-1e,2]"}, {"[1.5e-]", "[15e-1e-]"}, {"[1.5e+x]", "[15e-1e+x]"},
};

constexpr Row kTexts[] = {
    {R"({"a":1.5,"b":[-0.25,2,"3.5"],"4.5":5.5})", R"({"a":15e-1,"b":[-25e-2,2,"3.5"],"4.5":55e-1})"},
    {R"({"a\"1.5":"\\","b":1.5})", R"({"a\"1.5":"\\","b":15e-1})"},
    {"[ 1.5 ,\n2.5 ]", "[ 15e-1 ,\n25e-1 ]"},
    {"1.5", "15e-1"},
};

template <size_t Count>
void ExpectRows(const Row (&rows)[Count]) {
    for (const Row& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(WithoutDecimalPoints(row.text), row.without);
    }
}

TEST(DecimalPoints, BecomeExponents) { ExpectRows(kNumbers); }

TEST(DecimalPoints, StayInTextsAndWhereThereIsNoFraction) { ExpectRows(kUntouched); }

TEST(DecimalPoints, DoNotMakeANumberOfWhatIsNone) {
    ExpectRows(kUnfinished);
    for (const Row& row : kUnfinished) {
        SCOPED_TRACE(row.text);
        JsonCppDocument document;
        EXPECT_FALSE(document.Parse(row.text));
        EXPECT_FALSE(document.Parse(row.without));
    }
}

TEST(DecimalPoints, GoOutOfAWholeResponse) { ExpectRows(kTexts); }

TEST(DecimalPoints, TheNumberIsTheSameToTheLastBit) {
    for (const Row& row : kNumbers) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(std::strtod(row.text, nullptr), std::strtod(row.without, nullptr));
    }
    for (const char* text : {"0.1", "0.30000000000000004", "2.2250738585072014e-308", "1.7976931348623157e308",
                             "4.9406564584124654e-324", "3.141592653589793238462643383279502884197"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(std::strtod(text, nullptr), std::strtod(WithoutDecimalPoints(text).c_str(), nullptr));
    }
}

TEST(DecimalPoints, AnExponentBeyondAllBoundsStaysBeyondThem) {
    for (const char* text : {"1.5e99999999999999999999", "1.5e2147483648", "1.5e1000001"}) {
        SCOPED_TRACE(text);
        JsonCppDocument document;
        EXPECT_FALSE(document.Parse(text));
        EXPECT_FALSE(document.Parse(WithoutDecimalPoints(text)));
    }
    JsonCppDocument document;
    EXPECT_EQ(document.Parse("1.5e-99999999999999999999"),
              document.Parse(WithoutDecimalPoints("1.5e-99999999999999999999")));
}

TEST(DecimalPoints, ALongFractionKeepsItsDigits) {
    const std::string zeros(1000, '0');
    EXPECT_EQ(WithoutDecimalPoints("0." + zeros + "7"), "7e-1001");
    EXPECT_EQ(WithoutDecimalPoints("7." + zeros), "7" + zeros + "e-1000");
}

TEST(LocalePoint, IsTheUsualOneUntilAHostSaysOtherwise) {
    EXPECT_FALSE(CLocaleHasOtherPoint());
    EXPECT_FALSE(CppLocaleHasOtherPoint());
}

TEST(LocalePoint, OfCppIsReadFromTheGlobalLocale) {
    {
        const test::CppCommaLocale locale;
        EXPECT_TRUE(CppLocaleHasOtherPoint());
        EXPECT_FALSE(CLocaleHasOtherPoint());
    }
    EXPECT_FALSE(CppLocaleHasOtherPoint());
}

}  // namespace
}  // namespace vantix::json
