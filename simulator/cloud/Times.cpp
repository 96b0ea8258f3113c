#include "Times.h"

namespace vantix::simulator {
namespace {

constexpr std::size_t dateDigits = 8;
constexpr std::size_t timeDigits = 14;

std::string Comparable(std::string_view text, std::string_view clockOfDate) {
    std::string digits;
    for (const char c : text) {
        if (c >= '0' && c <= '9' && digits.size() < timeDigits) {
            digits += c;
        }
    }
    if (digits.size() == dateDigits) {
        digits += clockOfDate;
    }
    return digits.size() == timeDigits ? digits : std::string();
}

bool Before(const std::string& end, const std::string& begin) { return !end.empty() && !begin.empty() && end < begin; }

}  // namespace

bool TimeSpan::Overlaps(const TimeSpan& other) const { return !Before(to, other.from) && !Before(other.to, from); }

TimeSpan SpanOf(std::string_view from, std::string_view to) {
    return {Comparable(from, "000000"), Comparable(to, "235959")};
}

}  // namespace vantix::simulator
