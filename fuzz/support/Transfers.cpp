// The linker leads the library's calls here: --wrap=curl_easy_init and so on.

#include "support/Transfers.h"

#include <curl/curl.h>

#include <algorithm>
#include <cstdarg>
#include <memory>
#include <string_view>
#include <utility>

#include "Fuzzer.h"

namespace vantix::fuzz {
namespace {

/// What was set on a handle. As with libcurl, texts are copied, but the body's and the headers must be there until the
/// transfer runs.
struct Handle {
    std::string url;
    std::string customMethod;
    const char* body = nullptr;
    const curl_slist* headers = nullptr;
    curl_write_callback write = nullptr;
    void* writeData = nullptr;
};

Server g_server;

SentRequest RequestOf(const Handle& handle) {
    SentRequest request;
    request.method = handle.body == nullptr ? "GET" : "POST";
    if (!handle.customMethod.empty()) {
        request.method = handle.customMethod;
    }
    request.url = handle.url;
    if (handle.body != nullptr) {
        request.body = handle.body;
    }
    for (const curl_slist* line = handle.headers; line != nullptr; line = line->next) {
        request.headers.emplace_back(line->data);
    }
    return request;
}

void Write(const Handle& handle, std::string_view piece) {
    std::string data(piece);
    Require(handle.write(data.data(), 1, data.size(), handle.writeData) == data.size());
}

void WriteBody(const Handle& handle, const TransferResult& result) {
    const size_t size = result.pieceSize != 0 ? result.pieceSize : result.body.size() / 2 + 1;
    for (std::string_view rest = result.body; !rest.empty(); rest.remove_prefix(std::min(size, rest.size()))) {
        if (result.hasEmptyPieces) {
            Write(handle, {});
        }
        Write(handle, rest.substr(0, size));
    }
    if (result.hasEmptyPieces) {
        Write(handle, {});
    }
}

CURLcode Perform(const Handle& handle) {
    if (!g_server) {
        return CURLE_COULDNT_CONNECT;
    }
    const TransferResult result = g_server(RequestOf(handle));
    if (handle.write != nullptr) {
        WriteBody(handle, result);
    }
    return static_cast<CURLcode>(result.code);
}

void Set(Handle& handle, CURLoption option, void* value) {
    switch (option) {
        case CURLOPT_URL: handle.url = static_cast<const char*>(value); break;
        case CURLOPT_CUSTOMREQUEST: handle.customMethod = static_cast<const char*>(value); break;
        case CURLOPT_POSTFIELDS: handle.body = static_cast<const char*>(value); break;
        case CURLOPT_HTTPHEADER: handle.headers = static_cast<const curl_slist*>(value); break;
        case CURLOPT_WRITEDATA: handle.writeData = value; break;
        default: break;
    }
}

}  // namespace

void SetServer(Server server) { g_server = std::move(server); }

}  // namespace vantix::fuzz

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the linker's
extern "C" {
CURL* __wrap_curl_easy_init() { return std::make_unique<vantix::fuzz::Handle>().release(); }

void __wrap_curl_easy_cleanup(CURL* handle) {
    const std::unique_ptr<vantix::fuzz::Handle> owned(static_cast<vantix::fuzz::Handle*>(handle));
}

CURLcode __wrap_curl_easy_setopt(CURL* handle, unsigned number, ...) {  // an enumeration cannot precede the values
    auto& fake = *static_cast<vantix::fuzz::Handle*>(handle);
    const auto option = static_cast<CURLoption>(number);
    va_list values;
    va_start(values, number);
    // NOLINTBEGIN(clang-analyzer-valist.Uninitialized): it is
    if (option == CURLOPT_WRITEFUNCTION) {
        fake.write = va_arg(values, curl_write_callback);
    } else if (number >= CURLOPTTYPE_OBJECTPOINT && number < CURLOPTTYPE_FUNCTIONPOINT) {
        vantix::fuzz::Set(fake, option, va_arg(values, void*));
    }
    // NOLINTEND(clang-analyzer-valist.Uninitialized)
    va_end(values);
    return CURLE_OK;
}

CURLcode __wrap_curl_easy_perform(CURL* handle) {
    return vantix::fuzz::Perform(*static_cast<vantix::fuzz::Handle*>(handle));
}
}
// NOLINTEND(bugprone-reserved-identifier)
