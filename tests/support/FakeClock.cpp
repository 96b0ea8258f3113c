#include "support/FakeClock.h"

#include <atomic>

#include "base/Clock.h"

namespace vantix::test {
namespace {

std::atomic<int64_t> g_wall{0};
std::atomic<int64_t> g_steady{0};
std::atomic<int64_t> g_steadyStep{0};

int64_t ReadWall() { return g_wall; }
int64_t ReadSteady() { return g_steady.fetch_add(g_steadyStep); }

const Clock kFakeClock{ReadWall, ReadSteady};

}  // namespace

FakeClock::FakeClock(int64_t wallSeconds) {
    g_wall = wallSeconds;
    g_steady = 0;
    g_steadyStep = 0;
    SetClock(kFakeClock);
}

FakeClock::~FakeClock() { SetClock(kSystemClock); }

void FakeClock::SetWall(int64_t seconds) { g_wall = seconds; }
void FakeClock::AdvanceSeconds(int64_t seconds) { g_wall += seconds; }
void FakeClock::Break() { g_wall = -1; }
void FakeClock::SetSteadyStep(int64_t nanoseconds) { g_steadyStep = nanoseconds; }
int64_t FakeClock::Wall() const { return g_wall; }

}  // namespace vantix::test
