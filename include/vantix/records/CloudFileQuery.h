#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// A span of time, as texts ("2026-01-02 03:04:05") that go to the server unchanged.
struct TimeSpan {
    std::string startTime;
    std::string endTime;
};

/// Which cloud recordings of a channel to list.
struct CloudFileQuery {
    std::string searchDate;       ///< Day to search.
    std::string maxCreateTime;    ///< Only recordings made before; empty for the newest.
    int32_t detailFileCount = 0;  ///< How many recordings to describe in detail.
};

}  // namespace vantix
