#pragma once

#include "base/ProcessSwitches.h"
#include "log/Logger.h"

namespace vantix::test {

/// Puts the switches of the process to what they are at its start, now and at its end. Cases that run in one process
/// must not see each other's.
class CleanSwitches {
public:
    CleanSwitches() { Reset(); }
    ~CleanSwitches() { Reset(); }
    CleanSwitches(const CleanSwitches&) = delete;
    CleanSwitches& operator=(const CleanSwitches&) = delete;

private:
    static void Reset() {
        iLogLevel = level::kInfo;
        bUtf8 = false;
        bB2CMode = false;
    }
};

}  // namespace vantix::test
