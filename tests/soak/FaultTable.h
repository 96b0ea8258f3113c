#pragma once

#include <cstdint>

#include "support/TestJson.h"

namespace vantix::test {

/// What the cloud's fault rate is set to: this share of all requests gets one of the faults, chosen by the seed.
Json FaultSetting(double percent, uint64_t seed);

}  // namespace vantix::test
