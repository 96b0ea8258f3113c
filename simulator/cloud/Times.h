#pragma once

#include <string>
#include <string_view>

namespace vantix::simulator {

/// A span of time; both ends are 14 digits from year to second, which compare as text. An empty end is open.
struct TimeSpan {
    std::string from;
    std::string to;

    [[nodiscard]] bool Overlaps(const TimeSpan& other) const;
};

/// The span between two texts in any format with year, month, day and, optionally, hour, minute and second in this
/// order. A date alone means its first second as `from` and its last as `to`; any other text is an open end.
TimeSpan SpanOf(std::string_view from, std::string_view to);

}  // namespace vantix::simulator
