#pragma once

#include <cstdint>
#include <string_view>

namespace vantix {

/// Reads a decimal number at the start of a text as the C library's `atoi` and a stream extraction do: leading blanks
/// are skipped, a sign is taken, anything after the digits is ignored, no digits give 0. Unlike them it is defined for
/// every text: a number outside 32 bits becomes the nearest one inside, and the locale does not matter.
int32_t DecimalPrefix(std::string_view text);

}  // namespace vantix
