#pragma once

#include "Certificate.h"

#include <string>

namespace vantix::simulator {

/// The server's side of a TLS handshake.
struct TlsOptions {
    std::string protocol;  ///< the only one offered, by its ALPN name: "http/1.1", or "h2" for HTTP/2
    Certificate certificate;
};

/// Performs the handshake on the connected socket, reads one whole request and sends the bytes; with `isClosed` it also
/// ends the TLS session in order. The socket stays open and belongs to the caller. A failure, such as a client that
/// disconnects, ends the function early and is not reported.
void ServeOverTls(int socket, const TlsOptions& options, const std::string& bytes, bool isClosed);

}  // namespace vantix::simulator
