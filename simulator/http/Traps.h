#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vantix::simulator {

/// What a trap does with each connection that it accepts.
struct TrapConduct {
    enum class End { close, reset, hold };

    std::string bytes;  ///< written at once, before any handshake
    End end = End::close;
};

/// Ports behind which no HTTP server lives, for what goes wrong before a request is ever sent. Safe from any thread.
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
