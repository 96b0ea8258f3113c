#pragma once

/// @file
/// Which mutexes of the runtime a step takes.

#include <gtest/gtest.h>

#include <vector>

#include "support/LockRecorder.h"

namespace vantix::test {

/// The mutexes that `step` takes, in order; each time counts.
template <class Step>
std::vector<void*> LocksTakenBy(Step step) {
    const LockRecorder recorder;
    step();
    return recorder.Taken();
}

/// The mutex of a step that takes a single one, once.
template <class Step>
void* OnlyLockOf(Step step) {
    const std::vector<void*> taken = LocksTakenBy(step);
    EXPECT_EQ(taken.size(), 1U);
    return taken.empty() ? nullptr : taken.front();
}

}  // namespace vantix::test
