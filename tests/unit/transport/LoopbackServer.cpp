#if !defined(_WIN32)

#include "unit/transport/LoopbackServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace vantix::test {
namespace {

bool IsReadable(int socket, int milliseconds) {
    pollfd waiting{socket, POLLIN, 0};
    return poll(&waiting, 1, milliseconds) == 1;
}

/// Whether the request is complete: its headers, and as much body as they announce.
bool IsWhole(const std::string& request) {
    const size_t end = request.find("\r\n\r\n");
    if (end == std::string::npos) {
        return false;
    }
    const std::string name = "Content-Length: ";
    const size_t length = request.find(name);
    const size_t body = length < end ? std::strtoul(request.c_str() + length + name.size(), nullptr, 10) : 0;
    return request.size() >= end + 4 + body;
}

std::string ReadRequest(int connection) {
    constexpr int kPatience = 5'000;  // milliseconds
    std::string request;
    char piece[4096];
    while (!IsWhole(request) && IsReadable(connection, kPatience)) {
        const ssize_t size = recv(connection, piece, sizeof(piece), 0);
        if (size <= 0) {
            break;
        }
        request.append(piece, static_cast<size_t>(size));
    }
    return request;
}

}  // namespace

LoopbackServer::LoopbackServer(const std::vector<std::string>& responses)
    : m_listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    setenv("no_proxy", "127.0.0.1", 1);  // libcurl would ask the environment's proxy
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof(address);
    auto* any = reinterpret_cast<sockaddr*>(&address);  // the system's own way to pass addresses
    if (bind(m_listener, any, size) != 0 || listen(m_listener, 8) != 0 || getsockname(m_listener, any, &size) != 0) {
        throw std::runtime_error("no port for the test's server");
    }
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this, responses] { Serve(responses); });
}

LoopbackServer::~LoopbackServer() {
    m_ends = true;
    m_thread.join();
    close(m_listener);
}

std::string LoopbackServer::Address(const std::string& scheme) const {
    return scheme + "://127.0.0.1:" + std::to_string(m_port);
}

std::vector<std::string> LoopbackServer::Requests() const {
    const std::lock_guard<std::mutex> guard(m_mutex);
    return m_requests;
}

void LoopbackServer::Serve(const std::vector<std::string>& responses) {
    constexpr int kBetweenLooks = 20;  // milliseconds
    while (!m_ends) {
        if (!IsReadable(m_listener, kBetweenLooks)) {
            continue;
        }
        const int connection = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        const std::string request = ReadRequest(connection);
        size_t turn = 0;
        {
            const std::lock_guard<std::mutex> guard(m_mutex);
            turn = m_requests.size();
            m_requests.push_back(request);
        }
        const std::string& response = responses[std::min(turn, responses.size() - 1)];
        send(connection, response.data(), response.size(), MSG_NOSIGNAL);
        close(connection);
    }
}

}  // namespace vantix::test

#endif
