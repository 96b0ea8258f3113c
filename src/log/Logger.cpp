#include "log/Logger.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "tvl/tvl.h"
#include "tvllog/tvllog.h"

#if defined(_WIN32)
#include <process.h>
#else
#include <unistd.h>
#endif

namespace vantix {
namespace {

constexpr int kBufferSize = 40960;
constexpr char kModuleName[] = "Vantix";

/// Ends the process as a range-check failure does.
[[noreturn]] void RangeCheckFailure() { std::abort(); }

/// Ends the text of `length` characters in the buffer with a newline and hands it to the sinks. A negative length
/// stands for a text that could not be formatted.
void Emit(int lineLevel, char* buffer, int length) {
    if (length == kBufferSize - 1 || length == kBufferSize) {
        RangeCheckFailure();
    }
    if (length < 0 || length > kBufferSize) {
        buffer[0] = '\0';
    } else {
        buffer[length] = '\n';
        buffer[length + 1] = '\0';
    }
    TVL_OutputDebugString(buffer);
    TVLLOG_Write(static_cast<unsigned>(lineLevel), kModuleName, buffer);
}

/// Any log line may be the first thing that happens in the process, and it builds the core.
bool CoreIsThere() { return kBuildCore(); }

void LogAt(const CallSite& site, int lineLevel, const char* prefix, const char* format, va_list values) {
    if (!CoreIsThere() || !LogPasses(lineLevel)) {
        return;
    }
    char buffer[kBufferSize] = {};
    char tag[1024] = {};
    if (std::strlen(site.function) < sizeof(tag)) {
        tag_detail::WriteTag(site.function, tag);
    }
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif
    const int start = std::snprintf(buffer, sizeof(buffer), prefix, ProcessId(), tag, site.line);
    const int length = std::vsnprintf(buffer + start, sizeof(buffer) - static_cast<size_t>(start), format, values);
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
    Emit(lineLevel, buffer, length < 0 ? length : start + length);
}

}  // namespace

int ProcessId() {
#if defined(_WIN32)
    return _getpid();
#else
    return getpid();
#endif
}

void log(int lineLevel, const char* format, ...) {
    if (!CoreIsThere() || !LogPasses(lineLevel)) {
        return;
    }
    char buffer[kBufferSize] = {};
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(buffer, sizeof(buffer), format, values);
    va_end(values);
    Emit(lineLevel, buffer, length);
}

void LogInfoAt(const CallSite& site, int lineLevel, const char* format, ...) {
    va_list values;
    va_start(values, format);
    LogAt(site, lineLevel, VANTIX_INFO_PREFIX, format, values);
    va_end(values);
}

void LogErrorAt(const CallSite& site, int lineLevel, const char* format, ...) {
    va_list values;
    va_start(values, format);
    LogAt(site, lineLevel, VANTIX_ERROR_PREFIX, format, values);
    va_end(values);
}

}  // namespace vantix
