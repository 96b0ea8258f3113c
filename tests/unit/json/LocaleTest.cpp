// A host may set a locale with a decimal comma, for C or for C++. Numbers of a response stay what they are.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "base/NumberText.h"
#include "json/DecimalPoint.h"
#include "support/CommaLocale.h"
#include "unit/json/Readers.h"

namespace vantix::test {
namespace {

#if defined(VANTIX_TEST_LOCALES)
constexpr const char* kLocales = VANTIX_TEST_LOCALES;
#else
constexpr const char* kLocales = nullptr;
#endif

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
    const CCommaLocale locale(kLocales);
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
    const CCommaLocale locale(kLocales);
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
