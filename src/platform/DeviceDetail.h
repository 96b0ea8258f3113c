#pragma once

/// @file
/// The device detail request of the platform.

#include <optional>
#include <string>

#include "platform/PlatformCall.h"
#include "records/BelongDevInfo.h"
#include "records/DevChannelInfo.h"
#include "records/DevDetailInfo.h"

namespace vantix {

/// Fetches one channel's detail. `device` gets the elapsed milliseconds whatever the outcome, and on success the time
/// of the fetch; `parent` is filled when the answer carries the device's parent.
///
/// Returns 0, 100000 + the transport's code, or 300000 + the response code.
int GetDevDetailInfoFromPlatformBySerial(const PlatformAccount& account, const std::string& deviceSerial, int cameraNo,
                                         DevChannelInfo& channel, DevDetailInfo& device,
                                         std::optional<BelongDevInfo>& parent);

}  // namespace vantix
