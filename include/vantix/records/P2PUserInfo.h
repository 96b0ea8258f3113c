#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// The user's P2P identity. `data` is a secret: it must never be logged.
struct P2PUserInfo {
    std::string userId;
    std::string data;          ///< The user's P2P secret.
    int32_t version = 0;       ///< Version of the secret.
    int32_t saltIndex = 0;     ///< Salt that the secret was made with.
    int32_t iRequestCost = 0;  ///< Milliseconds that the fetch took; 0 when served from the cache.
};

}  // namespace vantix
