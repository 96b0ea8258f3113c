#pragma once

#include <cstdint>
#include <string>

namespace vantix {

/// One video relay (VTM) server.
struct VtmAddr {
    std::string strVtmAddr;  ///< Host name or IP address.
    int32_t iVtmPort = 0;    ///< TCP port.
};

}  // namespace vantix
