#pragma once

#include <vector>

#include "Case.h"

namespace vantix::bench {

/// A device's detail served from the cache, with 1 and with 1,000 devices in it.
std::vector<Case> CacheCases();
/// A log line that is filtered out, and one that is written.
std::vector<Case> LogCases();
/// A device detail answer read into records; beside it the JSON libraries alone.
std::vector<Case> ParseCases();

}  // namespace vantix::bench
