#pragma once

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"

namespace vantix {

/// The devices that others share with the account on the consumer servers, as a device list in the platform's JSON
/// shape. Returns 0, 100000 + the transport's code or 300000 + the response code.
int GetB2CSharedDevListFromPlatform(const ConsumerRoute& route, int offset, int limit, std::string& deviceList);

/// Translates the shared-device list, whose "data" must hold "resourceInfos", into the platform's shape.
int ParseB2CDeviceListFromPlatform(TextView body, std::string& deviceList);

}  // namespace vantix
