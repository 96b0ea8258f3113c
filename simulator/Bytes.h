#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantix::simulator {

/// Lower-case hexadecimal digits of the bytes.
std::string ToHex(std::string_view bytes);

/// The bytes of a hexadecimal text of either case; nothing when the text is not hexadecimal.
std::optional<std::string> FromHex(std::string_view hex);

/// Whether the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

}  // namespace vantix::simulator
