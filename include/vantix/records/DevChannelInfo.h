#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "VideoQualityInfo.h"

namespace vantix {

/// What the cloud knows about one channel ("camera") of a device.
///
/// The four leading integers and the trailing one keep their places: a channel that is reached through a parent device
/// gets its number there written into `cameraNo`, and the channel cache value is `iIsTrust`.
struct DevChannelInfo {
    int32_t videoLevel = 0;  ///< Current picture quality level.
    int32_t type = 0;        ///< Kind of channel.
    int32_t cameraNo = 0;    ///< Channel number; behind an online parent, the number on the parent.
    int32_t status = 0;      ///< 1 online.

    std::string deviceSerial;  ///< Serial of the device that the channel belongs to.
    std::string cameraId;
    std::string capability;
    std::string isShared;  ///< Sharing state as decimal text.
    std::string streamBizUrl;
    std::string isTrust;     ///< Trust state as the server wrote it.
    int32_t permission = 0;  ///< Permission bits.
    int32_t forceStreamType = 0;
    int32_t streamBiz = 0;

    int32_t iIsTrust = 0;  ///< Trust state as a number; read and written by `getChannelCacheValue` and its setter.
    std::vector<VideoQualityInfo> videoQualityInfos;  ///< In the server's order.
};

}  // namespace vantix
