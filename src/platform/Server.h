#pragma once

/// @file
/// The servers that the platform names: media servers of the user's area, and relay servers.
///
/// Requests return 0, 100000 + the transport's code or 300000 + the response code; parsers return response codes.

#include <string>

#include "base/TextView.h"
#include "records/RelayServerInfo.h"
#include "requests/Route.h"
#include "vantix/records/ServerInfo.h"

namespace vantix {

/// Fetches the media servers. The elapsed milliseconds are stored whatever the outcome.
int GetServerInfoFromPlatform(const PlatformRoute& route, ServerInfo& serverInfo);

/// Fetches the media servers of one device, with the video relays that serve it.
int GetServerInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int localIndex,
                              ServerInfo& serverInfo);

/// Fetches the relay server of a channel.
int GetRelayServerInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                                   RelayServerInfo& relay);

/// Reads "serverResp". Every member is optional; video relays are appended.
int ParseServerInfoFromPlatform(TextView body, ServerInfo& serverInfo);

/// Reads "data", which must be an object.
int ParseRealyInfoFromPlatform(TextView body, RelayServerInfo& relay);

}  // namespace vantix
