#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// A span of time, as texts that the platform understands ("2026-01-02 03:04:05").
struct TimeSpan {
    std::string startTime;
    std::string endTime;
};

/// What to look for among the cloud recordings of a channel.
struct CloudFileQuery {
    std::string searchDate;       ///< Day to search.
    std::string maxCreateTime;    ///< Only recordings made before; empty for the newest.
    int32_t detailFileCount = 0;  ///< How many recordings to describe in detail.
};

}  // namespace vantix
