#include "log/Masking.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>

namespace vantix {
namespace {

constexpr std::array<std::string_view, 3> kSecretParameters{"appKey", "accessToken", "sessionId"};
constexpr std::array<std::string_view, 2> kSecretHeaders{"accessToken", "sessionId"};

template <size_t Count>
bool Contains(const std::array<std::string_view, Count>& keys, std::string_view key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

/// The quote that ends the string whose first character stands at `from`, or the end of the text.
size_t ClosingQuote(std::string_view text, size_t from) {
    while (from < text.size() && text[from] != '"') {
        from += text[from] == '\\' ? size_t{2} : size_t{1};
    }
    return std::min(from, text.size());
}

/// Where the value of the member whose key ends before `from` begins, or npos when none follows.
size_t ValueAfter(std::string_view text, size_t from) {
    const auto skipBlanks = [&] {
        while (from < text.size() && std::isspace(static_cast<unsigned char>(text[from])) != 0) {
            ++from;
        }
    };
    skipBlanks();
    if (from >= text.size() || text[from] != ':') {
        return std::string::npos;
    }
    ++from;
    skipBlanks();
    return from < text.size() ? from : std::string::npos;
}

/// One past a number or word.
size_t EndOfWord(std::string_view text, size_t from) {
    return std::min(text.find_first_of(",}] \t\r\n", from), text.size());
}

}  // namespace

bool IsSecretParameter(std::string_view key) { return Contains(kSecretParameters, key); }

bool IsSecretHeader(std::string_view key) { return Contains(kSecretHeaders, key); }

std::string MaskedJson(std::string_view text) {
    std::string masked;
    size_t copied = 0;
    for (size_t quote = text.find('"'); quote != std::string::npos;) {
        const size_t end = ClosingQuote(text, quote + 1);
        if (end == text.size()) {
            break;
        }
        const std::string_view key = std::string_view(text).substr(quote + 1, end - quote - 1);
        const size_t value = IsSecretParameter(key) ? ValueAfter(text, end + 1) : std::string::npos;
        size_t next = end + 1;
        if (value != std::string::npos) {
            // The quotes of a string stay; a number or a word goes as a whole.
            const bool isText = text[value] == '"';
            const size_t begin = isText ? value + 1 : value;
            masked.append(text, copied, begin - copied).append(kMask);
            copied = isText ? ClosingQuote(text, begin) : EndOfWord(text, begin);
            next = std::min(isText ? copied + 1 : copied, text.size());
        }
        quote = text.find('"', next);
    }
    return masked.append(text.substr(copied));
}

namespace {

/// One past a value of any kind; what does not end ends with the text.
size_t EndOfValue(std::string_view text, size_t from) {
    size_t depth = 0;
    for (size_t at = from; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '"') {
            at = ClosingQuote(text, at + 1);
        } else if (c == '{' || c == '[') {
            ++depth;
        } else if (depth == 0) {
            return EndOfWord(text, at);
        } else if (c == '}' || c == ']') {
            --depth;
        }
        if (depth == 0) {
            return std::min(at + 1, text.size());
        }
    }
    return text.size();
}

/// The character that the four digits of an escape stand for, if it is one of ASCII; else NUL.
char Unescaped(const char* digits) {
    unsigned code = 0;
    const char* const end = std::from_chars(digits, digits + 4, code, 16).ptr;
    return end == digits + 4 && code < 0x80U ? static_cast<char>(code) : '\0';
}

/// One past the quote that ends the name which begins at `from`, or npos when another text stands there.
size_t EndOfName(std::string_view text, size_t from, std::string_view name) {
    for (const char wanted : name) {
        const bool isEscape = text.compare(from, 2, "\\u") == 0 && from + 6 <= text.size();
        const size_t length = isEscape ? 6 : 1;
        if (from == text.size() || (isEscape ? Unescaped(&text[from + 2]) : text[from]) != wanted) {
            return std::string::npos;
        }
        from += length;
    }
    return from < text.size() && text[from] == '"' ? from + 1 : std::string::npos;
}

/// Where the value begins if the quote at `quote` opens one of the names and a value follows; else npos.
size_t ValueOfMember(std::string_view text, size_t quote, std::span<const std::string_view> names) {
    for (const std::string_view name : names) {
        if (const size_t end = EndOfName(text, quote + 1, name); end != std::string::npos) {
            return ValueAfter(text, end);
        }
    }
    return std::string::npos;
}

}  // namespace

std::string MaskedMembers(std::string_view text, std::span<const std::string_view> names) {
    std::string masked;
    size_t copied = 0;
    // Every quote may open a name: in a text that is no JSON nothing says which ones do.
    for (size_t quote = text.find('"'); quote != std::string::npos;) {
        size_t next = quote + 1;
        if (const size_t value = ValueOfMember(text, quote, names); value != std::string::npos) {
            masked.append(text, copied, value - copied).append("\"").append(kMask).append("\"");
            copied = EndOfValue(text, value);
            next = copied;
        }
        quote = text.find('"', next);
    }
    return masked.append(text.substr(copied));
}

}  // namespace vantix
