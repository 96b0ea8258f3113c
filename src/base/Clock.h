#pragma once

/// @file
/// Where the library reads time from, so that tests can set it.

#include <cstdint>

namespace vantix {

/// A source of time. Its functions are called from any thread and never throw.
struct Clock {
    /// Seconds since the epoch, or -1 when the system has no time.
    int64_t (*wallSeconds)();
    /// Nanoseconds on a clock that never goes back.
    int64_t (*steadyNanoseconds)();
};

/// The system's own clocks.
extern const Clock kSystemClock;

/// Makes the whole process read from `clock` (static storage) from now on. For tests.
void SetClock(const Clock& clock);

/// Seconds since the epoch, or -1.
int64_t WallSeconds() noexcept;
/// The same, truncated to 32 bits.
inline int32_t TruncatedWallSeconds() noexcept { return static_cast<int32_t>(WallSeconds()); }
/// The seconds between two truncated times; the difference wraps, as on a 32-bit clock.
inline int32_t SecondsBetween(int32_t earlier, int32_t later) {
    return static_cast<int32_t>(static_cast<uint32_t>(later) - static_cast<uint32_t>(earlier));
}

/// Measures how long something takes, in whole milliseconds, truncated.
class Stopwatch {
public:
    Stopwatch();
    /// Milliseconds since construction.
    int32_t ElapsedMilliseconds() const;

private:
    int64_t m_start;
};

}  // namespace vantix
