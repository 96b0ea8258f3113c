#include "cserver/Lists.h"

#include "cserver/RequestTable.h"
#include "cserver/Thumbnails.h"
#include "json/Fields.h"
#include "json/JsonText.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonBuilder;
using json::JsonCppView;

/// A member of a shared device, and what it is called in the platform's list.
struct Renamed {
    const char* platform;
    const char* consumer;
};
constexpr Renamed kDeviceMembers[] = {
    {"deviceSerial", "deviceSerial"},
    {"deviceName", "deviceName"},
    {"category", "category"},
    {"addTime", "addTime"},
    {"status", "status"},
    {"isEncrypt", "isEncrypted"},
    {"defence", "isDefence"},
    {"alarmSoundMode", "alarmSoundMode"},
    {"offlineNotify", "offlineNotify"},
    {"supportExtShort", "supportExtShort"},
    {"deviceVersion", "deviceVesion"},  // misspelled by these servers
};

JsonBuilder Qualities(const JsonCppView& qualities) {
    JsonBuilder list = JsonBuilder::Array();
    for (size_t i = 0; i < qualities.Size(); ++i) {
        JsonBuilder quality = JsonBuilder::Object();
        for (const char* key : {"videoQualityName", "streamType"}) {
            quality.SetIfThere(key, qualities.Element(i).Member(key));
        }
        list.Append(quality);
    }
    return list;
}

/// The number of a camera: "cameraNo", or "channelNo" where that is its name.
int32_t NumberOf(const JsonCppView& camera) {
    int32_t number = 0;
    if (!camera.Member("cameraNo").Read(number)) {
        camera.Member("channelNo").Read(number);
    }
    return number;
}

JsonBuilder Camera(const JsonCppView& camera, const std::string& device) {
    const int32_t number = NumberOf(camera);
    JsonBuilder entry = JsonBuilder::Object();
    entry.Set("cameraNo", number)
        .Set("cameraName", "camera " + std::to_string(number) + "@" + device)
        .SetIfThere("isShared", camera.Member("isShared"))
        .Set("cameraCover", kDefaultCameraCover)
        .SetIfThere("permission", camera.Member("permission"))
        .Set("videoQualityInfos", Qualities(camera.Member("videoQualityInfos")));
    return entry;
}

JsonBuilder Device(const JsonCppView& resource) {
    JsonBuilder device = JsonBuilder::Object();
    for (const Renamed& member : kDeviceMembers) {
        device.SetIfThere(member.platform, resource.Member(member.consumer));
    }
    std::string type = "UNKNOWN";
    resource.Member("deviceType").Read(type);
    std::string serial;
    resource.Member("deviceSerial").Read(serial);
    const JsonCppView cameras = BesideOrInsideData(resource, "cameraInfos");
    JsonBuilder cameraInfo = JsonBuilder::Array();
    for (size_t i = 0; i < cameras.Size(); ++i) {
        cameraInfo.Append(Camera(cameras.Element(i), serial));
    }
    device.Set("deviceType", type)
        .Set("deviceCover", kDefaultDeviceCover)
        .Set("cameraNum", static_cast<int32_t>(cameras.Size()))
        .Set("detectorNum", static_cast<int32_t>(BesideOrInsideData(resource, "detectorInfos").Size()))
        .Set("cameraInfo", cameraInfo);
    return device;
}

/// The list in the platform's shape: {"result":{"code":"200","data":{"deviceInfos":[…]},"page":{…}}}.
std::string Translated(const JsonCppView& root) {
    JsonBuilder devices = JsonBuilder::Array();
    json::ForEachObject(RootData(root).Member("resourceInfos"),
                        [&](const JsonCppView& resource) { devices.Append(Device(resource)); });
    JsonBuilder page = JsonBuilder::Object();
    page.SetIfThere("size", BesideOrInsideData(root, "size")).SetIfThere("total", BesideOrInsideData(root, "total"));
    JsonBuilder result = JsonBuilder::Object();
    result.Set("code", "200").Set("data", JsonBuilder::Object().Set("deviceInfos", devices)).Set("page", page);
    return JsonBuilder::Object().Set("result", result).Compact();
}

}  // namespace

int GetB2CSharedDevListFromPlatform(const ConsumerRoute& route, int offset, int limit, std::string& deviceList) {
    return RequestCall<cserver_requests::kSharedDevices>(VANTIX_HERE, route, "offset"_key = offset, "limit"_key = limit)
        .Run([&](TextView body) { return ParseB2CDeviceListFromPlatform(body, deviceList); });
}

int ParseB2CDeviceListFromPlatform(TextView body, std::string& deviceList) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, OptionalMetaCode, [&](const JsonCppView& root) -> int {
        const JsonCppView data = RootData(root);
        if (!data.Member("resourceInfos").IsArray()) {
            return LogMalformed(site, body, data.IsObject() ? "resourceInfos" : "data");
        }
        deviceList = Translated(root);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
