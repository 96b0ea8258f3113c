// Takes the place of the runtime's mutex by the linker's --wrap=TVL_MutexLock --wrap=TVL_MutexUnlock

#include "support/LockRecorder.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace vantix::test {
namespace {

thread_local size_t t_held = 0;
thread_local LockRecorder* t_recorder = nullptr;
std::atomic<size_t> g_mostHeld{0};

}  // namespace

struct LockNotes {
    static void Taken(void* mutex) {
        const size_t held = ++t_held;
        size_t most = g_mostHeld.load();
        while (held > most && !g_mostHeld.compare_exchange_weak(most, held)) {}
        if (LockRecorder* recorder = t_recorder) {
            recorder->m_taken.push_back(mutex);
            Look();
        }
    }
    static void Given() {
        Look();
        --t_held;
    }

private:
    static void Look() {
        if (t_recorder != nullptr && t_recorder->m_look) {
            t_recorder->m_look();
        }
    }
};

LockRecorder::LockRecorder(std::function<void()> look) : m_look(std::move(look)) { t_recorder = this; }

LockRecorder::~LockRecorder() { t_recorder = nullptr; }

size_t LockRecorder::HeldByThisThread() { return t_held; }

size_t LockRecorder::MostHeldByAnyThread() { return g_mostHeld; }

}  // namespace vantix::test

extern "C" {

int __real_TVL_MutexLock(void* mutex);
int __real_TVL_MutexUnlock(void* mutex);

int __wrap_TVL_MutexLock(void* mutex) {  // NOLINT: the linker's name
    const int result = __real_TVL_MutexLock(mutex);
    vantix::test::LockNotes::Taken(mutex);
    return result;
}

int __wrap_TVL_MutexUnlock(void* mutex) {  // NOLINT: the linker's name
    vantix::test::LockNotes::Given();
    return __real_TVL_MutexUnlock(mutex);
}
}
