#pragma once

#include <cstdio>
#include <string_view>

namespace vantix::ctl {

/// Keeps standard error for the tool's own messages.
///
/// The library copies every log line to the debugger channel, which is standard error on most systems. While this
/// object exists, standard error is redirected to the null device, and the tool's messages are written to a duplicate
/// of the original. Only one may exist at a time.
class StandardError {
public:
    StandardError();
    ~StandardError();
    StandardError(const StandardError&) = delete;
    StandardError& operator=(const StandardError&) = delete;

    /// The stream for the tool's messages, with or without such an object.
    static std::FILE* Stream();

private:
    int m_kept;
};

/// Writes the line "vantixctl: MESSAGE" to the stream for messages.
void PrintError(std::string_view message);

}  // namespace vantix::ctl
