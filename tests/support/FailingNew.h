#pragma once

#include <gtest/gtest.h>

#include <cstddef>

namespace vantix::test {

/// While it exists, one allocation of this thread by `operator new` fails: number `n` from now on, counted from 1. One
/// at a time in a thread. One file of the program includes support/FailingNewOperators.inc. Where the linker leads
/// `malloc`, `calloc` and `realloc` to support/FailingNewCFunctions.inc, theirs count with the others.
class FailingNew {
public:
    explicit FailingNew(size_t n);
    ~FailingNew();
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    /// Whether the allocation has failed.
    static bool Fired();
    /// How many blocks this thread has given back so far.
    static size_t Freed();
    /// Counts an allocation; false when it is the one that fails.
    static bool CountOne() noexcept;
    /// What `operator new` does, and the kind of it that does not throw.
    static void* Allocate(size_t size);
    static void* AllocateOrNull(size_t size) noexcept;
    /// What `operator delete` does.
    static void Free(void* block) noexcept;

    /// While it exists, the allocations of this thread neither fail nor count: those of test code that the library
    /// calls.
    class Suspended {
    public:
        Suspended();
        ~Suspended();
        Suspended(const Suspended&) = delete;
        Suspended& operator=(const Suspended&) = delete;

    private:
        size_t m_countdown;
    };
};

/// While it exists, the n-th allocation of the next thread that starts fails, as that of a background task.
class FailingNewOnNextThread {
public:
    explicit FailingNewOnNextThread(size_t n);
    ~FailingNewOnNextThread();
    FailingNewOnNextThread(const FailingNewOnNextThread&) = delete;
    FailingNewOnNextThread& operator=(const FailingNewOnNextThread&) = delete;

    /// Whether the allocation has failed; for a thread that has ended.
    static bool Fired();
};

/// Runs `step` with the first, second, … allocation failing, until it makes fewer. Returns how many it makes.
/// `check` is called with the number after each run, with no failure pending. A step without an end fails the test.
template <class Step, class Check>
size_t WithEveryAllocationFailing(Step step, Check check) {
    constexpr size_t kMost = 100'000;
    for (size_t n = 1; n < kMost; ++n) {
        bool fired = false;
        {
            const FailingNew failing(n);
            step();
            fired = FailingNew::Fired();
        }
        check(n);
        if (!fired) {
            return n - 1;
        }
    }
    ADD_FAILURE() << "more than " << kMost << " allocations";
    return kMost;
}

}  // namespace vantix::test
