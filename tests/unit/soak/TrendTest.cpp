// The straight line through what a soak measured, and the figures that the table has of it.

#include "soak/Trend.h"

#include <gtest/gtest.h>

#include "soak/Samples.h"

namespace vantix::test {
namespace {

TEST(Trend, IsTheSlopeOfTheClosestLine) {
    EXPECT_DOUBLE_EQ(SlopeOf({{0, 1}, {1, 3}, {2, 5}}), 2);
    EXPECT_DOUBLE_EQ(SlopeOf({{10, 7}, {20, 5}, {30, 6}}), -0.05) << "not all points lie on it";
    EXPECT_DOUBLE_EQ(SlopeOf({{1, 4}, {2, 4}, {3, 4}}), 0);
    EXPECT_DOUBLE_EQ(SlopeOf({{1, 4}, {1, 9}}), 0) << "one place has no slope";
    EXPECT_DOUBLE_EQ(SlopeOf({}), 0);
}

TEST(Trend, OfMemoryLeavesTheFirstTenthOut) {
    // 1,000 requests: the first tenth grows fast, then 1 MiB comes with every half hour and every 100 requests.
    const MemoryGrowth growth = GrowthOf({{.seconds = 0, .requests = 0, .residentKiB = 1024},
                                          {.seconds = 1, .requests = 99, .residentKiB = 90000},
                                          {.seconds = 1800, .requests = 100, .residentKiB = 91024},
                                          {.seconds = 3600, .requests = 200, .residentKiB = 92048},
                                          {.seconds = 5400, .requests = 300, .residentKiB = 93072}},
                                         1000);
    EXPECT_DOUBLE_EQ(growth.mebibytesAnHour, 2);
    EXPECT_DOUBLE_EQ(growth.bytesARequest, 10485.76);
}

}  // namespace
}  // namespace vantix::test
