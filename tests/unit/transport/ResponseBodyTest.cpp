#include "transport/ResponseBody.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>

namespace vantix {
namespace {

void Fill(ResponseBody& body, const std::string& text) {
    *body.Data() = static_cast<char*>(std::malloc(text.size() + 1));  // NOLINT(cppcoreguidelines-no-malloc)
    ASSERT_NE(*body.Data(), nullptr);
    std::memcpy(*body.Data(), text.c_str(), text.size() + 1);
    *body.Length() = static_cast<uint32_t>(text.size());
}

TEST(ResponseBody, IsEmptyWithoutABlock) {
    ResponseBody body;
    EXPECT_EQ(body.Text(), "");
    EXPECT_EQ(*body.Data(), nullptr);
    EXPECT_EQ(*body.Length(), 0U);
}

TEST(ResponseBody, IsTheBlocksTextAndFreesIt) {
    ResponseBody body;
    Fill(body, "text");
    EXPECT_EQ(body.Text(), "text");
}

TEST(ResponseBody, KeepsZeros) {
    ResponseBody body;
    Fill(body, std::string("a\0b", 3));
    EXPECT_EQ(body.Text(), std::string("a\0b", 3));
}

TEST(ResponseBody, AnEmptyBlockIsAnEmptyText) {
    ResponseBody body;
    Fill(body, "");
    EXPECT_EQ(body.Text(), "");
}

}  // namespace
}  // namespace vantix
