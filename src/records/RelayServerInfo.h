#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// The relay server of one channel and the key that it expects.
struct RelayServerInfo {
    std::string domain;
    int32_t port = 0;
    std::string publicKey;
    int32_t version = 0;  ///< Version of `publicKey`.
};

}  // namespace vantix
