#include "log/Logger.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

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

#if defined(VANTIX_DROP_OVERLONG_LINE)
constexpr bool kDropsOverlongLine = true;
#else
constexpr bool kDropsOverlongLine = false;
#endif

/// The first line of the process may come before any other call; it builds the core.
bool IsWritten(int lineLevel) { return kBuildCore() && LogPasses(lineLevel); }

/// Ends the process as a range-check failure does.
[[noreturn]] void RangeCheckFailure() { std::abort(); }

/// Ends the text of `length` characters in the buffer with a newline and hands it to the sinks. A negative length
/// stands for a text that could not be formatted.
void Emit(int lineLevel, char* buffer, int length) {
    const bool fillsTheBuffer = length == kBufferSize - 1 || length == kBufferSize;
    if (fillsTheBuffer && !kDropsOverlongLine) {
        RangeCheckFailure();
    }
    if (length < 0 || length >= kBufferSize - 1) {
        buffer[0] = '\0';
    } else {
        buffer[length] = '\n';
        buffer[length + 1] = '\0';
    }
    TVL_OutputDebugString(buffer);
    TVLLOG_Write(static_cast<unsigned>(lineLevel), kModuleName, buffer);
}

}  // namespace

int ProcessId() {
#if defined(_WIN32)
    return _getpid();
#else
    return getpid();
#endif
}

FunctionTag LineTag(const CallSite& site) { return site.Tag(); }

void log(int lineLevel, const char* format, ...) {
    if (!IsWritten(lineLevel)) {
        return;
    }
    char buffer[kBufferSize] = {};
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(buffer, sizeof(buffer), format, values);
    va_end(values);
    Emit(lineLevel, buffer, length);
}

// The format is data: whoever calls knows that it fits.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

void WriteMessage(const CallSite& site, int lineLevel, LineWord word, const char* format, ...) {
    if (!IsWritten(lineLevel)) {
        return;
    }
    char buffer[kBufferSize] = {};
    const int start =
        std::snprintf(buffer, sizeof(buffer), word == LineWord::Info ? VANTIX_INFO_PREFIX : VANTIX_ERROR_PREFIX,
                      ProcessId(), LineTag(site).text, site.Line());
    va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(buffer + start, sizeof(buffer) - static_cast<size_t>(start), format, values);
    va_end(values);
    Emit(lineLevel, buffer, length < 0 ? length : start + length);
}

#pragma GCC diagnostic pop

}  // namespace vantix
