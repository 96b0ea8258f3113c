#pragma once

#include "Endpoint.h"

namespace vantix::simulator {

/// Whether the request's "accessToken" is one that the account accepts at all.
bool TokenHolds(const Call& call);

/// Whether it may be used for the request's device: device tokens reach their own device only.
bool TokenReachesDevice(const Call& call);

/// Whether the "sessionId" header, or the parameter of that name, is a session of the account.
bool SessionHolds(const Call& call);

}  // namespace vantix::simulator
