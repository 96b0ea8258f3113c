// Takes the place of the runtime's entry points by the linker's --wrap=TVL_MutexLock --wrap=TVL_MutexUnlock

#include "unit/boundary/HeldLocks.h"

#include <atomic>

namespace {

thread_local int t_held = 0;
std::atomic<int> g_most{0};

void RecordHeld(int held) {
    for (int most = g_most; held > most && !g_most.compare_exchange_weak(most, held);) {}
}

}  // namespace

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {
int __real_TVL_MutexLock(void* mutex);
int __real_TVL_MutexUnlock(void* mutex);

int __wrap_TVL_MutexLock(void* mutex) {
    const int result = __real_TVL_MutexLock(mutex);
    RecordHeld(++t_held);
    return result;
}

int __wrap_TVL_MutexUnlock(void* mutex) {
    --t_held;
    return __real_TVL_MutexUnlock(mutex);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace vantix::test {

int LocksHeldByThisThread() { return t_held; }

int MostLocksHeldByAThread() { return g_most; }

}  // namespace vantix::test
