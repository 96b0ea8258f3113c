#include "support/TestRoutes.h"

namespace vantix::test {

PlatformRoute PlatformRouteTo(const std::string& address, const std::string& accessToken, const std::string& appKey) {
    return Caller{address, accessToken, appKey};
}

ConsumerRoute ConsumerRouteTo(const std::string& address, const std::string& sessionId) {
    return Caller{address, sessionId, {}};
}

AuthorizationRoute AuthorizationRouteTo(const std::string& address, const std::string& appKey) {
    return Caller{address, {}, appKey};
}

}  // namespace vantix::test
