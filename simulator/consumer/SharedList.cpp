#include "../cloud/Endpoint.h"
#include "../cloud/Paging.h"

namespace vantix::simulator {
namespace {

Json Camera(const Json& camera) {
    return {{"channelNo", Member(camera, "cameraNo")},    {"cameraNo", Member(camera, "cameraNo")},
            {"cameraId", Member(camera, "cameraId")},     {"isShared", NumberOf(camera, "isShared")},
            {"permission", Member(camera, "permission")}, {"videoQualityInfos", Member(camera, "videoQualityInfos")}};
}

/// These servers spell "deviceVersion" without its "r".
Json Resource(const Json& device) {
    const Json& part = Member(device, "device");
    Json resource;
    for (const char* name :
         {"deviceSerial", "deviceName", "deviceType", "category", "addTime", "alarmSoundMode", "offlineNotify"}) {
        resource[name] = Member(device, name);
    }
    resource["status"] = Member(part, "deviceStatus");
    resource["isEncrypted"] = Member(part, "isEncrypt");
    resource["isDefence"] = Member(device, "defence");
    resource["supportExtShort"] = Member(part, "supportExtShort");
    resource["deviceVesion"] = Member(device, "deviceVersion");
    resource["cameraInfos"] = Json::array();
    for (const Json& camera : Member(device, "cameras")) {
        resource["cameraInfos"].push_back(Camera(camera));
    }
    resource["detectorInfos"] = Json::array();
    resource.merge_patch(Member(device, "sharedEntry").is_object() ? Member(device, "sharedEntry") : Json::object());
    return resource;
}

Outcome SharedDevices(Call& call) {
    Json list = Json::array();
    for (const Json& device : call.state.devices) {
        if (Member(device, "shared") == Json(true)) {
            list.push_back(Resource(device));
        }
    }
    const long long limit = call.parameters.Number("limit", 50);
    Json shown = Slice(list, call.parameters.Number("offset", 0), limit);
    return Data({{"size", shown.size()}, {"total", list.size()}, {"resourceInfos", std::move(shown)}});
}

constexpr std::array sharedListEndpoints = {
    Endpoint{"/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",
             Method::get,
             Envelope::meta,
             Authentication::session,
             {},
             SharedDevices},
};

}  // namespace

std::span<const Endpoint> SharedListEndpoints() { return sharedListEndpoints; }

}  // namespace vantix::simulator
