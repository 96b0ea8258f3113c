#include "requests/MessageText.h"

#include <cstdarg>
#include <cstdio>

#if defined(__GNUC__)
// The formats are data; their types check at compile time that they fit the values.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif

namespace vantix {
namespace {

/// Longer than a log line can be, so nothing is cut here that a sink would receive.
constexpr size_t kLongest = 40961;

std::string Formatted(const char* format, ...) {
    char text[kLongest + 1] = {};
    va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof(text), format, values);
    va_end(values);
    return text;
}

}  // namespace

std::string Filled(CodeText text, int code) { return Formatted(text.format, code); }

std::string Filled(BodyText text, TextView body) { return Formatted(text.format, body.c_str()); }

std::string Filled(BodyCodeText text, TextView body, int code) { return Formatted(text.format, body.c_str(), code); }

std::string Filled(CostText text, int32_t milliseconds) {
    return Formatted(text.format, static_cast<long>(milliseconds));
}

}  // namespace vantix
