#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace vantix::test {

/// Notes the mutexes of the runtime that the calling thread takes while this exists. One at a time for each thread. The
/// program is linked with the options that LockRecorder.cpp names.
class LockRecorder {
public:
    LockRecorder() : LockRecorder(nullptr) {}
    /// Calls `look` as well, whenever the thread has taken a mutex and before it gives one up. `look` takes none
    /// itself.
    explicit LockRecorder(std::function<void()> look);
    ~LockRecorder();
    LockRecorder(const LockRecorder&) = delete;
    LockRecorder& operator=(const LockRecorder&) = delete;

    /// The mutexes taken so far, in order; each time counts.
    const std::vector<void*>& Taken() const { return m_taken; }

    /// How many mutexes the calling thread holds now.
    static size_t HeldByThisThread();
    /// The most that any thread of the process has held at once so far.
    static size_t MostHeldByAnyThread();

private:
    friend struct LockNotes;

    std::function<void()> m_look;
    std::vector<void*> m_taken;
};

}  // namespace vantix::test
