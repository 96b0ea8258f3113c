#include "Server.h"

#include "ResponseWriter.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

#include <exception>
#include <memory>
#include <stdexcept>
#include <vector>

namespace vantix::simulator {
namespace {

constexpr std::size_t largestBody = 256UL * 1024 * 1024;
/// Bytes for the request line and headers.
constexpr std::size_t connectionMemory = 4UL * 1024 * 1024;
constexpr unsigned idleSeconds = 120;
constexpr unsigned backlog = 1024;

/// Keeps the undecoded target: the HTTP library shows it only here and decodes it afterwards.
void* BeginRequest(void* /*context*/, const char* target, MHD_Connection* /*connection*/) noexcept {
    try {
        auto request = std::make_unique<Request>();
        const std::string whole = target;
        const auto mark = whole.find('?');
        request->path = whole.substr(0, mark);
        request->query = mark == std::string::npos ? std::string() : whole.substr(mark + 1);
        return request.release();
    } catch (...) {
        return nullptr;
    }
}

void EndRequest(void* /*context*/, MHD_Connection* /*connection*/, void** state, MHD_RequestTerminationCode /*why*/) {
    delete static_cast<Request*>(*state);
    *state = nullptr;
}

MHD_Result AddHeader(void* context, MHD_ValueKind /*kind*/, const char* name, std::size_t nameSize, const char* value,
                     std::size_t valueSize) noexcept {
    try {
        static_cast<HeaderList*>(context)->emplace_back(
            std::string(name, nameSize), value == nullptr ? std::string() : std::string(value, valueSize));
        return MHD_YES;
    } catch (...) {
        return MHD_NO;
    }
}

Response HandleSafely(const Server& server, const Request& request) {
    try {
        return server.GetHandler()(request);
    } catch (const std::exception& problem) {
        Response response;
        response.status = 500;
        response.body = std::string("the simulator failed: ") + problem.what();
        return response;
    }
}

/// Takes the next part of the request: its headers, then its body, then its end, which sends the response.
MHD_Result Continue(Server& server, MHD_Connection* connection, Request& request, const char* method,
                    const char* received, std::size_t* size) {
    if (request.method.empty()) {
        request.method = method;
        MHD_get_connection_values_n(connection, MHD_HEADER_KIND, AddHeader, &request.headers);
        return MHD_YES;
    }
    if (*size > 0) {
        if (request.body.size() + *size > largestBody) {
            return MHD_NO;
        }
        request.body.append(received, *size);
        *size = 0;
        return MHD_YES;
    }
    return WriteResponse(connection, HandleSafely(server, request), server.GetDelays());
}

MHD_Result OnAccess(void* context, MHD_Connection* connection, const char* /*url*/, const char* method,
                    const char* /*version*/, const char* received, std::size_t* size, void** state) noexcept {
    auto* request = static_cast<Request*>(*state);
    if (request == nullptr) {
        return MHD_NO;
    }
    try {
        return Continue(*static_cast<Server*>(context), connection, *request, method, received, size);
    } catch (...) {
        return MHD_NO;
    }
}

void OnConnection(void* context, MHD_Connection* connection, void** /*state*/, MHD_ConnectionNotificationCode code) {
    auto* server = static_cast<Server*>(context);
    if (code == MHD_CONNECTION_NOTIFY_CLOSED) {
        server->CountClosed();
        return;
    }
    server->CountOpened();
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
    if (info != nullptr) {
        const int on = 1;
        setsockopt(info->connect_fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
}

template <typename Function>
intptr_t AsValue(Function* function) {
    return reinterpret_cast<intptr_t>(function);
}

std::vector<MHD_OptionItem> OptionsFor(Server& server, sockaddr_in& address, std::optional<Certificate>& certificate) {
    std::vector<MHD_OptionItem> options = {
        {MHD_OPTION_SOCK_ADDR, 0, &address},
        {MHD_OPTION_CONNECTION_MEMORY_LIMIT, static_cast<intptr_t>(connectionMemory), nullptr},
        {MHD_OPTION_CONNECTION_TIMEOUT, idleSeconds, nullptr},
        {MHD_OPTION_LISTEN_BACKLOG_SIZE, backlog, nullptr},
        {MHD_OPTION_URI_LOG_CALLBACK, AsValue(BeginRequest), nullptr},
        {MHD_OPTION_NOTIFY_COMPLETED, AsValue(EndRequest), nullptr},
        {MHD_OPTION_NOTIFY_CONNECTION, AsValue(OnConnection), &server},
    };
    if (certificate) {
        options.push_back({MHD_OPTION_HTTPS_MEM_CERT, 0, certificate->certificatePem.data()});
        options.push_back({MHD_OPTION_HTTPS_MEM_KEY, 0, certificate->keyPem.data()});
    }
    options.push_back({MHD_OPTION_END, 0, nullptr});
    return options;
}

}  // namespace

Server::Server(std::uint16_t port, std::optional<Certificate> certificate, Handler handler, RequestDelays& delays)
    : m_certificate(std::move(certificate)), m_handler(std::move(handler)), m_delays(delays) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto options = OptionsFor(*this, address, m_certificate);
    unsigned flags = MHD_USE_THREAD_PER_CONNECTION | MHD_USE_INTERNAL_POLLING_THREAD | MHD_USE_POLL | MHD_USE_ITC;
    if (m_certificate) {
        flags |= MHD_USE_TLS;
    }
    m_daemon = MHD_start_daemon(flags, port, nullptr, nullptr, OnAccess, this, MHD_OPTION_ARRAY, options.data(),
                                MHD_OPTION_END);
    if (m_daemon == nullptr) {
        throw std::runtime_error("cannot listen on 127.0.0.1:" + std::to_string(port));
    }
    const auto* info = MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_BIND_PORT);
    m_port = info == nullptr ? port : info->port;
}

Server::~Server() { Stop(); }

void Server::Stop() {
    if (m_daemon != nullptr) {
        MHD_stop_daemon(m_daemon);
        m_daemon = nullptr;
    }
}

std::string Server::Address() const {
    return (m_certificate ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(m_port);
}

}  // namespace vantix::simulator
