#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "VtmAddr.h"

namespace vantix {

/// The media, node, log and push servers of the user's area.
struct ServerInfo {
    std::string stun1Addr;
    int32_t stun1Port = 0;
    std::string stun2Addr;
    int32_t stun2Port = 0;
    std::string ttsAddr;
    int32_t ttsPort = 0;
    std::string vtmAddr;
    int32_t vtmPort = 0;
    std::string authAddr;
    std::string nodeJsAddr;
    int32_t nodeJsHttpPort = 0;
    std::string logAddr;
    std::string pushAddr;
    bool microCloudMode = false;
    std::string pushDasDomain;
    int32_t pushDasPort = 0;
    std::vector<VtmAddr> vtmBackups;  ///< In the server's order.
    int32_t iRequestCost = 0;         ///< Milliseconds that the fetch took; 0 when served from the cache.
};

}  // namespace vantix
