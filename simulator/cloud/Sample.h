#pragma once

#include "../Json.h"

#include <string>

namespace vantix::simulator {

/// The sample account: credentials, servers, alarms, messages.
Json SampleAccount(const std::string& bDomain);

/// The sample devices: a camera, a recorder with 16 channels, cameras with an online and an offline parent, a
/// camera of another release, an offline recorder, a camera that another account shares.
Json SampleDevices();

/// A camera with one channel and this serial: the initial data of a device that the control interface adds.
Json SampleCamera(const std::string& serial);

}  // namespace vantix::simulator
