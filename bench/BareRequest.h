#pragma once

/// @file
/// The same exchange with libcurl alone: what an engineer writes who needs this one request.

#include <curl/curl.h>

#include <cstddef>
#include <string>
#include <vector>

namespace vantix::bench {

/// One request, with everything that is sent.
struct BareRequest {
    std::string url;
    std::string form;                  ///< Empty: a GET.
    std::vector<std::string> headers;  ///< "key: value".
};

/// A body as the data center hands it on: one `malloc` block with a terminating zero.
class BareBody {
public:
    BareBody() = default;
    ~BareBody();
    BareBody(const BareBody&) = delete;
    BareBody& operator=(const BareBody&) = delete;

    bool Append(const char* data, size_t size);
    size_t Size() const { return m_size; }
    const char* Text() const { return m_data == nullptr ? "" : m_data; }

private:
    char* m_data = nullptr;
    size_t m_size = 0;
    size_t m_capacity = 0;
};

/// Sends the request on a connection of its own.
CURLcode Send(const BareRequest& request, BareBody& body);

/// Sends the request with this handle, which may keep its connection.
CURLcode SendWith(CURL* handle, const BareRequest& request, BareBody& body);

/// The server's address from the environment, VANTIX_BENCH_HTTP or VANTIX_BENCH_HTTPS.
std::string ServerAddress(bool tls);

}  // namespace vantix::bench
