#pragma once

#include <string_view>

namespace vantix::test {

/// Whether a request with this path belongs to the consumer servers. One of theirs looks like the platform's.
inline bool IsConsumerPath(std::string_view path) {
    return path.rfind("/v3/", 0) == 0 || path == "/api/user/token/get";
}

}  // namespace vantix::test
