#include "log/Masking.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace vantix {
namespace {

constexpr std::array<std::string_view, 3> kSecretParameters{"appKey", "accessToken", "sessionId"};
constexpr std::array<std::string_view, 2> kSecretHeaders{"accessToken", "sessionId"};

template <size_t Count>
bool Contains(const std::array<std::string_view, Count>& keys, std::string_view key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

/// The quote that ends the string whose first character stands at `from`, or the end of the text.
size_t ClosingQuote(const std::string& text, size_t from) {
    while (from < text.size() && text[from] != '"') {
        from += text[from] == '\\' ? size_t{2} : size_t{1};
    }
    return std::min(from, text.size());
}

/// Where the value of the member whose key ends before `from` begins, or npos when none follows.
size_t ValueAfter(const std::string& text, size_t from) {
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

}  // namespace

bool IsSecretParameter(std::string_view key) { return Contains(kSecretParameters, key); }

bool IsSecretHeader(std::string_view key) { return Contains(kSecretHeaders, key); }

std::string MaskedJson(const std::string& text) {
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
            copied =
                isText ? ClosingQuote(text, begin) : std::min(text.find_first_of(",}] \t\r\n", begin), text.size());
            next = std::min(isText ? copied + 1 : copied, text.size());
        }
        quote = text.find('"', next);
    }
    return masked.append(text.substr(copied));
}

}  // namespace vantix
