#include "transport/RegularFile.h"

#include <gtest/gtest.h>

#include <string>

#include "support/FailingNew.h"
#include "support/LocalFile.h"

namespace vantix::test {
namespace {

TEST(RegularFile, IsNoFolder) {
    const LocalFile file(u8"picture \u4E2D.jpg");
    const std::string folder = file.Path().substr(0, file.Path().find_last_of("/\\"));
    EXPECT_FALSE(IsNoRegularFile(file.Path().c_str()));
    EXPECT_TRUE(IsNoRegularFile(folder.c_str()));
}

TEST(RegularFile, WhereNothingIsThereNothingElseIs) {
    const LocalFile file(u8"picture.jpg");
    EXPECT_FALSE(IsNoRegularFile((file.Path() + ".absent").c_str()));
    EXPECT_FALSE(IsNoRegularFile(""));
    EXPECT_FALSE(IsNoRegularFile("no text \xFF\xC0 in UTF-8"));
}

TEST(RegularFile, WhatCannotBeFoundOutWithoutMemoryIsLeftToLibcurl) {
    const LocalFile file(u8"picture.jpg");
    const std::string folder = file.Path().substr(0, file.Path().find_last_of("/\\"));
    const size_t allocations = WithEveryAllocationFailing(
        [&] {
            const bool isRefused = IsNoRegularFile(folder.c_str());
            EXPECT_EQ(isRefused, !FailingNew::Fired());
        },
        [](size_t /*n*/) {});
    EXPECT_GT(allocations, 0U);
}

}  // namespace
}  // namespace vantix::test
