#pragma once

#include <atomic>

namespace vantix {

/// Counts the tasks under way: one for as long as it lives.
class RunningTask {
public:
    RunningTask() { ++Count(); }
    RunningTask(RunningTask&&) noexcept { ++Count(); }
    ~RunningTask() { --Count(); }
    RunningTask(const RunningTask&) = delete;
    RunningTask& operator=(const RunningTask&) = delete;
    RunningTask& operator=(RunningTask&&) = delete;

    static bool IsThereOne() { return Count() > 0; }

private:
    static std::atomic<int>& Count() {
        static constinit std::atomic<int> count{0};
        return count;
    }
};

}  // namespace vantix
