#include "json/Utf8.h"

#include <cstddef>

namespace vantix::json {
namespace {

/// A first byte, and what may follow it: how many bytes, and the range of the first of them.
struct Sequence {
    unsigned char first = 0;
    unsigned char last = 0;
    size_t following = 0;
    unsigned char smallest = 0x80;
    unsigned char largest = 0xBF;
};

constexpr Sequence kSequences[] = {
    {.first = 0x00, .last = 0x7F, .following = 0},
    {.first = 0xC2, .last = 0xDF, .following = 1},
    {.first = 0xE0, .last = 0xE0, .following = 2, .smallest = 0xA0},
    {.first = 0xE1, .last = 0xEC, .following = 2},
    {.first = 0xED, .last = 0xED, .following = 2, .largest = 0x9F},  // no surrogates
    {.first = 0xEE, .last = 0xEF, .following = 2},
    {.first = 0xF0, .last = 0xF0, .following = 3, .smallest = 0x90},
    {.first = 0xF1, .last = 0xF3, .following = 3},
    {.first = 0xF4, .last = 0xF4, .following = 3, .largest = 0x8F},
};

/// The length of the character that a text begins with; 0 when it is none.
size_t CharacterLength(std::string_view text) {
    const auto byte = [&](size_t at) { return static_cast<unsigned char>(text[at]); };
    for (const Sequence& sequence : kSequences) {
        if (byte(0) < sequence.first || byte(0) > sequence.last) {
            continue;
        }
        if (text.size() <= sequence.following) {
            return 0;
        }
        for (size_t i = 1; i <= sequence.following; ++i) {
            const bool isSecond = i == 1;
            if (byte(i) < (isSecond ? sequence.smallest : 0x80) || byte(i) > (isSecond ? sequence.largest : 0xBF)) {
                return 0;
            }
        }
        return sequence.following + 1;
    }
    return 0;
}

}  // namespace

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const size_t length = CharacterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace vantix::json
