#pragma once

#include <string_view>

namespace vantix::json {

/// Whether a text is well-formed UTF-8: no stray or missing byte, no longer form than needed, no surrogate, nothing
/// above U+10FFFF.
bool IsUtf8(std::string_view text);

}  // namespace vantix::json
