#include "text/Unicode.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vantix::ctl {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

/// Characters of two columns: East Asian wide and full-width ones, and emoji.
constexpr std::array<Range, 9> kWide = {{{0x1100, 0x115F},
                                         {0x2E80, 0x303E},
                                         {0x3041, 0xA4CF},
                                         {0xAC00, 0xD7A3},
                                         {0xF900, 0xFAFF},
                                         {0xFE30, 0xFE6F},
                                         {0xFF00, 0xFF60},
                                         {0x1F300, 0x1FAFF},
                                         {0x20000, 0x3FFFD}}};

/// Characters of no column: marks that combine with the character before them.
constexpr std::array<Range, 3> kCombining = {{{0x0300, 0x036F}, {0x200B, 0x200F}, {0xFE00, 0xFE0F}}};

template <size_t Count>
bool IsIn(const std::array<Range, Count>& ranges, char32_t character) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const Range& range) { return range.first <= character && character <= range.last; });
}

int ColumnsOf(char32_t character) {
    if (IsIn(kCombining, character)) {
        return 0;
    }
    return IsIn(kWide, character) ? 2 : 1;
}

size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) {
        return 1;
    }
    if (lead >= 0xF0) {
        return 4;
    }
    return lead >= 0xE0 ? 3 : 2;
}

/// Reads one character and moves `at` to the next. A malformed sequence is read byte by byte.
char32_t Next(std::string_view text, size_t& at) {
    const auto lead = static_cast<unsigned char>(text[at]);
    const size_t length = SequenceLength(lead);
    constexpr std::array<unsigned, 5> kLeadBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = lead & kLeadBits.at(length);
    if (lead >= 0x80 && lead < 0xC0) {
        ++at;
        return 0xFFFD;
    }
    for (size_t index = 1; index < length; ++index) {
        const unsigned byte = at + index < text.size() ? static_cast<unsigned char>(text[at + index]) : 0U;
        if ((byte & 0xC0U) != 0x80U) {
            ++at;
            return 0xFFFD;
        }
        character = (character << 6U) | (byte & 0x3FU);
    }
    at += length;
    return character;
}

bool MayBreakAfter(char character) {
    return character == ' ' || character == '&' || character == ',' || character == '|';
}

/// The end of the line that begins at `start`.
size_t LineEnd(std::string_view text, size_t start, int width) {
    size_t lastBreak = start;
    int columns = 0;
    for (size_t at = start; at < text.size();) {
        size_t next = at;
        columns += ColumnsOf(Next(text, next));
        const bool fits = columns <= width || (columns == width + 1 && text[at] == ' ');
        if (!fits) {
            return lastBreak > start ? lastBreak : std::max(at, start + 1);
        }
        if (MayBreakAfter(text[at])) {
            lastBreak = next;
        }
        at = next;
    }
    return text.size();
}

}  // namespace

std::string Printable(std::string_view text) {
    std::string clean;
    for (size_t at = 0; at < text.size();) {
        size_t next = at;
        const char32_t character = Next(text, next);
        const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
        if (isControl) {
            clean += ' ';
        } else if (character == 0xFFFD) {
            clean += "\xEF\xBF\xBD";
        } else {
            clean += text.substr(at, next - at);
        }
        at = next;
    }
    return clean;
}

int DisplayWidth(std::string_view text) {
    int columns = 0;
    for (size_t at = 0; at < text.size();) {
        columns += ColumnsOf(Next(text, at));
    }
    return columns;
}

std::vector<std::string> Wrapped(std::string_view text, int width) {
    std::vector<std::string> lines;
    size_t start = 0;
    do {
        const size_t end = LineEnd(text, start, std::max(width, 1));
        std::string_view line = text.substr(start, end - start);
        while (!line.empty() && line.back() == ' ') {
            line.remove_suffix(1);
        }
        lines.emplace_back(line);
        start = end;
    } while (start < text.size());
    return lines;
}

std::string Masked(std::string_view secret) {
    constexpr size_t kLongEnough = 12;
    constexpr size_t kShown = 3;
    if (secret.empty()) {
        return {};
    }
    return std::string(secret.size() >= kLongEnough ? secret.substr(0, kShown) : std::string_view()).append("***");
}

}  // namespace vantix::ctl
