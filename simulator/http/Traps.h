#pragma once

#include "TlsGuest.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace vantix::simulator {

/// What a trap does with each connection that it accepts.
struct TrapConduct {
    enum class End { close, reset, hold };

    std::string bytes;  ///< written at once, before any handshake; with `tls` after the first whole request
    End end = End::close;
    std::optional<TlsConduct> tls = std::nullopt;  ///< shakes hands first
};

/// Ports behind which no HTTP server lives, for what goes wrong below HTTP, or in versions and certificates that the
/// two domains do not have. Safe from any thread.
class Traps {
public:
    Traps();
    ~Traps();
    Traps(const Traps&) = delete;
    Traps& operator=(const Traps&) = delete;
    Traps(Traps&&) = delete;
    Traps& operator=(Traps&&) = delete;

    /// Opens one and returns its address, "https://127.0.0.1:PORT". Throws std::runtime_error.
    std::string Open(TrapConduct conduct);

    /// Closes all, with the connections that they hold.
    void Clear();

private:
    class Trap;

    std::mutex m_mutex;
    std::vector<std::unique_ptr<Trap>> m_traps;
};

}  // namespace vantix::simulator
