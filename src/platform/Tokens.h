#pragma once

/// @file
/// Tickets, permissions and tokens of the platform.
///
/// Requests return 0, 100000 + the transport's code or 300000 + the response code; parsers return response codes.

#include <deque>
#include <string>

#include "base/TextView.h"
#include "records/RefreshTokenInfo.h"
#include "requests/Route.h"

namespace vantix {

/// The ticket that opens a stream of a channel.
int GetTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                          std::string& ticket);

/// The ticket that opens cloud recordings in a storage space.
int GetCloudTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int localIndex, int spaceId,
                               std::string& ticket);

/// The ticket that a relay server asks for.
int GetRelayTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                               std::string& ticket);

/// Whether a channel may be viewed live, or its recordings.
int GetAuthInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo, bool playback);

/// A batch of stream tokens, as the platform returns it.
int GetStreamTokensFromPlatform(const PlatformRoute& route, int count, std::string& response);

/// A batch of stream tokens, appended in order.
int GetStreamTokensFromPlatform(const PlatformRoute& route, int count, std::deque<std::string>& tokens);

/// What a refresh of the access token sends.
struct RefreshCredentials {
    std::string refreshToken;
    std::string openId;
    std::string scope;
    std::string state;
};

/// Renews the access token. The app key is sent as "client_id".
int RefreshTokenFromPlatform(const AuthorizationRoute& route, const RefreshCredentials& credentials,
                             RefreshTokenInfo& info);

/// Reads "ticketInfo"."ticket"; a response without it succeeds and copies nothing.
int ParseTicketInfoFromPlatform(TextView body, std::string& ticket);

/// Reads "data"."ticket"; "data" must be an object, the ticket need not be there.
int ParseRealyTicketInfoFromPlatform(TextView body, std::string& ticket);

/// Appends the texts of "tokenArray", which must be there.
int ParseTokensFromPlatform(TextView body, std::deque<std::string>& tokens);

/// Reads "data" (inside "result", or at the root). All its members must be there.
int ParseRefreshTokenFromPlatform(TextView body, RefreshTokenInfo& info);

}  // namespace vantix
