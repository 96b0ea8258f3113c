#include "HandLine.h"

#include <atomic>
#include <cstdarg>
#include <cstddef>
#include <cstdio>

namespace vantix::bench {
namespace {

constexpr size_t kBuffer = 40960;

using Callback = void (*)(const char* text);
std::atomic<Callback> g_callback{nullptr};

void Finish(char* buffer, int length) {
    const bool fits = length >= 0 && static_cast<size_t>(length) < kBuffer - 2;
    const size_t end = fits ? static_cast<size_t>(length) : 0;
    buffer[end] = '\n';
    buffer[end + 1] = '\0';
    std::fputs(buffer, stderr);
    if (const Callback callback = g_callback.load(std::memory_order_acquire)) {
        callback(buffer);
    }
}

}  // namespace

void HandLine(const char* format, ...) {
    char buffer[kBuffer] = {};
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(buffer, sizeof(buffer), format, values);
    va_end(values);
    Finish(buffer, length);
}

void UnzeroedHandLine(const char* format, ...) {
    char buffer[kBuffer];  // NOLINT(cppcoreguidelines-pro-type-member-init): this is what it is for
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(buffer, sizeof(buffer), format, values);
    va_end(values);
    Finish(buffer, length);
}

}  // namespace vantix::bench
