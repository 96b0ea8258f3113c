#include "../cloud/Endpoint.h"
#include "../cloud/Paging.h"
#include "../cloud/Times.h"

namespace vantix::simulator {
namespace {

constexpr long long defaultPage = 50;

Json CameraEntry(const Json& camera) {
    return {{"cameraNo", Member(camera, "cameraNo")},
            {"cameraName", Member(camera, "cameraName")},
            {"cameraId", Member(camera, "cameraId")},
            {"status", Member(camera, "status")},
            {"isShared", Member(camera, "isShared")},
            {"permission", Member(camera, "permission")},
            {"videoLevel", Member(camera, "videoLevel")},
            {"cameraCover", "https://pictures.example.test/" + TextOf(camera, "cameraId") + ".jpg"},
            {"videoQualityInfos", Member(camera, "videoQualityInfos")}};
}

Json DeviceEntry(const Json& device) {
    Json entry;
    for (const char* name : {"deviceSerial", "deviceName", "deviceType", "category", "addTime", "defence",
                             "alarmSoundMode", "offlineNotify", "deviceVersion"}) {
        entry[name] = Member(device, name);
    }
    const Json& part = Member(device, "device");
    entry["status"] = Member(part, "deviceStatus");
    entry["isEncrypt"] = Member(part, "isEncrypt");
    entry["releaseVersion"] = Member(part, "releaseVersion");
    entry["supportExtShort"] = Member(part, "supportExtShort");
    entry["deviceCover"] = "https://pictures.example.test/" + TextOf(device, "deviceSerial") + ".jpg";
    entry["cameraInfo"] = Json::array();
    for (const Json& camera : Member(device, "cameras")) {
        entry["cameraInfo"].push_back(CameraEntry(camera));
    }
    entry["cameraNum"] = entry["cameraInfo"].size();
    entry["detectorNum"] = 0;
    return entry;
}

/// "pageStart" counts pages from 0.
Json PageOf(const Call& call, const Json& list, Json& page) {
    const long long size = call.parameters.Number("pageSize", defaultPage);
    const long long start = call.parameters.Number("pageStart", 0);
    page = {{"total", list.size()}, {"page", start}, {"size", size}};
    return start < 0 || size < 1 || start > 1000000 ? Json::array() : Slice(list, start * size, size);
}

Json Devices(const Call& call, bool shared) {
    Json list = Json::array();
    for (const Json& device : call.state.devices) {
        const Json& mark = Member(device, "shared");
        if ((mark.is_boolean() && mark.get<bool>()) == shared) {
            list.push_back(DeviceEntry(device));
        }
    }
    return list;
}

Outcome Paged(const Call& call, const Json& list, const char* name) {
    Json page;
    Json data = PageOf(call, list, page);
    Outcome outcome = ResultData(name == nullptr ? std::move(data) : Json{{name, std::move(data)}});
    outcome.payload["result"]["page"] = std::move(page);
    return outcome;
}

Outcome OwnDevices(Call& call) { return Paged(call, Devices(call, false), "deviceInfos"); }

Outcome SharedDevices(Call& call) { return Paged(call, Devices(call, true), "deviceInfos"); }

Outcome PlainDevices(Call& call) { return Paged(call, Devices(call, false), nullptr); }

Outcome DeviceInfo(Call& call) { return ResultData(DeviceEntry(*call.Device())); }

/// Whether the value is the one that the parameter asks for; an empty or negative parameter and `everything` match all.
bool Wanted(const Call& call, const char* name, const Json& value, long long everything) {
    const long long wanted = call.parameters.Number(name, -1);
    return wanted < 0 || wanted == everything || wanted == ToNumber(Dump(value), -2);
}

bool AlarmFits(const Call& call, const Json& alarm, const TimeSpan& span) {
    const std::string serial = call.parameters.Text("deviceSerial");
    const std::string time = TextOf(alarm, "alarmTime");
    return (serial.empty() || serial == TextOf(alarm, "deviceSerial")) &&
           Wanted(call, "cameraNo", Member(alarm, "channelNo"), 0) &&
           Wanted(call, "alarmType", Member(alarm, "alarmType"), -1) &&
           Wanted(call, "status", Member(alarm, "isChecked"), 2) && SpanOf(time, time).Overlaps(span);
}

Outcome Alarms(Call& call) {
    const TimeSpan span = SpanOf(call.parameters.Text("startTime"), call.parameters.Text("endTime"));
    Json list = Json::array();
    for (const Json& alarm : Member(call.state.account, "alarms")) {
        if (AlarmFits(call, alarm, span)) {
            list.push_back(alarm);
        }
    }
    return Paged(call, list, nullptr);
}

Outcome ReadAlarm(Call& call) {
    for (Json& alarm : call.state.account["alarms"]) {
        if (TextOf(alarm, "alarmId") == call.parameters.Text("alarmId")) {
            alarm["isChecked"] = 1;
            return {};
        }
    }
    return Refuse(code::nothingFound);
}

constexpr std::array listEndpoints = {
    Endpoint{"/api/device/list", Method::post, Envelope::result, Authentication::accessToken, {}, OwnDevices},
    Endpoint{"/api/device/sharelist", Method::post, Envelope::result, Authentication::accessToken, {}, SharedDevices},
    Endpoint{"/api/lapp/device/list", Method::post, Envelope::result, Authentication::accessToken, {}, PlainDevices},
    Endpoint{"/api/device/getDeviceInfo",
             Method::post,
             Envelope::result,
             Authentication::accessToken,
             {"deviceSerial"},
             DeviceInfo},
    Endpoint{"/api/alarm/list", Method::post, Envelope::result, Authentication::accessToken, {}, Alarms},
    Endpoint{
        "/api/alarm/sdk/setRead", Method::post, Envelope::result, Authentication::accessToken, {"alarmId"}, ReadAlarm},
};

}  // namespace

std::span<const Endpoint> ListEndpoints() { return listEndpoints; }

}  // namespace vantix::simulator
