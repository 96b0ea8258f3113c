#pragma once

/// @file
/// One device on the consumer servers: the same records as the platform's detail.

#include <string>
#include <vector>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// Fetches one channel's detail. `device` gets the elapsed milliseconds whatever the outcome, and on success the time
/// of the fetch. A response without the channel is malformed (300002).
///
/// Returns 0, 100000 + the transport's code, or 300000 + the response code. These servers do not send
/// "releaseVersion", so such a record is never served from a cache.
int GetDevDetailInfoFromCServerBySerial(const ConsumerRoute& route, const std::string& deviceSerial, int channelNo,
                                        DevChannelInfo& channel, DevDetailInfo& device);

/// A camera of the device, and the device as it is for that camera.
struct ConsumerChannel {
    DevChannelInfo channel;
    DevDetailInfo device;
    std::string vtmInternalIp;  ///< The media relay as its own network sees it; the records have no place for it.
};

/// Reads the response about a device: one record pair for each of its cameras, appended. "cameraInfos" and
/// "deviceInfos" must be there. Returns 0, 1 when the body is not JSON, 2 when one of them is missing, or the server's
/// code.
int ParseDevDetailInfoFromCServer(TextView body, const std::string& deviceSerial,
                                  std::vector<ConsumerChannel>& channels);

}  // namespace vantix
