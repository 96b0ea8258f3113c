#include "base/Clock.h"

#include <atomic>
#include <chrono>
#include <ctime>

namespace vantix {
namespace {

int64_t SystemWallSeconds() { return static_cast<int64_t>(std::time(nullptr)); }

int64_t SystemSteadyNanoseconds() {
    const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(sinceStart).count();
}

std::atomic<const Clock*> g_clock{&kSystemClock};

}  // namespace

const Clock kSystemClock{SystemWallSeconds, SystemSteadyNanoseconds};

void SetClock(const Clock& clock) { g_clock.store(&clock); }

int64_t WallSeconds() noexcept { return g_clock.load()->wallSeconds(); }

Stopwatch::Stopwatch() : m_start(g_clock.load()->steadyNanoseconds()) {}

int32_t Stopwatch::ElapsedMilliseconds() const {
    constexpr int64_t kNanosecondsPerMillisecond = 1'000'000;
    return static_cast<int32_t>((g_clock.load()->steadyNanoseconds() - m_start) / kNanosecondsPerMillisecond);
}

}  // namespace vantix
