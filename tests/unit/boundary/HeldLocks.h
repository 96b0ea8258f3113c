#pragma once

namespace vantix::test {

/// How many mutexes of the runtime the calling thread holds.
int LocksHeldByThisThread();

/// The most that any thread of this process has held at once so far.
int MostLocksHeldByAThread();

}  // namespace vantix::test
