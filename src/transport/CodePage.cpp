#include "transport/CodePage.h"

#if defined(_WIN32)
#include <windows.h>

#include <limits>
#include <string>
#include <string_view>

namespace vantix {
namespace {

std::string Converted(std::string_view text) {
    if (text.empty() || text.size() > static_cast<size_t>(std::numeric_limits<int>::max())) {
        return {};
    }
    const int size = static_cast<int>(text.size());
    const int wideSize = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    if (wideSize <= 0) {
        return {};
    }
    std::wstring wide(static_cast<size_t>(wideSize), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), wideSize);
    const int ansiSize = WideCharToMultiByte(CP_ACP, 0, wide.data(), wideSize, nullptr, 0, nullptr, nullptr);
    if (ansiSize <= 0) {
        return {};
    }
    std::string ansi(static_cast<size_t>(ansiSize), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), wideSize, ansi.data(), ansiSize, nullptr, nullptr);
    return ansi;
}

}  // namespace

void Utf8ToAnsi(ResponseBody& body) {
    if (!body.Assign(Converted(body.Text()))) {
        body.Assign({});
    }
}

}  // namespace vantix

#else

namespace vantix {

void Utf8ToAnsi(ResponseBody& /*body*/) {}

}  // namespace vantix

#endif
