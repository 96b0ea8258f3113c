#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// The address, and the key, for measuring a client's bandwidth.
struct BWCheckInfo {
    std::string id;
    std::string url;
    std::string publicKey;
    int32_t version = 0;  ///< Version of `publicKey`.
};

}  // namespace vantix
