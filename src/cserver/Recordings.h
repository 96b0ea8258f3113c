#pragma once

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/CloudFileQuery.h"

namespace vantix {

/// Recordings on a device, as the compact text {"data":[…]}, at most 100. Returns 0, 100000 + the transport's code or
/// 300000 + the response code.
int GetDeviceFileBySerialFromCServer(const ConsumerRoute& route, const std::string& deviceSerial, int channelNo,
                                     const TimeSpan& span, int recordType, std::string& records);

/// Copies "records" unread into the compact text {"data":[…]}. Whether the list is finished is dropped.
int ParseDeviceRecordFileFromCServer(TextView body, std::string& records);

}  // namespace vantix
