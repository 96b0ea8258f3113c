#pragma once

/// @file
/// The logger: one line format, one threshold, two sinks.
///
/// A leaf that every layer may include. `VANTIX_LOG_INFO(level, "text %d", value)` and `VANTIX_LOG_ERROR` write a line
/// in the name of the function that they stand in; `LogInfoAt` and its sibling write one in the name of a caller who
/// handed its `CallSite` down. A filtered-out line costs one read of the threshold. Nothing is allocated.

#include <atomic>
#include <cstddef>
#include <cstdint>

#if defined(__GNUC__)
#define VANTIX_FUNCTION_NAME __PRETTY_FUNCTION__
#define VANTIX_PRINTF_FORMAT(formatIndex, firstArgument) __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define VANTIX_FUNCTION_NAME __FUNCTION__
#define VANTIX_PRINTF_FORMAT(formatIndex, firstArgument)
#endif

namespace vantix {

/// Levels that lines carry; the threshold compares with them. The word of a line is independent of its level.
namespace level {
inline constexpr int kTrace = 1;    ///< Tracing of the token maps.
inline constexpr int kDetail = 2;   ///< A hit in the B2C map.
inline constexpr int kInfo = 3;     ///< The usual information; also the default threshold.
inline constexpr int kWarning = 4;  ///< Cloud record, upload and unknown-token errors.
inline constexpr int kError = 5;    ///< The usual error.
}  // namespace level

/// The threshold: lines of a lower level are dropped. Read without a lock; any thread.
inline std::atomic<int32_t> iLogLevel{level::kInfo};

/// Builds what stands behind the threshold before the first line is written; false when that fails, and the line is
/// dropped. The core defines it, as a constant: nothing runs at load.
using BuildCoreHook = bool (*)() noexcept;
extern const BuildCoreHook kBuildCore;

/// Whether a line of this level is written.
inline bool LogPasses(int lineLevel) { return iLogLevel.load(std::memory_order_relaxed) <= lineLevel; }

/// Formats a line into a buffer of 40,960 bytes and hands it, with a newline, to the debugger channel and then to the
/// log library. `format` begins with the line's prefix, and its first three values are process id, tag and line.
///
/// A text that does not fit reaches both sinks as an empty text. One of 40,959 or 40,960 characters ends the process,
/// as a range-check failure does.
void log(int lineLevel, const char* format, ...) VANTIX_PRINTF_FORMAT(2, 3);

/// The id that lines carry.
int ProcessId();

/// A function's name as "Class::method": no return type, namespaces or arguments. A lambda's begins with the tag of the
/// function around it.
template <size_t Size>
struct FunctionTag {
    char text[Size] = {};
};

namespace tag_detail {

constexpr bool StartsWith(const char* text, const char* start) {
    while (*start != '\0' && *text == *start) {
        ++text;
        ++start;
    }
    return *start == '\0';
}

/// Whether a parenthesis belongs to an unnamed namespace or a deduced return type ("decltype(auto)").
constexpr bool OpensNoArguments(const char* parenthesis) {
    return StartsWith(parenthesis, "(anonymous") || StartsWith(parenthesis, "(auto)");
}

/// The first parenthesis that opens an argument list.
constexpr size_t ArgumentsBegin(const char* name, size_t from) {
    size_t depth = 0;  // inside template arguments, which may hold lists of their own
    for (size_t i = from;; ++i) {
        const char c = name[i];
        if (c == '\0' || (c == '(' && depth == 0 && !OpensNoArguments(name + i))) {
            return i;
        }
        if (c == '<') {
            ++depth;
        } else if (c == '>' && depth > 0) {
            --depth;
        }
    }
}

/// One past the parenthesis that closes the one at `open`.
constexpr size_t ArgumentsEnd(const char* name, size_t open) {
    size_t depth = 0;
    size_t i = open;
    for (; name[i] != '\0'; ++i) {
        if (name[i] == '(') {
            ++depth;
        } else if (name[i] == ')' && --depth == 0) {
            return i + 1;
        }
    }
    return i;
}

/// Whether the text before `end` ends with the word of an operator's name, as in "operator ()".
constexpr bool EndsWithOperator(const char* name, size_t end) {
    constexpr size_t kLength = 8;
    return end >= kLength && StartsWith(name + end - kLength, "operator");
}

/// Where the qualified name that ends at `end` begins: after the return type.
constexpr size_t NameBegin(const char* name, size_t end) {
    size_t depth = 0;
    size_t begin = end;
    while (begin > 0) {
        const char c = name[begin - 1];
        if (c == '>' || c == ')' || c == '}') {
            ++depth;
        } else if (c == '<' || c == '(' || c == '{') {
            --depth;
        } else if (depth == 0 && (c == ' ' || c == '*' || c == '&') && !EndsWithOperator(name, begin - 1)) {
            break;
        }
        --begin;
    }
    return begin;
}

/// Skips leading namespaces: all of ours, and unnamed ones, begin with a lower-case letter or a bracket.
constexpr size_t SkipNamespaces(const char* name, size_t begin, size_t end) {
    for (size_t i = begin; i + 1 < end; ++i) {
        if (name[i] == ':' && name[i + 1] == ':') {
            const char first = name[begin];
            if (first >= 'A' && first <= 'Z') {
                break;
            }
            begin = i + 2;
            ++i;
        }
    }
    return begin;
}

/// Writes the tag and a zero; `tag` has room for the whole name.
constexpr void WriteTag(const char* name, char* tag) {
    const size_t end = ArgumentsBegin(name, 0);
    const size_t begin = SkipNamespaces(name, NameBegin(name, end), end);
    for (size_t i = begin; i < end; ++i) {
        *tag++ = name[i];
    }
    size_t rest = ArgumentsEnd(name, end);
    rest += StartsWith(name + rest, " const") ? size_t{6} : size_t{0};
    if (StartsWith(name + rest, "::")) {  // a lambda: the rest of its name, up to qualifiers
        for (; name[rest] != '\0' && !StartsWith(name + rest, " const") && !StartsWith(name + rest, " ["); ++rest) {
            *tag++ = name[rest];
        }
    }
    *tag = '\0';
}

}  // namespace tag_detail

/// Turns the compiler's name of a function into its tag, at compile time.
template <size_t Size>
constexpr FunctionTag<Size> MakeFunctionTag(const char (&name)[Size]) {
    FunctionTag<Size> tag;
    tag_detail::WriteTag(name, tag.text);
    return tag;
}

/// The place in whose name somebody further down writes log lines.
struct CallSite {
    const char* function;  ///< The compiler's name of the function; static storage.
    int line;
};

/// Writes a line in the name of a call site. The format holds the message alone.
void LogInfoAt(const CallSite& site, int lineLevel, const char* format, ...) VANTIX_PRINTF_FORMAT(3, 4);
void LogErrorAt(const CallSite& site, int lineLevel, const char* format, ...) VANTIX_PRINTF_FORMAT(3, 4);

}  // namespace vantix

/// The place that this stands at.
#define VANTIX_HERE (::vantix::CallSite{VANTIX_FUNCTION_NAME, __LINE__})

#define VANTIX_INFO_PREFIX "[%d] VX   INFO \t<%s>\t<%d>,"
#define VANTIX_ERROR_PREFIX "[%d] VX   ERROR\t<%s>\t<%d>,"

#define VANTIX_LOG_LINE(lineLevel, prefix, format, ...)                                        \
    do {                                                                                       \
        if (::vantix::LogPasses(lineLevel)) {                                                  \
            static constexpr auto vantixTag = ::vantix::MakeFunctionTag(VANTIX_FUNCTION_NAME); \
            ::vantix::log(lineLevel, prefix format, ::vantix::ProcessId(), vantixTag.text,     \
                          __LINE__ __VA_OPT__(, ) __VA_ARGS__);                                \
        }                                                                                      \
    } while (false)

/// Writes "INFO " or "ERROR" lines: level, a literal format, its values.
#define VANTIX_LOG_INFO(lineLevel, format, ...) \
    VANTIX_LOG_LINE(lineLevel, VANTIX_INFO_PREFIX, format __VA_OPT__(, ) __VA_ARGS__)
#define VANTIX_LOG_ERROR(lineLevel, format, ...) \
    VANTIX_LOG_LINE(lineLevel, VANTIX_ERROR_PREFIX, format __VA_OPT__(, ) __VA_ARGS__)
