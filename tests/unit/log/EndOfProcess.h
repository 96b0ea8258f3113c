#pragma once

namespace vantix::test {

/// Calls `action(argument)` and returns whether it tried to end the process with `abort`, which is caught. What the
/// action and what it calls own is then lost, so they may own nothing.
bool TriesToEndTheProcess(void (*action)(const char*), const char* argument);

}  // namespace vantix::test
