#pragma once

#include <string>

#include "requests/Route.h"

namespace vantix::test {

/// Routes to any address and with any credential, for tests of the requests themselves: made by the core's own
/// `Routes`.
PlatformRoute PlatformRouteTo(const std::string& address, const std::string& accessToken, const std::string& appKey);
ConsumerRoute ConsumerRouteTo(const std::string& address, const std::string& sessionId);
AuthorizationRoute AuthorizationRouteTo(const std::string& address, const std::string& appKey);

}  // namespace vantix::test
