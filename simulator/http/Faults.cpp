#include "Faults.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <stdexcept>
#include <thread>
#include <utility>

namespace vantix::simulator {
namespace {

constexpr int faultBacklog = 128;

/// Owns a file descriptor and closes it.
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
    if (bind(socket.Number(), AsAddress(address), size) != 0 || listen(socket.Number(), faultBacklog) != 0 ||
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

/// Reads what is still unread: the system turns a close with unread bytes into a reset.
void Drain(int socket) {
    std::array<char, 4096> ignored{};
    pollfd readable{socket, POLLIN, 0};
    while (poll(&readable, 1, 200) == 1 && recv(socket, ignored.data(), ignored.size(), 0) > 0) {}
}

}  // namespace

/// A listening port with a fault, and the thread that accepts its connections.
class Faults::Port {
public:
    explicit Port(Fault fault)
        : m_fault(std::move(fault)),
          m_listener(Listen(m_number)),
          m_stop(eventfd(0, EFD_CLOEXEC)),
          m_thread([this] { Run(); }) {}

    ~Port() {
        const std::uint64_t one = 1;
        (void)!write(m_stop.Number(), &one, sizeof one);
        m_thread.join();
    }

    Port(const Port&) = delete;
    Port& operator=(const Port&) = delete;
    Port(Port&&) = delete;
    Port& operator=(Port&&) = delete;

    [[nodiscard]] std::string Address() const { return "https://127.0.0.1:" + std::to_string(m_number); }
    [[nodiscard]] std::size_t Connections() const { return m_connections; }

private:
    void Run() {
        std::array<pollfd, 2> watched = {{{m_listener.Number(), POLLIN, 0}, {m_stop.Number(), POLLIN, 0}}};
        while (true) {
            if (poll(watched.data(), watched.size(), -1) > 0 && watched[1].revents != 0) {
                return;
            }
            const int accepted = accept4(m_listener.Number(), nullptr, nullptr, SOCK_CLOEXEC);
            if (accepted >= 0) {
                ++m_connections;
                Serve(Descriptor(accepted));
            }
        }
    }

    void Serve(Descriptor connection) {
        if (m_fault.tls) {
            const bool isClosed = m_fault.end == Fault::End::close;
            ServeOverTls(connection.Number(), *m_fault.tls, m_fault.bytes, isClosed);
        } else if (!m_fault.bytes.empty()) {
            (void)send(connection.Number(), m_fault.bytes.data(), m_fault.bytes.size(), MSG_NOSIGNAL);
        }
        switch (m_fault.end) {
            case Fault::End::keepOpen: m_keptOpen.push_back(std::move(connection)); break;
            case Fault::End::reset: Reset(connection.Number()); break;
            case Fault::End::close:
                shutdown(connection.Number(), SHUT_WR);
                Drain(connection.Number());
                break;
        }
    }

    Fault m_fault;
    std::uint16_t m_number = 0;
    Descriptor m_listener;
    Descriptor m_stop;
    std::vector<Descriptor> m_keptOpen;
    std::atomic<std::size_t> m_connections{0};
    std::thread m_thread;
};

Faults::Faults() = default;

Faults::~Faults() = default;

std::string Faults::Open(Fault fault) {
    auto port = std::make_unique<Port>(std::move(fault));
    std::string address = port->Address();
    const std::lock_guard lock(m_mutex);
    m_ports.push_back(std::move(port));
    return address;
}

std::vector<Faults::Accepted> Faults::Ports() const {
    const std::lock_guard lock(m_mutex);
    std::vector<Accepted> ports;
    ports.reserve(m_ports.size());
    for (const auto& port : m_ports) {
        ports.push_back({port->Address(), port->Connections()});
    }
    return ports;
}

void Faults::Clear() {
    const std::lock_guard lock(m_mutex);
    m_ports.clear();
}

}  // namespace vantix::simulator
