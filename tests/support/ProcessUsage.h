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

/// The memory that the process holds now, without what the allocator keeps for later, and at most since the last
/// `ForgetPeak`, in MiB. 0 where that cannot be read, and under a sanitizer, which keeps memory for itself.
size_t ResidentMiB();
size_t PeakMiB();
void ForgetPeak();

/// Lets all threads share the allocator's first heap, of which alone it gives everything back that is free: how much a
/// thread's own one keeps is the allocator's choice. To be called before there is another thread; only on glibc.
void KeepOneHeap();

}  // namespace vantix::test
