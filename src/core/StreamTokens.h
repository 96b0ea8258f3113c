#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace vantix {

/// The longest text that is kept as a prefetched token; the host's buffer has room for it and its zero.
inline constexpr size_t kLongestFirstToken = 4096;

/// A stream token that was fetched ahead of time; it is served once.
struct FirstToken {
    std::string m_strFirstToken;
    std::string owner;      ///< The access token that it was fetched with.
    int32_t fetchTime = 0;  ///< Seconds since the epoch, truncated; 0 once it was served.
};

}  // namespace vantix
