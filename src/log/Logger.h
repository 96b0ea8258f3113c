#pragma once

/// @file
/// The logger: one line format, one threshold, two sinks.
///
/// `VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "text %d", value)` and `VANTIX_LOG_ERROR` write a line with the tag and
/// line number of a call site: this place, or one that a caller passes. A filtered-out line costs one read of the
/// threshold; its values are not even computed. Nothing is allocated.

#include <atomic>
#include <cstdint>

#include "log/CallSite.h"

#if defined(__GNUC__)
#define VANTIX_PRINTF_FORMAT(formatIndex, firstArgument) __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define VANTIX_PRINTF_FORMAT(formatIndex, firstArgument)
#endif

namespace vantix {

/// Levels that lines bear; the threshold compares with them. The word of a line is independent of its level.
namespace level {
inline constexpr int kTrace = 1;    ///< Tracing of the token maps.
inline constexpr int kDetail = 2;   ///< A hit in the B2C map.
inline constexpr int kInfo = 3;     ///< The usual information; also the default threshold.
inline constexpr int kWarning = 4;  ///< Cloud record, upload and unknown-token errors.
inline constexpr int kError = 5;    ///< The usual error.
}  // namespace level

/// The threshold: lines of a lower level are dropped. Read without a lock; any thread.
inline std::atomic<int32_t> iLogLevel{level::kInfo};

/// Builds the core before the first line. False when that fails; the line is then dropped. The core defines it as a
/// constant, so that nothing runs at load.
using BuildCoreHook = bool (*)() noexcept;
extern const BuildCoreHook kBuildCore;

/// Whether a line of this level is written.
inline bool LogPasses(int lineLevel) { return iLogLevel.load(std::memory_order_relaxed) <= lineLevel; }

/// Formats a line into a buffer of 40,960 bytes and hands it, with a newline, to the debugger channel and then to the
/// log library. `format` begins with the line's prefix, and its first three values are process id, tag and line.
///
/// A text that does not fit reaches both sinks as an empty text. One of 40,959 or 40,960 characters ends the process,
/// as a range-check failure does; a build with VANTIX_OVERLONG_LINE=drop makes it an empty text, too.
void log(int lineLevel, const char* format, ...) VANTIX_PRINTF_FORMAT(2, 3);

/// The word of a line.
enum class LineWord { Info, Error };

/// What `LogMessage` calls for a line that passes: kept apart, since its buffer takes stack as soon as it is entered.
void WriteMessage(const CallSite& site, int lineLevel, LineWord word, const char* format, ...);

/// A line whose text is data: behind the call site's prefix stands `format` with its values. Whoever hands the format
/// in knows that it fits them.
template <class... Values>
void LogMessage(const CallSite& site, int lineLevel, LineWord word, const char* format, Values... values) {
    if (LogPasses(lineLevel)) {
        WriteMessage(site, lineLevel, word, format, values...);
    }
}

/// The id that lines bear.
int ProcessId();

/// A call site's tag. Not inline: hundreds of statements share it.
FunctionTag LineTag(const CallSite& site);

}  // namespace vantix

#define VANTIX_INFO_PREFIX "[%d] VX   INFO \t<%s>\t<%d>,"
#define VANTIX_ERROR_PREFIX "[%d] VX   ERROR\t<%s>\t<%d>,"

#define VANTIX_LOG_LINE(site, lineLevel, prefix, format, ...)                                                  \
    do {                                                                                                       \
        if (::vantix::LogPasses(lineLevel)) {                                                                  \
            const ::vantix::CallSite& vantixSite = site;                                                       \
            ::vantix::log(lineLevel, prefix format, ::vantix::ProcessId(), ::vantix::LineTag(vantixSite).text, \
                          vantixSite.Line() __VA_OPT__(, ) __VA_ARGS__);                                       \
        }                                                                                                      \
    } while (false)

/// Writes an "INFO " or "ERROR" line: call site, level, a literal format, its values.
#define VANTIX_LOG_INFO(site, lineLevel, format, ...) \
    VANTIX_LOG_LINE(site, lineLevel, VANTIX_INFO_PREFIX, format __VA_OPT__(, ) __VA_ARGS__)
#define VANTIX_LOG_ERROR(site, lineLevel, format, ...) \
    VANTIX_LOG_LINE(site, lineLevel, VANTIX_ERROR_PREFIX, format __VA_OPT__(, ) __VA_ARGS__)
