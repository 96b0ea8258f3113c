#include "support/LogCapture.h"

#include <algorithm>
#include <mutex>
#include <ostream>

#include "tvllog/tvllog.h"

namespace vantix::test {
namespace {

std::mutex g_mutex;
std::vector<LogLine> g_lines;

void Collect(unsigned level, const char* moduleName, const char* text) {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_lines.push_back({level, moduleName, text});
}

std::string Between(const std::string& text, const std::string& before, const std::string& after) {
    const size_t begin = text.find(before);
    if (begin == std::string::npos) {
        return {};
    }
    const size_t from = begin + before.size();
    return text.substr(from, text.find(after, from) - from);
}

}  // namespace

std::string LogLine::Word() const { return Between(text, "VX   ", "\t"); }

std::string LogLine::Tag() const { return Between(text, "\t<", ">\t<"); }

std::string LogLine::Message() const {
    const size_t line = text.find(">\t<");
    const size_t comma = line == std::string::npos ? line : text.find(">,", line);
    if (comma == std::string::npos) {
        return text;
    }
    std::string message = text.substr(comma + 2);
    if (!message.empty() && message.back() == '\n') {
        message.pop_back();
    }
    return message;
}

void PrintTo(const LogLine& line, std::ostream* out) {
    *out << "level " << line.level << ' ' << line.text.substr(0, line.text.find_last_not_of('\n') + 1);
}

LogCapture::LogCapture() {
    Clear();
    TVLLOG_SetCallback(Collect);
}

LogCapture::~LogCapture() { TVLLOG_SetCallback(nullptr); }

std::vector<LogLine> LogCapture::Lines() const {
    const std::lock_guard<std::mutex> guard(g_mutex);
    return g_lines;
}

std::vector<std::string> LogCapture::Messages() const {
    std::vector<std::string> messages;
    for (const LogLine& line : Lines()) {
        messages.push_back(line.Message());
    }
    return messages;
}

LogLine LogCapture::Find(const std::string& message) const {
    const std::vector<LogLine> lines = Lines();
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const LogLine& line) { return line.Message() == message; });
    return found == lines.end() ? LogLine() : *found;
}

size_t LogCapture::Count(const std::string& message) const {
    const std::vector<std::string> messages = Messages();
    return static_cast<size_t>(std::count(messages.begin(), messages.end(), message));
}

bool LogCapture::Contains(const std::string& part) const {
    const std::vector<LogLine> lines = Lines();
    return std::any_of(lines.begin(), lines.end(),
                       [&](const LogLine& line) { return line.text.find(part) != std::string::npos; });
}

void LogCapture::Clear() {
    const std::lock_guard<std::mutex> guard(g_mutex);
    g_lines.clear();
}

}  // namespace vantix::test
