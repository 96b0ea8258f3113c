#pragma once

#include <vector>

#include "../Case.h"

namespace vantix::bench {

/// The same exchange with other HTTP libraries.
std::vector<Case> RequestPeers();
/// The same texts with other JSON libraries.
std::vector<Case> ParsePeers();

}  // namespace vantix::bench
