#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// Where, and with which key, a client may measure its bandwidth.
struct BWCheckInfo {
    std::string id;
    std::string url;
    std::string publicKey;
    int32_t version = 0;  ///< Version of `publicKey`.
};

}  // namespace vantix
