#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vantix::simulator {

/// The server family whose port a request came in on: open platform (B) or consumer servers (C).
enum class Domain { b, c };

/// One request that the cloud received; nothing in it is decoded.
struct ReceivedRequest {
    Domain domain = Domain::b;
    std::string method;
    std::string path;
    std::string query;  ///< without the "?"
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;  ///< name and value, in the order received
};

/// Ports to listen on; 0 takes a free port.
struct Options {
    std::uint16_t bPort = 0;
    std::uint16_t cPort = 0;
    std::uint16_t controlPort = 0;
};

/// The loopback cloud: both server families over HTTPS and a control interface over HTTP, on 127.0.0.1.
/// It serves from the end of the constructor to the destructor, on its own threads. Safe from any thread.
class Simulator {
public:
    /// Starts with the sample account. Throws std::runtime_error when a port is taken.
    explicit Simulator(const Options& options = {});

    /// Ends all delays, closes all connections, joins all threads.
    ~Simulator();

    Simulator(const Simulator&) = delete;
    Simulator& operator=(const Simulator&) = delete;
    Simulator(Simulator&&) = delete;
    Simulator& operator=(Simulator&&) = delete;

    /// Base addresses without a trailing slash, such as "https://127.0.0.1:40001".
    [[nodiscard]] std::string BDomain() const;
    [[nodiscard]] std::string CDomain() const;

    /// Base address of the control interface, such as "http://127.0.0.1:40003".
    [[nodiscard]] std::string ControlAddress() const;

    /// The response of the control interface to GET /info: the addresses and the account, as JSON text.
    [[nodiscard]] std::string InfoJson() const;

    /// All requests received since the start or the last ClearJournal, in order.
    [[nodiscard]] std::vector<ReceivedRequest> Journal() const;
    void ClearJournal();

    /// Restores the sample data and empties the journal; removes scripted responses and fault ports.
    void Reset();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace vantix::simulator
