#include "transport/RegularFile.h"

#include <gtest/gtest.h>

#include <string>

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

}  // namespace
}  // namespace vantix::test
