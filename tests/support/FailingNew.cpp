#include "support/FailingNew.h"

#include <cstdlib>
#include <new>

namespace vantix::test {
namespace {

thread_local size_t t_countdown = 0;  // 0: none fails
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

bool FailingNew::Fired() { return t_fired; }

size_t FailingNew::Freed() { return t_freed; }

void* FailingNew::AllocateOrNull(size_t size) noexcept {
    if (t_countdown != 0 && --t_countdown == 0) {
        t_fired = true;
        return nullptr;
    }
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
