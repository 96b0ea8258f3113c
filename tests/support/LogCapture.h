#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace vantix::test {

/// One line as the log library received it.
struct LogLine {
    unsigned level = 0;
    std::string module;
    std::string text;  ///< Whole, with its newline.

    /// "INFO " or "ERROR".
    std::string Word() const;
    /// The function tag.
    std::string Tag() const;
    /// The message after the prefix, without the newline.
    std::string Message() const;
};

void PrintTo(const LogLine& line, std::ostream* out);

/// Collects every log line while it exists, from all threads. One at a time. Keeps the debugger channel as it is.
class LogCapture {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::vector<LogLine> Lines() const;
    /// The messages, in order.
    std::vector<std::string> Messages() const;
    /// The first line with this message, or an empty one.
    LogLine Find(const std::string& message) const;
    /// How many lines have this message.
    size_t Count(const std::string& message) const;
    /// Whether any line's whole text contains this.
    bool Contains(const std::string& part) const;
    void Clear();
};

}  // namespace vantix::test
