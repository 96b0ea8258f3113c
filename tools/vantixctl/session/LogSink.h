#pragma once

#include <string>

namespace vantix::ctl {

/// Where the library's log lines are written, and from which level on.
struct LogChoice {
    std::string target;  ///< a file, "-" for standard error, empty for none
    int level = 3;       ///< of `setLogLevel`

    bool Wanted() const { return !target.empty(); }
};

/// Writes the library's log lines while it exists. Only one may exist at a time.
class LogSink {
public:
    /// Throws std::runtime_error when the file cannot be written.
    explicit LogSink(const LogChoice& choice);
    ~LogSink();
    LogSink(const LogSink&) = delete;
    LogSink& operator=(const LogSink&) = delete;
};

}  // namespace vantix::ctl
