#pragma once

#include <atomic>
#include <utility>

namespace vantix {

/// Counts a task under way until it is destroyed or moved from: what it is moved to counts then.
class RunningTask {
public:
    RunningTask() { ++Count(); }
    RunningTask(RunningTask&& other) noexcept : m_counts(std::exchange(other.m_counts, false)) {}
    ~RunningTask() { Count() -= m_counts ? 1 : 0; }
    RunningTask(const RunningTask&) = delete;
    RunningTask& operator=(const RunningTask&) = delete;
    RunningTask& operator=(RunningTask&&) = delete;

    static bool IsThereOne() { return Count() > 0; }

private:
    static std::atomic<int>& Count() {
        static constinit std::atomic<int> count{0};
        return count;
    }

    bool m_counts = true;
};

}  // namespace vantix
