#pragma once

/// @file
/// Stream tokens and the session of the consumer servers.

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"

namespace vantix {

/// A batch of stream tokens, as the server returns it; the envelope is ignored. 0, or 100000 + the transport's
/// code.
int GetStreamTokensFromCServer(const ConsumerRoute& route, std::string& response);

/// A session, and what renews it.
struct SessionInfo {
    std::string sessionId;
    std::string refreshSessionId;
};

/// Renews the session; `session` holds the refresh session id and gets the new ones. Returns 0, 100000 + the
/// transport's code, 1 when the response is not JSON, the server's own bare code, or 300000 + the parser's code.
int RefreshSessionFromCServer(const ConsumerRoute& route, SessionInfo& session);

/// Reads "sessionInfo", which must hold the session id; without a refresh session id the old one stays.
int ParseRefreshSessionnFromCServer(TextView body, SessionInfo& session);

}  // namespace vantix
