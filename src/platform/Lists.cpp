#include "platform/Lists.h"

#include "json/Fields.h"
#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/Envelope.h"
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
    json::ReadFields(device, kDeviceFields, item);
    item.name = item.deviceName;
    const JsonCppView cameras = device.Member("cameraInfo");
    if (cameras.Size() == 0) {
        list.devices.push_back(std::move(item));
        return;
    }
    for (size_t i = 0; i < cameras.Size(); ++i) {
        DeviceListItem channel = item;
        json::ReadFields(cameras.Element(i), kCameraFields, channel);
        list.devices.push_back(std::move(channel));
    }
}

using DevicesOf = JsonCppView (*)(const JsonCppView& data);

JsonCppView DevicesInObject(const JsonCppView& data) { return data.Member("deviceInfos"); }

JsonCppView DevicesInArray(const JsonCppView& data) { return data; }

int ParseDevices(const CallSite& site, const std::string& body, DevicesOf devicesOf, DeviceList& list) {
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView result = root.Member("result");
        const JsonCppView devices = devicesOf(result.Member("data"));
        if (!devices.IsArray()) {
            return json::Malformed(site, body);
        }
        DeviceList fresh;
        for (size_t i = 0; i < devices.Size(); ++i) {
            if (devices.Element(i).IsObject()) {
                AppendDevice(devices.Element(i), fresh);
            }
        }
        result.Member("page").Member("total").Read(fresh.total);
        list = std::move(fresh);
        return VANTIX_NOERROR;
    });
}

}  // namespace

int GetDevListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, DeviceList& list) {
    return RequestCall(VANTIX_HERE, requests::kDevList, route)
        .With(pageStart, pageSize)
        .Run([&](const std::string& body) { return ParseDeviceListFromPlatform(body, list); });
}

int GetDeviceListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, const std::string& bizType,
                              DeviceList& list) {
    return RequestCall(VANTIX_HERE, requests::kDeviceListGB, route)
        .With(pageStart, pageSize, bizType)
        .Run([&](const std::string& body) { return ParseDeviceListFromPlatform_GB(body, list); });
}

int GetShareDevListFromPlatform(const PlatformRoute& route, int pageStart, int pageSize, DeviceList& list) {
    return RequestCall(VANTIX_HERE, requests::kShareDevList, route)
        .With(pageStart, pageSize)
        .Run([&](const std::string& body) { return ParseDeviceListFromPlatform(body, list); });
}

int GetAlarmListFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                             const AlarmQuery& query, std::string& json) {
    return RequestCall(VANTIX_HERE, requests::kAlarmList, route)
        .With(deviceSerial, cameraNo, query.pageStart, query.pageSize, query.startTime, query.endTime, query.alarmType,
              query.status)
        .Run(Keeping(CheckResponseInfoFromPlatform, json));
}

int ParseDeviceListFromPlatform(const std::string& body, DeviceList& list) {
    return ParseDevices(VANTIX_HERE, body, DevicesInObject, list);
}

int ParseDeviceListFromPlatform_GB(const std::string& body, DeviceList& list) {
    return ParseDevices(VANTIX_HERE, body, DevicesInArray, list);
}

}  // namespace vantix
