// The linker leads the library's calls here: --wrap=TVL_OutputDebugString --wrap=TVLLOG_Write

#include "support/Lines.h"

#include <utility>

#include "Fuzzer.h"
#include "log/Logger.h"

namespace vantix::fuzz {
namespace {

std::vector<std::string> g_lines;
std::string g_shown;

}  // namespace

std::vector<std::string> TakeLines() { return std::exchange(g_lines, {}); }

WritingLines::WritingLines(int threshold) { iLogLevel = threshold; }
WritingLines::~WritingLines() { iLogLevel = 6; }

}  // namespace vantix::fuzz

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {
void __wrap_TVL_OutputDebugString(const char* text) { vantix::fuzz::g_shown = text; }

/// Each line reaches the debugger channel first, and then the log library with the same text.
void __wrap_TVLLOG_Write(unsigned level, const char* moduleName, const char* text) {
    vantix::fuzz::Require(std::exchange(vantix::fuzz::g_shown, {}) == text && std::string(moduleName) == "Vantix");
    vantix::fuzz::g_lines.push_back(std::to_string(level) + text);
}
}
// NOLINTEND(bugprone-reserved-identifier)
