#pragma once

#include <vector>

#include "Case.h"

namespace vantix::bench {

/// A device's detail from the cache, with 1 and with 1,000 devices in it.
std::vector<Case> CacheCases();
/// Log lines that are filtered out, and log lines that are written.
std::vector<Case> LogCases();
/// A device detail response read into records, and by the JSON libraries alone.
std::vector<Case> ParseCases();

}  // namespace vantix::bench
