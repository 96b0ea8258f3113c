#pragma once

#include <string>

namespace vantix::test {

/// The feature code of this machine, worked out from the hardware and not asked of the library.
std::string ExpectedFeatureCode();

}  // namespace vantix::test
