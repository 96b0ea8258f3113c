#pragma once

#include "TlsConnection.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantix::simulator {

/// A fault below HTTP: what a port does with each connection that it accepts.
struct Fault {
    enum class End { close, reset, keepOpen };

    std::string bytes;  ///< sent at once, before any handshake; with `tls` after the first whole request
    End end = End::close;
    std::optional<TlsOptions> tls = std::nullopt;  ///< with a value the port first performs a TLS handshake
};

/// Ports without an HTTP server, each with one fault: for what goes wrong below HTTP, and for protocol versions and
/// certificates that the two domains do not have. Safe from any thread.
class Faults {
public:
    Faults();
    ~Faults();
    Faults(const Faults&) = delete;
    Faults& operator=(const Faults&) = delete;
    Faults(Faults&&) = delete;
    Faults& operator=(Faults&&) = delete;

    /// Opens a port with this fault and returns its address, "https://127.0.0.1:PORT". Throws std::runtime_error.
    std::string Open(Fault fault);

    /// A port's address, and how many connections it has accepted so far.
    struct Accepted {
        std::string address;
        std::size_t connections;
    };

    /// All ports that are open, in the order in which they were opened.
    [[nodiscard]] std::vector<Accepted> Ports() const;

    /// Closes all ports and the connections that they keep open.
    void Clear();

private:
    class Port;

    mutable std::mutex m_mutex;
    std::vector<std::unique_ptr<Port>> m_ports;
};

}  // namespace vantix::simulator
