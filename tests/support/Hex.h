#pragma once

#include <string>
#include <string_view>

namespace vantix::test {

/// The bytes as lower-case hexadecimal digits, as the loopback cloud writes and reads them.
inline std::string Hex(std::string_view bytes) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (const char c : bytes) {
        hex += kDigits[static_cast<unsigned char>(c) >> 4U];
        hex += kDigits[static_cast<unsigned char>(c) & 15U];
    }
    return hex;
}

}  // namespace vantix::test
