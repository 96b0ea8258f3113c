#pragma once

#include <cstdio>
#include <string_view>

namespace vantix::ctl {

/// Keeps standard error for the tool's own messages.
///
/// The library copies every log line to the debugger channel, which is standard error on most systems. While this
/// object lives, standard error's descriptor leads nowhere, and messages of the tool go to a duplicate of the old one.
/// One at a time.
class StandardError {
public:
    StandardError();
    ~StandardError();
    StandardError(const StandardError&) = delete;
    StandardError& operator=(const StandardError&) = delete;

    /// What standard error was: the stream for messages, with or without such an object.
    static std::FILE* Stream();

private:
    int m_kept;
};

/// Writes one line, "vantixctl: …", for the person at the terminal.
void Complain(std::string_view message);

}  // namespace vantix::ctl
