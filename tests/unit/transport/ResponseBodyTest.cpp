#include "transport/ResponseBody.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>

#include "unit/transport/CurlSpy.h"

namespace vantix {
namespace {

void HandIn(ResponseBody& body, const std::string& text) {
    *body.Data() = static_cast<char*>(std::malloc(text.size() + 1));  // NOLINT(cppcoreguidelines-no-malloc)
    ASSERT_NE(*body.Data(), nullptr);
    std::memcpy(*body.Data(), text.c_str(), text.size() + 1);
    *body.Length() = static_cast<uint32_t>(text.size());
}

std::string TextOf(const ResponseBody& body) { return std::string(body.Text()); }

TEST(ResponseBody, IsEmptyWithoutABlock) {
    ResponseBody body;
    EXPECT_EQ(TextOf(body), "");
    EXPECT_STREQ(body.Text().c_str(), "");
    EXPECT_EQ(*body.Data(), nullptr);
    EXPECT_EQ(*body.Length(), 0U);
}

TEST(ResponseBody, IsTheTextOfABlockThatItIsHanded) {
    for (const std::string& text : {std::string("text"), std::string("a\0b", 3), std::string()}) {
        ResponseBody body;
        HandIn(body, text);
        EXPECT_EQ(TextOf(body), text);
    }
}

TEST(ResponseBody, GrowsPieceByPieceAndEndsWithAZero) {
    ResponseBody body;
    std::string expected;
    for (size_t size : {0U, 1U, 1022U, 1U, 1U, 5'000U, 100'000U}) {
        const std::string piece(size, static_cast<char>('a' + size % 26));
        ASSERT_TRUE(body.Append(piece));
        expected += piece;
        ASSERT_EQ(TextOf(body), expected);
        ASSERT_EQ(*body.Length(), expected.size());
        ASSERT_EQ(body.Text().c_str()[expected.size()], '\0');
    }
}

TEST(ResponseBody, IsReplacedByAShorterAndALongerText) {
    ResponseBody body;
    ASSERT_TRUE(body.Append("a text"));
    for (const std::string& text : {std::string("b"), std::string(3'000, 'c'), std::string()}) {
        ASSERT_TRUE(body.Assign(text));
        EXPECT_EQ(TextOf(body), text);
        EXPECT_EQ(std::strlen(body.Text().c_str()), text.size());
    }
}

TEST(ResponseBody, HandsItsOwnBlockOut) {
    ResponseBody body;
    ASSERT_TRUE(body.Append("text"));
    const char* block = body.Text().c_str();
    char* released = body.Release();
    EXPECT_EQ(released, block);
    EXPECT_STREQ(released, "text");
    EXPECT_EQ(TextOf(body), "");
    EXPECT_EQ(*body.Data(), nullptr);
    std::free(released);  // NOLINT(cppcoreguidelines-no-malloc)
}

TEST(ResponseBody, HandsOutABlockAlsoWhenItIsEmpty) {
    ResponseBody body;
    char* released = body.Release();
    ASSERT_NE(released, nullptr);
    EXPECT_STREQ(released, "");
    std::free(released);  // NOLINT(cppcoreguidelines-no-malloc)
}

TEST(ResponseBody, RefusesWhatItsLengthCannotCount) {
    ResponseBody body;
    ASSERT_TRUE(body.Append("before"));
    const char* text = "text";  // never read that far
    for (const size_t size : {std::numeric_limits<size_t>::max() - 16, size_t{0xFFFF'FFFFU}, size_t{0xFFFF'FFF9U}}) {
        EXPECT_FALSE(body.Append({text, size}));
        EXPECT_EQ(TextOf(body), "before");
    }
    EXPECT_FALSE(body.Assign({text, 0xFFFF'FFFFU}));
    EXPECT_EQ(TextOf(body), "before");
}

TEST(ResponseBody, KeepsWhatItHasWhenMemoryDoesNotSuffice) {
    test::CurlSpy memory;
    ResponseBody body;
    memory.FailBlocksFrom(1);
    EXPECT_FALSE(body.Append("text"));
    EXPECT_EQ(TextOf(body), "");
    memory.Clear();
    ASSERT_TRUE(body.Append("before"));
    memory.FailBlocksFrom(5'001);
    EXPECT_FALSE(body.Assign(std::string(5'000, 'x')));
    EXPECT_EQ(TextOf(body), "before");
}

TEST(ResponseBody, TakesNoMoreThanItNeedsWhenThereIsLittleMemory) {
    test::CurlSpy memory;
    memory.FailBlocksFrom(2'048);
    ResponseBody body;
    ASSERT_TRUE(body.Append(std::string(1'000, 'x')));
    EXPECT_TRUE(body.Append(std::string(1'046, 'y')));
    EXPECT_FALSE(body.Append("z"));
    EXPECT_EQ(TextOf(body), std::string(1'000, 'x') + std::string(1'046, 'y'));
}

}  // namespace
}  // namespace vantix
