// A host may set a locale with a decimal comma, for C or for C++. Numbers of a response stay what they are.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdint>
#include <cstdlib>
#include <locale>
#include <string>

#include "base/NumberText.h"
#include "json/DecimalPoint.h"
#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Sets a comma locale for C++'s streams while it exists.
class CppCommaLocale {
public:
    CppCommaLocale() : m_before(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation))) {}
    ~CppCommaLocale() { std::locale::global(m_before); }
    CppCommaLocale(const CppCommaLocale&) = delete;
    CppCommaLocale& operator=(const CppCommaLocale&) = delete;

private:
    std::locale m_before;
};

/// Sets a comma locale for C's conversions while it exists, if this machine has one.
class CCommaLocale {
public:
    CCommaLocale() : m_before(std::setlocale(LC_ALL, nullptr)) {
#if defined(VANTIX_TEST_LOCALES)
        setenv("LOCPATH", VANTIX_TEST_LOCALES, 0);  // the build made one there
#endif
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "fr_FR.UTF-8", "fr_FR.utf8", "nl_NL.UTF-8",
                                 "de-DE", "German_Germany.1252"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && *std::localeconv()->decimal_point == ',') {
                m_set = true;
                return;
            }
        }
    }
    ~CCommaLocale() { std::setlocale(LC_ALL, m_before.c_str()); }
    CCommaLocale(const CCommaLocale&) = delete;
    CCommaLocale& operator=(const CCommaLocale&) = delete;

    bool IsSet() const { return m_set; }

private:
    std::string m_before;
    bool m_set = false;
};

constexpr const char* kResponse = R"({"result": {"code": 10002}, "real": 1.5e3, "negative": -2.5e2, "whole": 1234567})";

template <class View>
int32_t Int(const View& view) {
    int32_t number = 4711;
    return view.Read(number) ? number : -4711;
}

template <class Reader>
void ExpectTheNumbers() {
    typename Reader::Document document;
    ASSERT_TRUE(document.Parse(kResponse));
    const auto root = document.Root();
    EXPECT_EQ(Int(root.Member("result").Member("code")), 10002);
    EXPECT_EQ(Int(root.Member("real")), 1500);
    EXPECT_EQ(Int(root.Member("negative")), -250);
    EXPECT_EQ(Int(root.Member("whole")), 1234567);
}

void ExpectTheCompactText() {
    json::JsonCppDocument document;
    ASSERT_TRUE(document.Parse(R"({"a": 1.5, "b": 1234567, "c": 8.443, "d": -0.25})"));
    EXPECT_EQ(document.Root().Compact().substr(0, 23), R"({"a":1.5,"b":1234567,"c)");
    int64_t number = 0;
    EXPECT_TRUE(document.Root().Member("c").ReadNumber(number));
    EXPECT_EQ(number, 8);
}

template <class Reader>
class CommaLocale : public testing::Test {};
TYPED_TEST_SUITE(CommaLocale, BothReaders, ReaderName);

TYPED_TEST(CommaLocale, WithoutOneNumbersAreReadAsWritten) { ExpectTheNumbers<TypeParam>(); }

TYPED_TEST(CommaLocale, OfCppLeavesTheNumbers) {
    const CppCommaLocale locale;
    ExpectTheNumbers<TypeParam>();
}

TYPED_TEST(CommaLocale, OfCLeavesTheNumbers) {
    const CCommaLocale locale;
    if (!locale.IsSet()) {
        GTEST_SKIP() << "this machine has no locale with a decimal comma";
    }
    EXPECT_TRUE(json::CLocaleHasOtherPoint());
    ExpectTheNumbers<TypeParam>();
}

TEST(CommaLocaleCompact, OfCppLeavesTheText) {
    const CppCommaLocale locale;
    ExpectTheCompactText();
}

TEST(CommaLocaleCompact, OfCLeavesTheText) {
    const CCommaLocale locale;
    if (!locale.IsSet()) {
        GTEST_SKIP() << "this machine has no locale with a decimal comma";
    }
    ExpectTheCompactText();
}

TEST(CommaLocaleNumberText, OfCppLeavesTheNumber) {
    const CppCommaLocale locale;
    EXPECT_EQ(DecimalPrefix("1234567"), 1234567);
    EXPECT_EQ(DecimalPrefix("1.234"), 1) << "a point is no grouping";
}

}  // namespace
}  // namespace vantix::test
