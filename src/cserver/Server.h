#pragma once

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/ServerInfo.h"

namespace vantix {

/// Fetches the media servers from the consumer servers. The elapsed milliseconds are stored whatever the outcome.
/// Returns 0, 100000 + the transport's code or 300000 + the response code.
int GetServerInfoFromCServer(const ConsumerRoute& route, ServerInfo& serverInfo);

/// Reads "systemConfigInfo", which must be there; each of its members is optional.
int ParseServerInfoFromCServer(TextView body, ServerInfo& serverInfo);

}  // namespace vantix
