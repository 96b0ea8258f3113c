#pragma once

/// @file
/// Takes the place of libcurl, by the linker: no handle is made and nothing is sent. It keeps less than the tests'
/// scripted transport, which sets the options of real handles, and is many times faster.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace vantix::fuzz {

/// A request as it was handed to libcurl.
struct SentRequest {
    std::string method;  ///< "GET", "POST" or "PUT".
    std::string url;
    std::string body;
    std::vector<std::string> headers;  ///< As given, "key: value".
};

/// What a request gets: libcurl's code, and a body, which arrives in pieces.
struct TransferResult {
    int code = 0;
    std::string body;
    size_t pieceSize = 0;         ///< Bytes of each piece but the last one; 0: two halves.
    bool hasEmptyPieces = false;  ///< Whether one without bytes precedes each, and one follows the last.
};

/// Responds to all transfers from now on. Without one they fail with code 7.
using Server = std::function<TransferResult(const SentRequest& request)>;
void SetServer(Server server);

}  // namespace vantix::fuzz
