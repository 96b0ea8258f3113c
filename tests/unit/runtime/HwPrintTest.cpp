#include "hwprint/hwprint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

/// A buffer as callers pass it, with something behind it that must stay.
template <size_t Size>
struct Buffer {
    Buffer() { std::fill(std::begin(behind), std::end(behind), '#'); }

    bool IsText() const { return std::memchr(text, '\0', sizeof(text)) != nullptr; }
    bool BehindIsUntouched() const {
        return std::all_of(std::begin(behind), std::end(behind), [](char c) { return c == '#'; });
    }

    char text[Size] = {};
    char behind[16] = {};
};

// What this machine has is not known, but the status must agree with whether there is a text.

TEST(HardwarePrint, DiskSerialIsATextOrAnError) {
    Buffer<64> serial;
    char second[64] = "as before";
    const int status = HWP_GetDiskSerial(serial.text, second);
    ASSERT_TRUE(serial.IsText());
    EXPECT_EQ(status, serial.text[0] == '\0' ? -1 : 0);
    EXPECT_TRUE(serial.BehindIsUntouched());
    EXPECT_STREQ(second, "as before");
}

TEST(HardwarePrint, MacAddressIsATextOrAnError) {
    Buffer<48> mac;
    const int status = HWP_GetMacAddr(mac.text);
    ASSERT_TRUE(mac.IsText());
    EXPECT_EQ(status, mac.text[0] == '\0' ? -1 : 0);
    EXPECT_TRUE(mac.BehindIsUntouched());
}

TEST(HardwarePrint, MacAddressIsSixUpperCasePairsWithDashes) {
    char mac[48] = {};
    if (HWP_GetMacAddr(mac) != 0) {
        GTEST_SKIP() << "this machine has no network adapter";
    }
    const std::string text = mac;
    ASSERT_EQ(text.size(), 17U) << text;
    for (size_t i = 0; i < text.size(); ++i) {
        SCOPED_TRACE(text);
        EXPECT_NE(std::string(i % 3 == 2 ? "-" : "0123456789ABCDEF").find(text[i]), std::string::npos) << i;
    }
}

TEST(HardwarePrint, ReadsTheSameEveryTime) {
    char first[64] = {};
    char again[64] = {};
    char companion[64] = {};
    EXPECT_EQ(HWP_GetDiskSerial(first, companion), HWP_GetDiskSerial(again, companion));
    EXPECT_STREQ(first, again);
    char firstMac[48] = {};
    char secondMac[48] = {};
    EXPECT_EQ(HWP_GetMacAddr(firstMac), HWP_GetMacAddr(secondMac));
    EXPECT_STREQ(firstMac, secondMac);
}

TEST(HardwarePrint, NullBuffersAreRefused) {
    char companion[64] = {};
    EXPECT_EQ(HWP_GetDiskSerial(nullptr, companion), -1);
    EXPECT_EQ(HWP_GetMacAddr(nullptr), -1);
}

TEST(HardwarePrint, TheCompanionBufferMayBeMissing) {
    char serial[64] = {};
    const int status = HWP_GetDiskSerial(serial, nullptr);
    EXPECT_EQ(status, serial[0] == '\0' ? -1 : 0);
}

}  // namespace
