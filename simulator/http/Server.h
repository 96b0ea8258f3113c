#pragma once

#include "Certificate.h"
#include "Message.h"
#include "RequestDelays.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

struct MHD_Daemon;

namespace vantix::simulator {

/// An HTTP/1.1 server on 127.0.0.1 with a thread for each connection, over TLS when it has a certificate.
class Server {
public:
    /// Called on the connection's thread, many at once. An exception from it becomes a response with status 500.
    using Handler = std::function<Response(const Request&)>;

    /// Starts to listen; port 0 takes a free port. `delays` must outlive the server. Throws std::runtime_error.
    Server(std::uint16_t port, std::optional<Certificate> certificate, Handler handler, RequestDelays& delays);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    Server(Server&&) = delete;
    Server& operator=(Server&&) = delete;

    /// "https://127.0.0.1:PORT" or "http://127.0.0.1:PORT".
    [[nodiscard]] std::string Address() const;

    /// Ends all connections and joins their threads. Call `RequestDelays::Stop` first: this waits for delayed requests.
    void Stop();

    [[nodiscard]] std::uint64_t ConnectionsOpened() const { return m_opened.load(); }
    [[nodiscard]] std::uint64_t ConnectionsOpen() const { return m_opened.load() - m_closed.load(); }

    /// For the daemon's callbacks.
    [[nodiscard]] const Handler& GetHandler() const { return m_handler; }
    [[nodiscard]] RequestDelays& GetDelays() const { return m_delays; }
    void CountOpened() { ++m_opened; }
    void CountClosed() { ++m_closed; }

private:
    std::optional<Certificate> m_certificate;
    Handler m_handler;
    RequestDelays& m_delays;
    MHD_Daemon* m_daemon = nullptr;
    std::uint16_t m_port = 0;
    std::atomic<std::uint64_t> m_opened{0};
    std::atomic<std::uint64_t> m_closed{0};
};

}  // namespace vantix::simulator
