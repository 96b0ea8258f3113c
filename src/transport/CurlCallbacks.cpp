#include "transport/CurlCallbacks.h"

#include <cstdio>
#include <exception>
#include <string>

#include "transport/ResponseBody.h"
#include "tvl/tvl.h"

namespace vantix {
namespace {

void PrintPiece(curl_infotype type, const char* data) {
    switch (type) {
        case CURLINFO_HEADER_IN: std::printf("[HEADER_IN]%s\n", data); break;
        case CURLINFO_HEADER_OUT: std::printf("[HEADER_OUT]%s\n", data); break;
        case CURLINFO_DATA_IN: std::printf("[DATA_IN]%s\n", data); break;
        case CURLINFO_DATA_OUT: std::printf("[DATA_OUT]%s\n", data); break;
        default: break;
    }
}

}  // namespace

size_t AppendToBody(char* data, size_t size, size_t count, void* body) {
    constexpr auto kAbort = static_cast<size_t>(-1);
    if (data == nullptr || body == nullptr) {
        return kAbort;
    }
    return static_cast<ResponseBody*>(body)->Append({data, size * count}) ? count : kAbort;
}

int PrintTrace(CURL* /*handle*/, curl_infotype type, char* data, size_t size, void* /*user*/) {
    try {
        const std::string piece(data, size);  // libcurl's pieces have no terminating zero
        PrintPiece(type, piece.c_str());
        char text[1024] = {};
        std::snprintf(text, sizeof(text), "libcurl  infotype:%d info:%s \n", static_cast<int>(type), piece.c_str());
        TVL_OutputDebugString(text);
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): without memory the trace line is dropped
    }
    return 0;
}

}  // namespace vantix
