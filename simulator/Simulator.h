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
struct Exchange {
    Domain domain = Domain::b;
    std::string method;
    std::string path;
    std::string query;  ///< without the "?"
    std::string body;
    std::vector<std::pair<std::string, std::string>> headers;  ///< name and value, in the order received
};

/// Ports to listen on; 0 takes a free one.
struct Options {
    std::uint16_t bPort = 0;
    std::uint16_t cPort = 0;
    std::uint16_t controlPort = 0;
};

/// The loopback cloud: both server families over HTTPS and a control interface over HTTP, on 127.0.0.1.
/// It serves from the end of the constructor to the destructor, on threads of its own. Safe from any thread.
class Simulator {
public:
    /// Starts with the sample account. Throws std::runtime_error when a port is taken.
    explicit Simulator(const Options& options = {});

    /// Ends waiting answers, closes all connections, joins all threads.
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

    /// What the control interface answers to GET /info: the addresses and the account, as JSON text.
    [[nodiscard]] std::string InfoJson() const;

    /// Everything received since the start or the last clearing, in order.
    [[nodiscard]] std::vector<Exchange> Journal() const;
    void ClearJournal();

    /// Back to the sample data, without plans and with an empty journal.
    void Reset();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

}  // namespace vantix::simulator
