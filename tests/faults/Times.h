#pragma once

#include "support/TestJson.h"

namespace vantix::test {

/// Without the elapsed times: they differ from call to call, and are stored whatever happens.
Json WithoutCost(const Json& json);

/// Nor the times at which records were stored.
Json WithoutTimes(const Json& json);

}  // namespace vantix::test
