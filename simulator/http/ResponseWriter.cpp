#include "ResponseWriter.h"

#include <gnutls/gnutls.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <string_view>

namespace vantix::simulator {
namespace {

int SocketOf(MHD_Connection* connection) {
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_CONNECTION_FD);
    return info == nullptr ? -1 : info->connect_fd;
}

gnutls_session_t SessionOf(MHD_Connection* connection) {
    const auto* info = MHD_get_connection_info(connection, MHD_CONNECTION_INFO_GNUTLS_SESSION);
    return info == nullptr ? nullptr : static_cast<gnutls_session_t>(info->tls_session);
}

/// Connecting to AF_UNSPEC sends the reset at once; the HTTP library would first end the TLS session.
void ResetConnection(int socket) {
    const linger abort{1, 0};
    setsockopt(socket, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
    sockaddr unspecified{};
    unspecified.sa_family = AF_UNSPEC;
    (void)connect(socket, &unspecified, sizeof unspecified);
}

bool WaitWritable(int socket) {
    pollfd waited{socket, POLLOUT, 0};
    return poll(&waited, 1, 10000) == 1;
}

ssize_t WriteSome(int socket, gnutls_session_t session, std::string_view bytes) {
    if (session == nullptr) {
        return send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    }
    return gnutls_record_send(session, bytes.data(), bytes.size());
}

/// Returns false when the client has disconnected.
bool WriteAll(MHD_Connection* connection, std::string_view bytes) {
    const int socket = SocketOf(connection);
    gnutls_session_t session = SessionOf(connection);
    while (!bytes.empty()) {
        const ssize_t written = WriteSome(socket, session, bytes);
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
            continue;
        }
        const bool later = session == nullptr ? errno == EAGAIN : gnutls_error_is_fatal(static_cast<int>(written)) == 0;
        if (!later || !WaitWritable(socket)) {
            return false;
        }
    }
    return true;
}

/// Writes the body past the HTTP library, which would not send a malformed response.
void WriteRaw(MHD_Connection* connection, const Response& response, RequestDelays& delays) {
    std::string_view rest = response.body;
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, response.dripBytes > 0 ? response.dripBytes : rest.size());
        if (response.dripMs > 0) {
            delays.Sleep(std::chrono::milliseconds(response.dripMs));
        }
        if (!WriteAll(connection, piece)) {
            return;
        }
        rest.remove_prefix(piece.size());
    }
}

/// Ends the TLS session in order, so that the client sees an early end and not a broken record layer.
void EndTls(MHD_Connection* connection) {
    if (gnutls_session_t session = SessionOf(connection); session != nullptr) {
        gnutls_bye(session, GNUTLS_SHUT_WR);
    }
}

/// The body of a response that is sent in pieces, or not to its end.
struct PiecewiseBody {
    MHD_Connection* connection;
    RequestDelays& delays;
    Response response;
    std::size_t end;
};

ssize_t NextPiece(void* context, std::uint64_t position, char* buffer, std::size_t room) {
    auto& body = *static_cast<PiecewiseBody*>(context);
    if (position >= body.end) {
        EndTls(body.connection);
        return MHD_CONTENT_READER_END_WITH_ERROR;
    }
    if (body.response.dripMs > 0) {
        body.delays.Sleep(std::chrono::milliseconds(body.response.dripMs));
    }
    std::size_t count = std::min(room, body.end - static_cast<std::size_t>(position));
    if (body.response.dripBytes > 0) {
        count = std::min(count, body.response.dripBytes);
    }
    std::memcpy(buffer, body.response.body.data() + position, count);
    return static_cast<ssize_t>(count);
}

void FreeBody(void* context) { delete static_cast<PiecewiseBody*>(context); }

MHD_Response* MakePiecewiseResponse(MHD_Connection* connection, Response response, RequestDelays& delays) {
    const std::size_t size = response.body.size();
    const std::size_t end = response.delivery == Delivery::truncated ? size / 2 : size;
    auto body = std::make_unique<PiecewiseBody>(PiecewiseBody{connection, delays, std::move(response), end});
    MHD_Response* made = MHD_create_response_from_callback(size, 4096, NextPiece, body.get(), FreeBody);
    if (made != nullptr) {
        (void)body.release();  // FreeBody frees it together with the response
    }
    return made;
}

MHD_Response* MakeResponse(MHD_Connection* connection, Response response, RequestDelays& delays) {
    if (response.delivery == Delivery::truncated || response.dripBytes > 0) {
        return MakePiecewiseResponse(connection, std::move(response), delays);
    }
    return MHD_create_response_from_buffer(response.body.size(), response.body.data(), MHD_RESPMEM_MUST_COPY);
}

MHD_Result SendResponse(MHD_Connection* connection, Response response, RequestDelays& delays) {
    const auto status = static_cast<unsigned>(response.status);
    const HeaderList headers = response.headers;
    MHD_Response* made = MakeResponse(connection, std::move(response), delays);
    if (made == nullptr) {
        return MHD_NO;
    }
    for (const auto& [name, value] : headers) {
        MHD_add_response_header(made, name.c_str(), value.c_str());
    }
    const MHD_Result queued = MHD_queue_response(connection, status, made);
    MHD_destroy_response(made);
    return queued;
}

}  // namespace

MHD_Result WriteResponse(MHD_Connection* connection, Response response, RequestDelays& delays) {
    switch (response.delivery) {
        case Delivery::reset: ResetConnection(SocketOf(connection)); return MHD_NO;
        case Delivery::raw:
            WriteRaw(connection, response, delays);
            EndTls(connection);
            return MHD_NO;
        case Delivery::close: EndTls(connection); return MHD_NO;
        case Delivery::whole:
        case Delivery::truncated: break;
    }
    return SendResponse(connection, std::move(response), delays);
}

}  // namespace vantix::simulator
