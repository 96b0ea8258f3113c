#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantix::test {

/// Something that a sink received.
struct Emitted {
    std::string sink;  ///< "debugger" or "log library".
    std::string text;
    unsigned level = 0;      ///< Log library only.
    std::string moduleName;  ///< Log library only.
};

/// Stands in for both sinks of the logger while it exists, and records what arrives, in order, from all threads. One at
/// a time. Without it the debugger channel is silent.
class Sinks {
public:
    Sinks();
    ~Sinks();
    Sinks(const Sinks&) = delete;
    Sinks& operator=(const Sinks&) = delete;

    std::vector<Emitted> All() const;
    /// The texts that reached one sink.
    std::vector<std::string> Texts(const std::string& sink) const;
    void Clear();
    /// Called by the log library's sink after it recorded a line, on the thread that logs.
    void OnLine(const std::function<void()>& action);

    /// How many texts the debugger channel has received in this process, also without an object of this class.
    static size_t DebuggerTexts();
};

}  // namespace vantix::test
