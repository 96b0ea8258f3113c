#include "transport/CurlCallbacks.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <new>
#include <stdexcept>
#include <string>

#include "tvl/tvl.h"

namespace vantix {
namespace {

void PrintPiece(curl_infotype type, int length, const char* data) {
    switch (type) {
        case CURLINFO_HEADER_IN: std::printf("[HEADER_IN]%.*s\n", length, data); break;
        case CURLINFO_HEADER_OUT: std::printf("[HEADER_OUT]%.*s\n", length, data); break;
        case CURLINFO_DATA_IN: std::printf("[DATA_IN]%.*s\n", length, data); break;
        case CURLINFO_DATA_OUT: std::printf("[DATA_OUT]%.*s\n", length, data); break;
        default: break;
    }
}

}  // namespace

size_t AppendToBody(char* data, size_t size, size_t count, void* body) {
    constexpr auto kAbort = static_cast<size_t>(-1);
    if (data == nullptr || body == nullptr) {
        return kAbort;
    }
    try {
        static_cast<std::string*>(body)->append(data, size * count);
    } catch (const std::exception&) {  // no memory: an exception must not cross libcurl's frames
        return kAbort;
    }
    return count;
}

int PrintTrace(CURL* /*handle*/, curl_infotype type, char* data, size_t size, void* /*user*/) {
    const int length = static_cast<int>(std::min<size_t>(size, std::numeric_limits<int>::max()));
    PrintPiece(type, length, data);
    char text[1024] = {};
    std::snprintf(text, sizeof(text), "libcurl  infotype:%d info:%.*s \n", static_cast<int>(type), length, data);
    TVL_OutputDebugString(text);
    return 0;
}

}  // namespace vantix
