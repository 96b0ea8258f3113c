#pragma once

#include "../cloud/Cloud.h"

namespace vantix::simulator {

/// The "device" part of a detail response: the stored members, those of the parent under "belongDevice" when the device
/// has one; members named in the device's "nestedAsText" are JSON texts.
Json DeviceAsSent(CloudState& state, const Json& device);

}  // namespace vantix::simulator
