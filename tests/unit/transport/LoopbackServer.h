#pragma once

#include <atomic>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantix::test {

/// A server on this machine that records each request byte by byte and sends scripted responses in turn; the last one
/// again and again. For what only the bytes on the wire show. POSIX only.
class LoopbackServer {
public:
    /// `responses` are whole: status line, headers, blank line, body.
    explicit LoopbackServer(const std::vector<std::string>& responses);
    ~LoopbackServer();
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;

    /// "http://127.0.0.1:PORT", or with another scheme.
    std::string Address(const std::string& scheme = "http") const;
    /// What each connection brought so far: one request, with its body. Connections that brought nothing count too.
    std::vector<std::string> Requests() const;

private:
    void Serve(const std::vector<std::string>& responses);

    int m_listener;
    int m_port = 0;
    std::atomic<bool> m_ends{false};
    mutable std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::thread m_thread;
};

}  // namespace vantix::test
