#pragma once

#include <string>
#include <string_view>

namespace vantix::simulator {

/// A span of time in the comparable form of its texts: 14 digits from year to second. An empty end is open.
struct TimeSpan {
    std::string from;
    std::string to;

    [[nodiscard]] bool Overlaps(const TimeSpan& other) const;
};

/// The span of two texts in any form that has year, month, day and, optionally, hour, minute and second in this
/// order. A date alone is its first second at the beginning and its last at the end; other texts leave an open end.
TimeSpan SpanOf(std::string_view from, std::string_view to);

}  // namespace vantix::simulator
