#include "support/FailingNew.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace vantix::test {
namespace {

std::atomic<size_t> g_ofNextThread{0};
std::atomic<bool> g_firedAnywhere{false};

thread_local size_t t_countdown = g_ofNextThread.exchange(0);  // 0: none fails
thread_local bool t_fired = false;
thread_local size_t t_freed = 0;

}  // namespace

FailingNew::FailingNew(size_t n) {
    t_fired = false;
    t_countdown = n;
}

FailingNew::~FailingNew() { t_countdown = 0; }

FailingNew::Suspended::Suspended() : m_countdown(t_countdown) { t_countdown = 0; }

FailingNew::Suspended::~Suspended() { t_countdown = m_countdown; }

FailingNewOnNextThread::FailingNewOnNextThread(size_t n) {
    const FailingNew::Suspended ofThisThread;  // whose own countdown exists from now on
    g_firedAnywhere = false;
    g_ofNextThread = n;
}

FailingNewOnNextThread::~FailingNewOnNextThread() { g_ofNextThread = 0; }

bool FailingNewOnNextThread::Fired() { return g_firedAnywhere; }

bool FailingNew::Fired() { return t_fired; }

size_t FailingNew::Freed() { return t_freed; }

bool FailingNew::CountOne() noexcept {
    if (t_countdown == 0 || --t_countdown != 0) {
        return true;
    }
    t_fired = true;
    g_firedAnywhere = true;
    return false;
}

void* FailingNew::AllocateOrNull(size_t size) noexcept {
    if (!CountOne()) {
        return nullptr;
    }
    const Suspended counted;                   // malloc may count too
    return std::malloc(size == 0 ? 1 : size);  // NOLINT(cppcoreguidelines-no-malloc): this is operator new
}

void* FailingNew::Allocate(size_t size) {
    void* block = AllocateOrNull(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void FailingNew::Free(void* block) noexcept {
    t_freed += block == nullptr ? 0 : 1;
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): this is operator delete
}

}  // namespace vantix::test
