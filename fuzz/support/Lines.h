#pragma once

/// @file
/// Takes the place of both sinks of log lines, by the linker.

#include <string>
#include <vector>

namespace vantix::fuzz {

/// The lines that were written since the last call, each as its level's digit and its text.
std::vector<std::string> TakeLines();

/// Lines from this level on are written while it exists; the fuzzers write none otherwise.
class WritingLines {
public:
    explicit WritingLines(int threshold);
    ~WritingLines();
    WritingLines(const WritingLines&) = delete;
    WritingLines& operator=(const WritingLines&) = delete;
};

}  // namespace vantix::fuzz
