#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "VtmAddr.h"

namespace vantix {

/// The fields that describe a device itself: addresses, ports, links to its parent ("belong") device, state.
///
/// Used alone for the parent of a device, and as the leading part of `DevDetailInfo`. Names are the cloud's own.
struct BelongDevInfo {
    std::string deviceSerial;
    std::string deviceIP;
    int32_t devicePort = 0;
    int32_t cmdPort = 0;
    int32_t httpPort = 0;
    int32_t streamPort = 0;
    std::string localIp;
    int32_t localDevicePort = 0;
    int32_t localCmdPort = 0;
    int32_t localHttpPort = 0;
    int32_t localStreamPort = 0;
    int32_t netType = 0;
    std::string ppvsAddr;
    int32_t ppvsPort = 0;
    std::string casIp;
    int32_t casPort = 0;
    int32_t maskIp = 0;  ///< A number in spite of its name, as the cloud sends it.
    int32_t upnp = 0;
    int32_t cloudServiceStatus = 0;
    std::string releaseVersion;  ///< Only "VERSION_17" may be served from a cache.
    std::string belongSerial;    ///< Serial of the parent device; empty when there is none.
    int32_t belongNo = 0;        ///< Channel number on the parent device.
    int32_t belongAdded = 0;
    int32_t isEncrypt = 0;  ///< 1 when the stream is encrypted.
    std::string encryptPwd;
    int32_t belongState = 0;  ///< 0 when the relation to the parent is not in force.
    std::string vtmIp;
    int32_t vtmPort = 0;
    std::string ttsIp;
    int32_t ttsPort = 0;
    int32_t deviceStatus = 0;     ///< 1 online.
    std::string supportExtShort;  ///< Capabilities by number, separated by "|" (or JSON in the B2C mode).
    int32_t supportChannelNums = 0;
    std::string gbJtTtsIP;
    int32_t gbJtTtsPort = 0;
    std::string publicKey;
    int32_t version = 0;  ///< Version of `publicKey`.
    int32_t isOwner = 0;  ///< 1 when the account owns the device.
    std::vector<VtmAddr> vtmBackups;
};

}  // namespace vantix
