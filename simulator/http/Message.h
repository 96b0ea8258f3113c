#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace vantix::simulator {

/// Header lines in the order in which they stand on the wire.
using HeaderList = std::vector<std::pair<std::string, std::string>>;

/// One request as it was received; nothing in it is decoded.
struct Request {
    std::string method;
    std::string path;
    std::string query;  ///< without the "?"
    std::string body;
    HeaderList headers;
};

/// How a response is sent.
enum class Delivery {
    whole,      ///< as a well-formed HTTP response
    truncated,  ///< Content-Length of the whole body, half of the body, then the connection closes
    reset,      ///< nothing is sent but a TCP reset
    close,      ///< nothing is sent and the connection closes
    raw,        ///< `body` alone, which holds status line and headers as well, then the connection closes
};

/// One response of a server.
struct Response {
    int status = 200;
    std::string body;
    HeaderList headers;
    Delivery delivery = Delivery::whole;
    std::size_t dripBytes = 0;  ///< size of the pieces in which the body is sent; 0: all at once
    int dripMs = 0;             ///< milliseconds to wait before each piece
};

}  // namespace vantix::simulator
