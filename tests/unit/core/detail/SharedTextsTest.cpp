#include "core/detail/SharedTexts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantix::test {
namespace {

TEST(SharedTexts, EqualOnesAreOne) {
    SharedTexts texts;
    const SharedText one = texts.Share("a capability list");
    EXPECT_EQ(*one, "a capability list");
    EXPECT_EQ(texts.Share("a capability list"), one);
    EXPECT_NE(texts.Share("another list"), one);
    EXPECT_EQ(texts.Size(), 2U);
}

TEST(SharedTexts, KeepTheirZeros) {
    SharedTexts texts;
    const std::string text("a\0b", 3);
    EXPECT_EQ(*texts.Share(text), text);
    EXPECT_NE(texts.Share(text), texts.Share("a"));
}

TEST(SharedTexts, OutliveTheirPool) {
    SharedText text;
    {
        SharedTexts texts;
        text = texts.Share("kept");
    }
    EXPECT_EQ(*text, "kept");
}

TEST(SharedTexts, ThatNobodyHoldsAreDroppedWhenThereAreMany) {
    SharedTexts texts;
    const SharedText held = texts.Share("held");
    for (int i = 0; i < 10'000; ++i) {
        texts.Share(std::to_string(i));
    }
    EXPECT_LE(texts.Size(), 64U);
    EXPECT_EQ(texts.Share("held"), held);
}

TEST(SharedTexts, ThatAreHeldStayHoweverManyThereAre) {
    SharedTexts texts;
    std::vector<SharedText> held;
    for (int i = 0; i < 1'000; ++i) {
        held.push_back(texts.Share(std::to_string(i)));
    }
    EXPECT_EQ(texts.Size(), 1'000U);
    EXPECT_EQ(texts.Share("999"), held.back());
}

}  // namespace
}  // namespace vantix::test
