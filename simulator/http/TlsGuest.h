#pragma once

#include "Certificate.h"

#include <string>

namespace vantix::simulator {

/// How a trap shakes hands.
struct TlsConduct {
    std::string protocol;  ///< the one to agree upon, by its ALPN name: "http/1.1", or "h2" for HTTP/2
    Certificate certificate;
};

/// Shakes hands on the connected socket, reads one whole request and writes the bytes; with `isClosed` it also says
/// goodbye, as an orderly end does. The socket stays the caller's. A failure ends it early and silently: the guest may
/// leave whenever it likes.
void ServeOverTls(int socket, const TlsConduct& conduct, const std::string& bytes, bool isClosed);

}  // namespace vantix::simulator
