#include "requests/MessageText.h"

#if defined(__GNUC__)
// The formats are data; their types checked, at compile time, that they fit the values.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#endif

namespace vantix {

void LogError(const CallSite& site, int lineLevel, CodeText text, int code) {
    LogErrorAt(site, lineLevel, text.format, code);
}

void LogError(const CallSite& site, int lineLevel, BodyCodeText text, const std::string& body, int code) {
    LogErrorAt(site, lineLevel, text.format, body.c_str(), code);
}

void LogInfo(const CallSite& site, int lineLevel, CostText text, int32_t milliseconds) {
    LogInfoAt(site, lineLevel, text.format, static_cast<long>(milliseconds));
}

}  // namespace vantix
