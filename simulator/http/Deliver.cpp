#include "Deliver.h"

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

/// Dissolving the association sends the reset at once; a plain close would first say goodbye.
void ResetConnection(int socket) {
    const linger abort{1, 0};
    setsockopt(socket, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
    sockaddr nobody{};
    nobody.sa_family = AF_UNSPEC;
    (void)connect(socket, &nobody, sizeof nobody);
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

/// False when the client has gone.
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

/// Past the HTTP library: for answers that no sane server would write.
void WriteRaw(MHD_Connection* connection, const Answer& answer, Pause& pause) {
    std::string_view rest = answer.body;
    while (!rest.empty()) {
        const std::string_view piece = rest.substr(0, answer.dripBytes > 0 ? answer.dripBytes : rest.size());
        if (answer.dripMs > 0) {
            pause.For(std::chrono::milliseconds(answer.dripMs));
        }
        if (!WriteAll(connection, piece)) {
            return;
        }
        rest.remove_prefix(piece.size());
    }
}

/// Ends the TLS stream properly, so that the client sees an early end and not a broken record layer.
void SayGoodbye(MHD_Connection* connection) {
    if (gnutls_session_t session = SessionOf(connection); session != nullptr) {
        gnutls_bye(session, GNUTLS_SHUT_WR);
    }
}

/// The body of an answer that goes out in pieces or not to its end.
struct Feed {
    MHD_Connection* connection;
    Pause& pause;
    Answer answer;
    std::size_t end;
};

ssize_t NextPiece(void* context, std::uint64_t position, char* buffer, std::size_t room) {
    auto& feed = *static_cast<Feed*>(context);
    if (position >= feed.end) {
        SayGoodbye(feed.connection);
        return MHD_CONTENT_READER_END_WITH_ERROR;
    }
    if (feed.answer.dripMs > 0) {
        feed.pause.For(std::chrono::milliseconds(feed.answer.dripMs));
    }
    std::size_t count = std::min(room, feed.end - static_cast<std::size_t>(position));
    if (feed.answer.dripBytes > 0) {
        count = std::min(count, feed.answer.dripBytes);
    }
    std::memcpy(buffer, feed.answer.body.data() + position, count);
    return static_cast<ssize_t>(count);
}

void FreeFeed(void* context) { delete static_cast<Feed*>(context); }

MHD_Response* MakeFedResponse(MHD_Connection* connection, Answer answer, Pause& pause) {
    const std::size_t size = answer.body.size();
    const std::size_t end = answer.delivery == Delivery::truncated ? size / 2 : size;
    auto feed = std::make_unique<Feed>(Feed{connection, pause, std::move(answer), end});
    MHD_Response* response = MHD_create_response_from_callback(size, 4096, NextPiece, feed.get(), FreeFeed);
    if (response != nullptr) {
        (void)feed.release();  // from here on the response frees it
    }
    return response;
}

MHD_Response* MakeResponse(MHD_Connection* connection, Answer answer, Pause& pause) {
    if (answer.delivery == Delivery::truncated || answer.dripBytes > 0) {
        return MakeFedResponse(connection, std::move(answer), pause);
    }
    return MHD_create_response_from_buffer(answer.body.size(), answer.body.data(), MHD_RESPMEM_MUST_COPY);
}

MHD_Result SendResponse(MHD_Connection* connection, Answer answer, Pause& pause) {
    const auto status = static_cast<unsigned>(answer.status);
    const HeaderList headers = answer.headers;
    MHD_Response* response = MakeResponse(connection, std::move(answer), pause);
    if (response == nullptr) {
        return MHD_NO;
    }
    for (const auto& [name, value] : headers) {
        MHD_add_response_header(response, name.c_str(), value.c_str());
    }
    const MHD_Result queued = MHD_queue_response(connection, status, response);
    MHD_destroy_response(response);
    return queued;
}

}  // namespace

MHD_Result Deliver(MHD_Connection* connection, Answer answer, Pause& pause) {
    switch (answer.delivery) {
        case Delivery::reset: ResetConnection(SocketOf(connection)); return MHD_NO;
        case Delivery::raw:
            WriteRaw(connection, answer, pause);
            SayGoodbye(connection);
            return MHD_NO;
        case Delivery::close: SayGoodbye(connection); return MHD_NO;
        case Delivery::whole:
        case Delivery::truncated: break;
    }
    return SendResponse(connection, std::move(answer), pause);
}

}  // namespace vantix::simulator
