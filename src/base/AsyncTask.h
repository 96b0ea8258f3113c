#pragma once

#include <cstdint>
#include <future>
#include <utility>

#include "base/LibraryPin.h"
#include "base/RunningTask.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

/// Starts a task on a thread of its own and hands its future back; destroying the future waits for the task. An
/// exception in the task becomes -1; when no thread can be started, the future is ready and yields -1.
template <class Task>
std::future<int32_t> StartTask(Task task) {
    PinLibrary();
    try {
        return std::async(std::launch::async, [task = std::move(task), running = RunningTask()]() mutable -> int32_t {
            const RunningTask underWay(std::move(running));  // the future keeps what the lambda holds
            try {
                return task();
            } catch (...) {
                return VANTIX_ERROR;
            }
        });
    } catch (...) {
        std::promise<int32_t> notStarted;
        notStarted.set_value(VANTIX_ERROR);
        return notStarted.get_future();
    }
}

}  // namespace vantix
