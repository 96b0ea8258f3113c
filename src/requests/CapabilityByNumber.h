#pragma once

#include <cstddef>
#include <string_view>

namespace vantix {

/// The short list of a device's capabilities: either values separated by "|", the first having number 1, or, in the
/// B2C mode only, a JSON object with the numbers as keys. The text outlives this.
class ShortList {
public:
    explicit ShortList(std::string_view text);

    /// A capability; one that is missing, not a number or below 1 is 0. Those that are asked for in the order of their
    /// numbers take one walk through the list.
    int Value(unsigned number);

private:
    std::string_view ValueInList(unsigned number);

    std::string_view m_text;
    bool m_isObject;
    size_t m_at = 0;  ///< Where the value of `m_number` begins.
    unsigned m_number = 1;
};

/// One capability of a short list.
inline int CapabilityByNumber(std::string_view shortList, unsigned number) {
    return ShortList(shortList).Value(number);
}

}  // namespace vantix
