#include "session/LogSink.h"

#include <cstdio>
#include <mutex>
#include <stdexcept>

#include "session/StandardError.h"
#include "tvllog/tvllog.h"

namespace vantix::ctl {
namespace {

std::mutex g_mutex;
std::FILE* g_stream = nullptr;
bool g_isFile = false;

void TakeLine(unsigned /*level*/, const char* /*moduleName*/, const char* text) {
    const std::lock_guard guard(g_mutex);
    if (g_stream != nullptr) {
        std::fputs(text, g_stream);
        std::fflush(g_stream);
    }
}

}  // namespace

LogSink::LogSink(const LogChoice& choice) {
    if (!choice.Wanted()) {
        return;
    }
    const std::lock_guard guard(g_mutex);
    g_isFile = choice.target != "-";
    g_stream = g_isFile ? std::fopen(choice.target.c_str(), "ab") : StandardError::Stream();
    if (g_stream == nullptr) {
        throw std::runtime_error("cannot write the log file " + choice.target);
    }
    TVLLOG_SetCallback(&TakeLine);
}

LogSink::~LogSink() {
    TVLLOG_SetCallback(nullptr);
    const std::lock_guard guard(g_mutex);
    if (g_stream != nullptr && g_isFile) {
        std::fclose(g_stream);
    }
    g_stream = nullptr;
}

}  // namespace vantix::ctl
