#pragma once

#include "Endpoint.h"

namespace vantix::simulator {

/// Whether the request's "accessToken" is valid for the account, or for one of its devices.
bool HasValidToken(const Call& call);

/// Whether the "accessToken" is valid for the request's device: a device token is valid for its own device only.
bool TokenCoversDevice(const Call& call);

/// Whether the "sessionId" header, or else the parameter of that name, is a valid session of the account.
bool HasValidSession(const Call& call);

}  // namespace vantix::simulator
