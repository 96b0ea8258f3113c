#pragma once

#include "support/Operations.h"
#include "support/TestJson.h"

namespace vantix::test {

/// Fills every cache that the permission mode has, and hands the core one token of each kind. `token` is valid in that
/// mode for what concerns no device.
void FillCaches(IVantixDataCenter& center, const std::string& token);

/// All that the core has cached or was handed, read without a request.
Json Remembered(IVantixDataCenter& center, const std::string& token);

}  // namespace vantix::test
