#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// The platform's configuration.
struct ConfigInfo {
    std::string pushAddr;
    std::string pushAuthAddr;
    int32_t streamType = 0;   ///< Becomes the core's `VTDUType`.
    int32_t dataCollect = 0;  ///< Becomes the core's `bEableDataCollect`.
    int32_t openP2P = 0;      ///< Logged only; the host decides with `setCloseP2P`.
};

}  // namespace vantix
