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

/// How an answer leaves the server.
enum class Delivery {
    whole,      ///< status, headers and body as they should be
    truncated,  ///< the announced length is not reached before the connection closes
    reset,      ///< nothing but a TCP reset
    close,      ///< nothing but the end of the connection
    raw,        ///< `body` is written as it is, status line and headers included, then the connection closes
};

struct Answer {
    int status = 200;
    std::string body;
    HeaderList headers;
    Delivery delivery = Delivery::whole;
    std::size_t dripBytes = 0;  ///< with a value: the body goes out in pieces of this size
    int dripMs = 0;             ///< pause before each piece
};

}  // namespace vantix::simulator
