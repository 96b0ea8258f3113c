#pragma once

#include <optional>
#include <string>

#include "base/TextView.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// Reads the device detail response: the channel, the device with its capabilities, and its parent when the response
/// holds one (else `parent` stays as it was).
///
/// Returns 0, 1 (not JSON), 2 (no "result"."data" object) or the platform's code; the records then stay as they were.
/// Members that are missing or of another type leave defaults. The bookkeeping fields of `device` (cache time, marks,
/// cost, `iCloseBlong`) are not touched.
int ParseDevDetailInfoFromPlatform(TextView body, DevChannelInfo& channel, DevDetailInfo& device,
                                   std::optional<BelongDevInfo>& parent);

/// The same for the response about a device of another business platform.
int ParseDeviceDetailInfoFromPlatform(TextView body, DevChannelInfo& channel, DevDetailInfo& device,
                                      std::optional<BelongDevInfo>& parent);

}  // namespace vantix
