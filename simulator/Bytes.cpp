#include "Bytes.h"

#include <cstdint>

namespace vantix::simulator {
namespace {

int DigitOf(char c) {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

/// What the first byte of a UTF-8 sequence says about it.
struct Lead {
    std::size_t following;   ///< number of bytes that follow
    std::uint32_t bits;      ///< the bits of the code point in the first byte
    std::uint32_t smallest;  ///< the smallest code point that needs a sequence of this length
};

/// Reads the first byte of a UTF-8 sequence; when it is invalid, `smallest` is above every code point.
Lead LeadOf(unsigned char byte) {
    if (byte < 0x80U) {
        return {0, byte, 0};
    }
    if ((byte & 0xE0U) == 0xC0U) {
        return {1, byte & 0x1FU, 0x80};
    }
    if ((byte & 0xF0U) == 0xE0U) {
        return {2, byte & 0x0FU, 0x800};
    }
    if ((byte & 0xF8U) == 0xF0U) {
        return {3, byte & 0x07U, 0x10000};
    }
    return {0, 0, 0xFFFFFFFFU};
}

}  // namespace

std::string ToHex(std::string_view bytes) {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string hex;
    hex.reserve(bytes.size() * 2);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        hex += digits[byte >> 4U];
        hex += digits[byte & 0x0FU];
    }
    return hex;
}

std::optional<std::string> FromHex(std::string_view hex) {
    if (hex.size() % 2 != 0) {
        return std::nullopt;
    }
    std::string bytes;
    bytes.reserve(hex.size() / 2);
    for (std::size_t at = 0; at < hex.size(); at += 2) {
        const int high = DigitOf(hex[at]);
        const int low = DigitOf(hex[at + 1]);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        bytes += static_cast<char>(high * 16 + low);
    }
    return bytes;
}

bool IsUtf8(std::string_view bytes) {
    std::size_t at = 0;
    while (at < bytes.size()) {
        const Lead lead = LeadOf(static_cast<unsigned char>(bytes[at++]));
        if (lead.following > bytes.size() - at) {
            return false;
        }
        std::uint32_t point = lead.bits;
        for (std::size_t i = 0; i < lead.following; ++i) {
            const auto next = static_cast<unsigned char>(bytes[at++]);
            if ((next & 0xC0U) != 0x80U) {
                return false;
            }
            point = (point << 6U) | (next & 0x3FU);
        }
        if (point < lead.smallest || point > 0x10FFFFU || (point >= 0xD800U && point <= 0xDFFFU)) {
            return false;
        }
    }
    return true;
}

}  // namespace vantix::simulator
