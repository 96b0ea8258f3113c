// The addresses of pictures are chosen when the build is configured.

#include "cserver/Thumbnails.h"

#include <gtest/gtest.h>

#include <string>

namespace vantix::test {
namespace {

TEST(Thumbnails, AreTwoAddressesOfPictures) {
    for (const char* address : {kDefaultDeviceCover, kDefaultCameraCover}) {
        EXPECT_EQ(std::string(address).rfind("https://", 0), 0U) << address;
        EXPECT_EQ(std::string(address).find(' '), std::string::npos) << address;
    }
    EXPECT_STRNE(kDefaultDeviceCover, kDefaultCameraCover);
}

}  // namespace
}  // namespace vantix::test
