#include "base/NumberText.h"

#include <limits>

namespace vantix {

int32_t DecimalPrefix(std::string_view text) {
    const size_t begin = text.find_first_not_of(" \t\n\v\f\r");
    if (begin == std::string_view::npos) {
        return 0;
    }
    text.remove_prefix(begin);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') {
        text.remove_prefix(1);
    }
    constexpr int64_t kLargest = std::numeric_limits<int32_t>::max();
    int64_t magnitude = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            break;
        }
        magnitude = magnitude * 10 + (c - '0');
        if (magnitude > kLargest) {
            return negative ? std::numeric_limits<int32_t>::min() : std::numeric_limits<int32_t>::max();
        }
    }
    return static_cast<int32_t>(negative ? -magnitude : magnitude);
}

}  // namespace vantix
