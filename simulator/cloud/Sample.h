#pragma once

#include "../Json.h"

#include <string>

namespace vantix::simulator {

/// The sample account: credentials, servers, alarms, messages.
Json SampleAccount(const std::string& bDomain);

/// The sample devices: a camera, a recorder with 16 channels, devices behind an online and an offline parent, one of
/// another release, one that is offline, one that somebody else shares.
Json SampleDevices();

/// A camera of this serial with one channel, as a starting point for devices that the control interface adds.
Json SampleCamera(const std::string& serial);

}  // namespace vantix::simulator
