#pragma once

/// @file
/// One device on the platform: the two detail requests, and its device information.

#include <optional>
#include <string>

#include "requests/Route.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// Fetches one channel's detail. `device` gets the elapsed milliseconds whatever the outcome, and on success the time
/// of the fetch; `parent` is filled when the response holds the device's parent.
///
/// Returns 0, 100000 + the transport's code, or 300000 + the response code.
int GetDevDetailInfoFromPlatformBySerial(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                         DevChannelInfo& channel, DevDetailInfo& device,
                                         std::optional<BelongDevInfo>& parent);

/// The same for a device of another business platform.
int GetDeviceDetailInfoFromPlatformBySerial(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                            const std::string& bizType, const std::string& platFormId,
                                            DevChannelInfo& channel, DevDetailInfo& device);

/// Fetches the device information; the response is passed on unread.
int GetDeviceInfoBySerialFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, std::string& json);

}  // namespace vantix
