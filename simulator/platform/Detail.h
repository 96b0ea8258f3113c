#pragma once

#include "../cloud/Cloud.h"

namespace vantix::simulator {

/// The "device" part of a detail answer: the stored members, the parent's under "belongDevice" when the device stands
/// behind one, and those members as JSON text that the device's "nestedAsText" names.
Json DeviceAsSent(CloudState& state, const Json& device);

}  // namespace vantix::simulator
