#include "requests/MessageText.h"

#include "log/Logger.h"

namespace vantix {

void LogInfo(const CallSite& site, BodyText text, TextView body) {
    LogMessage(site, level::kInfo, LineWord::Info, text.format, body.c_str());
}

void LogInfo(const CallSite& site, CostText text, int32_t milliseconds) {
    LogMessage(site, level::kInfo, LineWord::Info, text.format, static_cast<long>(milliseconds));
}

void LogError(const CallSite& site, CodeText text, int code) {
    LogMessage(site, level::kError, LineWord::Error, text.format, code);
}

void LogError(const CallSite& site, BodyText text, TextView body) {
    LogMessage(site, level::kError, LineWord::Error, text.format, body.c_str());
}

void LogError(const CallSite& site, BodyCodeText text, TextView body, int code) {
    LogMessage(site, level::kError, LineWord::Error, text.format, body.c_str(), code);
}

}  // namespace vantix
