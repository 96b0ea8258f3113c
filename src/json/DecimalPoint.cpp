#include "json/DecimalPoint.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <locale>

#include "json/StringEnd.h"

namespace vantix::json {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

size_t AfterDigits(const std::string& text, size_t from) {
    while (from < text.size() && IsDigit(text[from])) {
        ++from;
    }
    return from;
}

/// One past the exponent at `from`, or `from` when there is none.
size_t AfterExponent(const std::string& text, size_t from) {
    if (from >= text.size() || (text[from] != 'e' && text[from] != 'E')) {
        return from;
    }
    const size_t sign = from + 1 < text.size() && (text[from + 1] == '-' || text[from + 1] == '+') ? 1 : 0;
    const size_t end = AfterDigits(text, from + 1 + sign);
    return end == from + 1 + sign ? from : end;
}

/// Appends the number that begins at `from` and returns where it ends.
size_t AppendNumber(const std::string& text, size_t from, std::string& out) {
    const size_t point = AfterDigits(text, from);
    const size_t fractionEnd = point < text.size() && text[point] == '.' ? AfterDigits(text, point + 1) : point;
    if (fractionEnd <= point + 1) {  // no fraction: as it stands
        out.append(text, from, point - from);
        return point;
    }
    const size_t end = AfterExponent(text, fractionEnd);
    std::string digits = text.substr(from, point - from) + text.substr(point + 1, fractionEnd - point - 1);
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - 1));
    // An exponent that does not fit reads as a large one, with the same result.
    const long exponent = end == fractionEnd ? 0 : std::strtol(text.c_str() + fractionEnd + 1, nullptr, 10);
    const long bounded = std::clamp(exponent, -1'000'000L, 1'000'000L);
    out.append(digits).append("e").append(std::to_string(bounded - static_cast<long>(fractionEnd - point - 1)));
    return end;
}

}  // namespace

bool CLocaleHasOtherPoint() {
    char text[8] = {};
    std::snprintf(text, sizeof(text), "%.1f", 0.5);
    return text[1] != '.';
}

bool CppLocaleHasOtherPoint() { return std::use_facet<std::numpunct<char>>(std::locale()).decimal_point() != '.'; }

std::string WithoutDecimalPoints(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        if (IsDigit(text[i])) {
            i = AppendNumber(text, i, out);
        } else {
            const size_t end = text[i] == '"' ? AfterString(text, i) : i + 1;
            out.append(text, i, end - i);
            i = end;
        }
    }
    return out;
}

}  // namespace vantix::json
