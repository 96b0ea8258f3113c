#include "base/Clock.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>

#include "support/FakeClock.h"

namespace {

using vantix::Stopwatch;
using vantix::WallSeconds;
using vantix::test::FakeClock;

TEST(WallSeconds, AreThoseOfTheSystem) {
    const auto before = static_cast<int64_t>(std::time(nullptr));
    const int64_t now = WallSeconds();
    const auto after = static_cast<int64_t>(std::time(nullptr));
    EXPECT_LE(before, now);
    EXPECT_LE(now, after);
}

TEST(WallSeconds, AreReadFromTheClockThatIsSet) {
    FakeClock clock(1'700'000'000);
    EXPECT_EQ(WallSeconds(), 1'700'000'000);
    clock.AdvanceSeconds(121);
    EXPECT_EQ(WallSeconds(), 1'700'000'121);
    clock.SetWall(0);
    EXPECT_EQ(WallSeconds(), 0);
}

TEST(WallSeconds, AreMinusOneWhenTheClockFails) {
    FakeClock clock;
    clock.Break();
    EXPECT_EQ(WallSeconds(), -1);
}

TEST(WallSeconds, AreTheSystemsAgainAfterwards) {
    { const FakeClock clock(12); }
    EXPECT_GT(WallSeconds(), 1'600'000'000);
}

TEST(Stopwatch, TheSystemsSteadyClockNeverGoesBack) {
    int64_t last = vantix::kSystemClock.steadyNanoseconds();
    for (int i = 0; i < 1000; ++i) {
        const int64_t now = vantix::kSystemClock.steadyNanoseconds();
        ASSERT_GE(now, last);
        last = now;
    }
    EXPECT_GE(Stopwatch().ElapsedMilliseconds(), 0);
}

TEST(Stopwatch, MeasuresWholeMillisecondsTruncated) {
    struct Row {
        int64_t nanoseconds;
        int32_t milliseconds;
    };
    constexpr Row kRows[] = {{0, 0},
                             {1, 0},
                             {999'999, 0},
                             {1'000'000, 1},
                             {1'999'999, 1},
                             {2'000'000, 2},
                             {30'000'000'000, 30'000},
                             {86'400'000'000'000, 86'400'000}};
    FakeClock clock;
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.nanoseconds);
        clock.SetSteadyStep(row.nanoseconds);
        EXPECT_EQ(Stopwatch().ElapsedMilliseconds(), row.milliseconds);
    }
}

TEST(Stopwatch, GoesOnRunning) {
    FakeClock clock;
    clock.SetSteadyStep(5'000'000);
    const Stopwatch stopwatch;
    EXPECT_EQ(stopwatch.ElapsedMilliseconds(), 5);
    EXPECT_EQ(stopwatch.ElapsedMilliseconds(), 10);
}

TEST(Stopwatch, DoesNotLookAtTheWallClock) {
    FakeClock clock;
    clock.SetSteadyStep(3'000'000);
    const Stopwatch stopwatch;
    clock.AdvanceSeconds(-86'400);
    EXPECT_EQ(stopwatch.ElapsedMilliseconds(), 3);
}

}  // namespace
