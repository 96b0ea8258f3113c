#pragma once

#include <string_view>

namespace vantix {

/// Reads one capability of a device from its short list.
///
/// The list is either values separated by "|", the first having number 1, or, in the B2C mode only, a JSON object with
/// the numbers as keys. A capability that is missing, not a number or below 1 is 0.
int CapabilityByNumber(std::string_view shortList, unsigned number);

}  // namespace vantix
