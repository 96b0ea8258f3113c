#include "platform/Lists.h"

#include "json/Fields.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = platform_requests;

constexpr json::Field<DeviceListItem> kDeviceFields[] = {
    {"deviceSerial", &DeviceListItem::deviceSerial}, {"deviceName", &DeviceListItem::deviceName},
    {"deviceType", &DeviceListItem::deviceType},     {"status", &DeviceListItem::status},
    {"isEncrypt", &DeviceListItem::isEncrypt},
};
/// The channel's own members; its state replaces the device's.
constexpr json::Field<DeviceListItem> kCameraFields[] = {
    {"cameraNo", &DeviceListItem::channelNo},
    {"cameraName", &DeviceListItem::name},
    {"status", &DeviceListItem::status},
};

/// Appends a device: an item for each of its channels, or one for itself when the list names none.
void AppendDevice(const JsonCppView& device, DeviceList& list) {
    DeviceListItem item;
    json::ReadFields<kDeviceFields>(device, item);
    item.name = item.deviceName;
    const JsonCppView cameras = device.Member("cameraInfo");
    if (cameras.Size() == 0) {
        list.devices.push_back(std::move(item));
        return;
    }
    for (size_t i = 0; i < cameras.Size(); ++i) {
        DeviceListItem channel = item;
        json::ReadFields<kCameraFields>(cameras.Element(i), channel);
        list.devices.push_back(std::move(channel));
    }
}

using DevicesOf = JsonCppView (*)(const JsonCppView& data);

JsonCppView DevicesInObject(const JsonCppView& data) { return data.Member("deviceInfos"); }

JsonCppView DevicesInArray(const JsonCppView& data) { return data; }

int ParseDevices(const CallSite& site, TextView body, DevicesOf devicesOf, DeviceList& list) {
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) -> int {
        const JsonCppView devices = devicesOf(ResultData(root));
        if (!devices.IsArray()) {
            return LogMalformed(site, body);
        }
        DeviceList fresh;
        json::ReserveFor(devices, fresh.devices);
        json::ForEachObject(devices, [&](const JsonCppView& device) { AppendDevice(device, fresh); });
        root.Member("result").Member("page").Member("total").Read(fresh.total);
        list = std::move(fresh);
        return VANTIX_NOERROR;
    });
}

}  // namespace

int GetDevListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, DeviceList& list) {
    return RequestCall<requests::kDevList>(VANTIX_HERE, route, "pageStart"_key = pageStart, "pageSize"_key = pageSize)
        .Run([&](TextView body) { return ParseDeviceListFromPlatform(body, list); });
}

int GetDeviceListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, const std::string& bizType,
                              DeviceList& list) {
    return RequestCall<requests::kDeviceListGB>(VANTIX_HERE, route, "pageStart"_key = pageStart,
                                                "pageSize"_key = pageSize, "bizType"_key = bizType)
        .Run([&](TextView body) { return ParseDeviceListFromPlatform_GB(body, list); });
}

int GetShareDevListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, DeviceList& list) {
    return RequestCall<requests::kShareDevList>(VANTIX_HERE, route, "pageStart"_key = pageStart,
                                                "pageSize"_key = pageSize)
        .Run([&](TextView body) { return ParseDeviceListFromPlatform(body, list); });
}

int GetAlarmListFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                             const AlarmQuery& query, std::string& json) {
    return RequestCall<requests::kAlarmList>(
               VANTIX_HERE, route, "deviceSerial"_key = deviceSerial, "cameraNo"_key = cameraNo,
               "pageStart"_key = query.pageStart, "pageSize"_key = query.pageSize, "startTime"_key = query.startTime,
               "endTime"_key = query.endTime, "alarmType"_key = query.alarmType, "status"_key = query.status)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

int ParseDeviceListFromPlatform(TextView body, DeviceList& list) {
    return ParseDevices(VANTIX_HERE, body, DevicesInObject, list);
}

int ParseDeviceListFromPlatform_GB(TextView body, DeviceList& list) {
    return ParseDevices(VANTIX_HERE, body, DevicesInArray, list);
}

}  // namespace vantix
