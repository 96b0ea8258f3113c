#pragma once

#include <cstddef>

namespace vantix::test {

/// What this process holds of the system. Where that cannot be read both are 0.
struct ProcessUsage {
    size_t descriptors = 0;
    size_t threads = 0;

    static ProcessUsage Now();
};

/// Waits, at most a minute, until the process holds no more than `before`: a finished thread leaves the system's list a
/// little later. False when it still holds more.
bool FellBackTo(const ProcessUsage& before);

}  // namespace vantix::test
