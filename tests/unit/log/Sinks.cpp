// Takes the place of the debugger channel by the linker's --wrap=TVL_OutputDebugString

#include "unit/log/Sinks.h"

#include <atomic>
#include <mutex>

#include "tvllog/tvllog.h"

namespace vantix::test {
namespace {

std::atomic<size_t> g_debuggerTexts{0};
std::mutex g_mutex;
bool g_active = false;
std::vector<Emitted> g_emitted;
std::function<void()> g_action;

/// Allocates nothing while nobody looks: a test may have made allocations fail.
void Record(const char* sink, const char* text, unsigned level, const char* moduleName) {
    const std::lock_guard<std::mutex> guard(g_mutex);
    if (g_active) {
        g_emitted.push_back({sink, text == nullptr ? "<null>" : text, level, moduleName});
    }
}

void LogLibrary(unsigned level, const char* moduleName, const char* text) {
    Record("log library", text, level, moduleName);
    std::function<void()> action;
    {
        const std::lock_guard<std::mutex> guard(g_mutex);
        action = g_action;
    }
    if (action) {
        action();
    }
}

}  // namespace

Sinks::Sinks() {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_active = true;
    g_emitted.clear();
    g_action = nullptr;
    TVLLOG_SetCallback(LogLibrary);
}

Sinks::~Sinks() {
    TVLLOG_SetCallback(nullptr);
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_active = false;
}

std::vector<Emitted> Sinks::All() const {
    const std::lock_guard<std::mutex> guard(g_mutex);
    return g_emitted;
}

std::vector<std::string> Sinks::Texts(const std::string& sink) const {
    std::vector<std::string> texts;
    for (const Emitted& emitted : All()) {
        if (emitted.sink == sink) {
            texts.push_back(emitted.text);
        }
    }
    return texts;
}

void Sinks::Clear() {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_emitted.clear();
}

void Sinks::OnLine(const std::function<void()>& action) {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_action = action;
}

size_t Sinks::DebuggerTexts() { return g_debuggerTexts; }

}  // namespace vantix::test

// NOLINTNEXTLINE(bugprone-reserved-identifier): the name is the linker's
extern "C" void __wrap_TVL_OutputDebugString(const char* text) {
    ++vantix::test::g_debuggerTexts;
    vantix::test::Record("debugger", text, 0, "");
}
