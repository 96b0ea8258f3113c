#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace vantix {

/// One P2P server of a device.
struct P2PServerAddr {
    std::string ip;
    int32_t port = 0;
};

/// What a player needs to reach one device by P2P.
struct P2PDevInfo {
    std::string deviceSerial;
    std::vector<P2PServerAddr> serverInfos;  ///< In the server's order.
    std::string defaultKey;                  ///< The device's key; a secret.
    int32_t defaultKeyVer = 0;
    std::string strV3;
    std::string strV3Sec;
    std::string strDirectPlayback_EndFlag;
    std::string strV3Download;  ///< "1" when the device downloads over the third P2P version.
    std::string strV3Playback;
    std::string strV3Talk;
    bool isUpdate = false;     ///< The cached copy must be fetched again.
    int32_t iRequestCost = 0;  ///< Milliseconds that the fetch took; 0 when served from the cache.
};

}  // namespace vantix
