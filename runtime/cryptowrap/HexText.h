#pragma once

namespace cryptowrap {

inline constexpr unsigned kMd5Bytes = 16;

/// Writes the digest as lower-case hexadecimal text with a terminating zero.
inline void WriteHex(const unsigned char (&digest)[kMd5Bytes], char* text) {
    constexpr char kDigits[] = "0123456789abcdef";
    for (const unsigned char byte : digest) {
        *text++ = kDigits[byte >> 4U];
        *text++ = kDigits[byte & 15U];
    }
    *text = '\0';
}

}  // namespace cryptowrap
