#pragma once

#include <cstdint>

namespace vantix::test {

/// Makes the library read this clock while it exists. One at a time; any thread may read it.
class FakeClock {
public:
    /// Starts at this number of seconds since the epoch.
    explicit FakeClock(int64_t wallSeconds = 1'800'000'000);
    ~FakeClock();
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;

    void SetWall(int64_t seconds);
    void AdvanceSeconds(int64_t seconds);
    /// From now on the wall clock fails (-1).
    void Break();
    /// Every reading of the steady clock is this much later than the one before.
    void SetSteadyStep(int64_t nanoseconds);
    int64_t Wall() const;
};

}  // namespace vantix::test
