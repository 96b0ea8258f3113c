#pragma once

/// @file
/// P2P on the consumer servers: the user's identity, and what a player needs to reach one device.

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"

namespace vantix {

/// Fetches the user's P2P identity with two requests. The elapsed milliseconds of both are stored.
///
/// Returns 0, 100000 + the transport's code, a bare 1 when a response is not JSON, or 300000 + the parser's code. When
/// the first response's envelope is missing or a failure the result is 0 as well, and the record stays unfilled.
int GetP2PUserInfoFromCServer(const ConsumerRoute& route, P2PUserInfo& userInfo);

/// Fetches one device's P2P information. The elapsed milliseconds are logged and, unlike those of the other requests,
/// not stored. Returns 0, 100000 + the transport's code or 300000 + the response code.
int GetP2PDevInfoFromCServer(const ConsumerRoute& route, const std::string& deviceSerial, P2PDevInfo& devInfo);

/// Reads both responses about the user, joined as {"response1":…,"response2":…}. Log lines mask user id, secret,
/// version and salt index wherever they stand.
int ParseP2PUserInfoFromCServer(const std::string& joined, P2PUserInfo& userInfo);

/// Reads the response about a device. "p2pInfos" and "deviceInfos" must be there.
int ParseP2PDevInfoFromCServer(TextView body, const std::string& deviceSerial, P2PDevInfo& devInfo);

/// Reads the capability text inside a device's entry: 0, or 1 when it is not JSON.
int ParseP2PQXDevCapFromCServer(const std::string& text, P2PDevInfo& devInfo);

}  // namespace vantix
