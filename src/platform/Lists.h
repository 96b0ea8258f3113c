#pragma once

/// @file
/// Lists of the platform: devices and alarms.
///
/// Requests return 0, 100000 + the transport's code or 300000 + the response code; parsers return response codes.

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/DeviceList.h"

namespace vantix {

/// One page of the account's own devices.
int GetDevListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, DeviceList& list);

/// One page of the devices of a business type.
int GetDeviceListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, const std::string& bizType,
                              DeviceList& list);

/// One page of the devices that others share with the account.
int GetShareDevListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, DeviceList& list);

/// Which alarms of a channel are asked for.
struct AlarmQuery {
    int pageStart = 0;
    int pageSize = 0;
    std::string startTime;
    std::string endTime;
    int alarmType = 0;
    int status = 0;
};

/// One page of a channel's alarms, as the platform returns it.
int GetAlarmListFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                             const AlarmQuery& query, std::string& json);

/// Reads the devices, one item a channel, from "result"."data"."deviceInfos", and the page. "result"."data" must be
/// there.
int ParseDeviceListFromPlatform(TextView body, DeviceList& list);

/// Reads the devices, one item a channel, from the array "result"."data", and the page.
int ParseDeviceListFromPlatform_GB(TextView body, DeviceList& list);

}  // namespace vantix
