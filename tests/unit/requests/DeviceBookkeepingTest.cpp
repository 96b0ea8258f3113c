// What a fetch leaves of the record that was there, and how it marks the fresh one.

#include "requests/DeviceBookkeeping.h"

#include <gtest/gtest.h>

#include "support/FakeClock.h"

namespace vantix::test {
namespace {

DevDetailInfo Before() {
    DevDetailInfo device;
    device.deviceSerial = "before";
    device.deviceIP = "before";
    device.iCloseBlong = 1;
    device.iRequestCost = 2;
    device.tCacheTime = 3;
    device.isUpdate = true;
    device.isFromCache = true;
    return device;
}

TEST(DeviceBookkeeping, OutlivesWhatIsTakenOver) {
    DevDetailInfo fresh;
    fresh.deviceSerial = "fresh";
    fresh.iCloseBlong = 11;
    fresh.iRequestCost = 12;
    fresh.tCacheTime = 13;
    fresh.isUpdate = false;
    fresh.isFromCache = false;
    DevDetailInfo device = Before();
    TakeOver(fresh, device);
    EXPECT_EQ(device.deviceSerial, "fresh");
    EXPECT_EQ(device.deviceIP, "");
    EXPECT_EQ(device.iCloseBlong, 1);
    EXPECT_EQ(device.iRequestCost, 2);
    EXPECT_EQ(device.tCacheTime, 3);
    EXPECT_TRUE(device.isUpdate);
    EXPECT_TRUE(device.isFromCache);
}

TEST(DeviceBookkeeping, ASuccessIsMarkedAsFetchedNow) {
    const FakeClock clock(1'700'000'000);
    DevDetailInfo device = Before();
    MarkFetched(0, device);
    EXPECT_EQ(device.tCacheTime, 1'700'000'000);
    EXPECT_FALSE(device.isUpdate);
    EXPECT_FALSE(device.isFromCache);
    EXPECT_EQ(device.iRequestCost, 2);
}

TEST(DeviceBookkeeping, AFailureMarksNothing) {
    const FakeClock clock(1'700'000'000);
    for (const int result : {-1, 1, 100007, 300002}) {
        DevDetailInfo device = Before();
        MarkFetched(result, device);
        EXPECT_EQ(device.tCacheTime, 3) << result;
        EXPECT_TRUE(device.isUpdate) << result;
        EXPECT_TRUE(device.isFromCache) << result;
    }
}

}  // namespace
}  // namespace vantix::test
