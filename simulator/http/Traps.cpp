#include "Traps.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <stdexcept>
#include <thread>
#include <utility>

namespace vantix::simulator {
namespace {

constexpr int backlog = 128;

/// A descriptor that is closed once.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {
        if (number < 0) {
            throw std::runtime_error("no descriptor is left");
        }
    }
    ~Descriptor() {
        if (m_number >= 0) {
            close(m_number);
        }
    }
    Descriptor(Descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    [[nodiscard]] int Number() const { return m_number; }

private:
    int m_number;
};

sockaddr* AsAddress(sockaddr_in& address) { return reinterpret_cast<sockaddr*>(&address); }

/// Listens on a free loopback port, which it stores.
Descriptor Listen(std::uint16_t& port) {
    Descriptor socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    if (bind(socket.Number(), AsAddress(address), size) != 0 || listen(socket.Number(), backlog) != 0 ||
        getsockname(socket.Number(), AsAddress(address), &size) != 0) {
        throw std::runtime_error("cannot listen");
    }
    port = ntohs(address.sin_port);
    return socket;
}

void Reset(int socket) {
    const linger abort{1, 0};
    setsockopt(socket, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
}

/// Unread bytes would turn an orderly close into a reset.
void Drain(int socket) {
    std::array<char, 4096> ignored{};
    pollfd readable{socket, POLLIN, 0};
    while (poll(&readable, 1, 200) == 1 && recv(socket, ignored.data(), ignored.size(), 0) > 0) {}
}

}  // namespace

/// One listening port and the thread that accepts on it.
class Traps::Trap {
public:
    explicit Trap(TrapConduct conduct)
        : m_conduct(std::move(conduct)),
          m_listener(Listen(m_port)),
          m_stop(eventfd(0, EFD_CLOEXEC)),
          m_thread([this] { Run(); }) {}

    ~Trap() {
        const std::uint64_t one = 1;
        (void)!write(m_stop.Number(), &one, sizeof one);
        m_thread.join();
    }

    Trap(const Trap&) = delete;
    Trap& operator=(const Trap&) = delete;
    Trap(Trap&&) = delete;
    Trap& operator=(Trap&&) = delete;

    [[nodiscard]] std::string Address() const { return "https://127.0.0.1:" + std::to_string(m_port); }

private:
    void Run() {
        std::array<pollfd, 2> watched = {{{m_listener.Number(), POLLIN, 0}, {m_stop.Number(), POLLIN, 0}}};
        while (true) {
            if (poll(watched.data(), watched.size(), -1) > 0 && watched[1].revents != 0) {
                return;
            }
            const int accepted = accept4(m_listener.Number(), nullptr, nullptr, SOCK_CLOEXEC);
            if (accepted >= 0) {
                Meet(Descriptor(accepted));
            }
        }
    }

    void Meet(Descriptor guest) {
        if (m_conduct.tls) {
            const bool isClosed = m_conduct.end == TrapConduct::End::close;
            ServeOverTls(guest.Number(), *m_conduct.tls, m_conduct.bytes, isClosed);
        } else if (!m_conduct.bytes.empty()) {
            (void)send(guest.Number(), m_conduct.bytes.data(), m_conduct.bytes.size(), MSG_NOSIGNAL);
        }
        switch (m_conduct.end) {
            case TrapConduct::End::hold: m_held.push_back(std::move(guest)); break;
            case TrapConduct::End::reset: Reset(guest.Number()); break;
            case TrapConduct::End::close:
                shutdown(guest.Number(), SHUT_WR);
                Drain(guest.Number());
                break;
        }
    }

    TrapConduct m_conduct;
    std::uint16_t m_port = 0;
    Descriptor m_listener;
    Descriptor m_stop;
    std::vector<Descriptor> m_held;
    std::thread m_thread;
};

Traps::Traps() = default;

Traps::~Traps() = default;

std::string Traps::Open(TrapConduct conduct) {
    auto trap = std::make_unique<Trap>(std::move(conduct));
    std::string address = trap->Address();
    const std::lock_guard lock(m_mutex);
    m_traps.push_back(std::move(trap));
    return address;
}

void Traps::Clear() {
    const std::lock_guard lock(m_mutex);
    m_traps.clear();
}

}  // namespace vantix::simulator
