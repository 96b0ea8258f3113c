#pragma once

#include <algorithm>
#include <cstddef>
#include <string>

namespace vantix::json {

/// One past the string that begins with the quote at `from`; the end of the text when it does not end.
inline size_t AfterString(std::string_view text, size_t from) {
    for (++from; from < text.size() && text[from] != '"'; ++from) {
        from += text[from] == '\\' ? size_t{1} : size_t{0};
    }
    return std::min(from + 1, text.size());
}

}  // namespace vantix::json
