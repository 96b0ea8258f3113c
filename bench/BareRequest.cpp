#include "BareRequest.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "Case.h"

namespace vantix::bench {
namespace {

size_t AppendToBareBody(char* data, size_t size, size_t count, void* body) {
    return static_cast<BareBody*>(body)->Append(data, size * count) ? size * count : 0;
}

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): the block is handed on to callers who free it

BareBody::~BareBody() { std::free(m_data); }

bool BareBody::Append(const char* data, size_t size) {
    constexpr size_t kFirst = 1024;
    if (m_size + size >= m_capacity) {
        const size_t capacity = std::max({kFirst, m_size + size + 1, 2 * m_capacity});
        auto* grown = static_cast<char*>(std::realloc(m_data, capacity));
        if (grown == nullptr) {
            return false;
        }
        m_data = grown;
        m_capacity = capacity;
    }
    std::memcpy(m_data + m_size, data, size);
    m_size += size;
    m_data[m_size] = '\0';
    return true;
}

// NOLINTEND(cppcoreguidelines-no-malloc)

CURLcode SendWith(CURL* handle, const BareRequest& request, BareBody& body) {
    constexpr long kConnectSeconds = 20;
    constexpr long kSeconds = 30;
    curl_slist* headers = nullptr;
    for (const std::string& header : request.headers) {
        headers = curl_slist_append(headers, header.c_str());
    }
    if (!request.form.empty()) {
        curl_easy_setopt(handle, CURLOPT_POST, 1L);
        curl_easy_setopt(handle, CURLOPT_POSTFIELDS, request.form.c_str());
    }
    curl_easy_setopt(handle, CURLOPT_URL, request.url.c_str());
    curl_easy_setopt(handle, CURLOPT_READFUNCTION, nullptr);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &AppendToBareBody);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &body);
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYPEER, 0L);
    curl_easy_setopt(handle, CURLOPT_SSL_VERIFYHOST, 0L);
    curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    curl_easy_setopt(handle, CURLOPT_TIMEOUT, kSeconds);
    curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_REDIR_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers);
    const CURLcode result = curl_easy_perform(handle);
    curl_slist_free_all(headers);
    return result;
}

CURLcode Send(const BareRequest& request, BareBody& body) {
    CURL* handle = curl_easy_init();
    const CURLcode result = handle == nullptr ? CURLE_FAILED_INIT : SendWith(handle, request, body);
    curl_easy_cleanup(handle);
    return result;
}

std::string ServerAddress(bool tls) {
    const char* address = std::getenv(tls ? "VANTIX_BENCH_HTTPS" : "VANTIX_BENCH_HTTP");
    Require(address != nullptr, "no server: scripts/bench starts one and names it in the environment");
    return address;
}

}  // namespace vantix::bench
