#pragma once

/// @file
/// P2P on the platform: the user's identity, and what a player needs to reach one device.
///
/// Requests return 0, 100000 + the transport's code or 300000 + the response code; parsers return response codes.

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"

namespace vantix {

/// Fetches the user's P2P identity. The elapsed milliseconds are stored whatever the outcome.
int GetP2PUserInfoFromPlatform(const PlatformRoute& route, P2PUserInfo& userInfo);

/// Fetches one device's P2P information. The elapsed milliseconds are stored whatever the outcome.
int GetP2PDevInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, P2PDevInfo& devInfo);

/// Reads "result"."data", which must be objects.
int ParseP2PUserInfo(TextView body, P2PUserInfo& userInfo);

/// Reads "result"."data", which must be objects. A capability text that is not JSON leaves the capabilities alone.
int ParseP2PDevInfo(TextView body, P2PDevInfo& devInfo);

/// Reads the capability text inside a device's P2P information: 0, or 1 when it is not JSON.
int ParseP2PQXDevCap(TextView text, P2PDevInfo& devInfo);

}  // namespace vantix
