#include "../cloud/Endpoint.h"
#include "../cloud/Recordings.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

constexpr long long online = 1;

bool IsOnline(const Json& device) { return NumberOf(Member(device, "device"), "deviceStatus") == online; }

Json Matching(Call& call, std::string_view place, std::string_view typeName) {
    RecordingFilter filter;
    filter.place = place;
    filter.channel = call.Channel();
    filter.span = SpanOf(call.parameters.Text("startTime"), call.parameters.Text("endTime"));
    filter.type = typeName.empty() ? 0 : call.parameters.Number(typeName, 0);
    return FindRecordings(*call.Device(), filter);
}

/// The matching recordings, wrapped as the endpoint needs them, or a failure.
Outcome Listed(Call& call, std::string_view place, std::string_view typeName, Outcome (*wrap)(Json)) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    if (place == "device" && !IsOnline(*call.Device())) {
        return Refuse(code::deviceOffline);
    }
    return wrap(Matching(call, place, typeName));
}

Outcome OnDevice(Call& call) { return Listed(call, "device", "recordType", ResultData); }

Outcome OnDeviceExtended(Call& call) { return Listed(call, "device", "recordType", Data); }

Outcome OnPlatform(Call& call) { return Listed(call, "platform", {}, ResultData); }

Outcome InCloud(Call& call) { return Listed(call, "cloud", "fileType", ResultData); }

Outcome InCloudSpace(Call& call) { return Listed(call, "cloud", {}, Data); }

Outcome OfAlarm(Call& call) {
    const std::string id = call.parameters.Text("alarmId");
    for (const Json& alarm : Member(call.state.account, "alarms")) {
        if (TextOf(alarm, "alarmId") == id) {
            const std::string time = TextOf(alarm, "alarmTime");
            return ResultData(FindRecordings(*call.Device(), {{}, call.Channel(), SpanOf(time, time), 0}));
        }
    }
    return Refuse(code::nothingFound);
}

Outcome Videos(Json list) {
    Outcome outcome;
    outcome.payload["hasMore"] = false;
    outcome.payload["videos"] = std::move(list);
    return outcome;
}

Outcome OfDay(Call& call) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    const std::string day = call.parameters.Text("searchDate");
    const TimeSpan span = SpanOf(day, day);
    return Videos(
        FindRecordings(*call.Device(), {"cloud", call.Channel(), span, call.parameters.Number("videoType", 0)}));
}

/// The files that the request names in "fileIds"; without "fileIds" all files of the channel.
Outcome Details(Call& call) {
    const Json wanted = Parse(call.parameters.Text("fileIds")).value_or(Json());
    Json list = FindRecordings(*call.Device(), {"cloud", call.Channel(), {}, 0});
    if (wanted.is_array()) {
        Json chosen = Json::array();
        std::copy_if(list.begin(), list.end(), std::back_inserter(chosen), [&](const Json& recording) {
            return std::find(wanted.begin(), wanted.end(), Member(recording, "fileId")) != wanted.end();
        });
        list = std::move(chosen);
    }
    Outcome outcome;
    outcome.payload["videoDetails"] = std::move(list);
    return outcome;
}

constexpr auto post = Method::post;
constexpr auto get = Method::get;
constexpr auto result = Envelope::result;
constexpr auto meta = Envelope::meta;
constexpr auto token = Authentication::accessToken;

constexpr std::array recordEndpoints = {
    Endpoint{"/api/sdk/device/local/video", post, result, token, {"deviceSerial", "cameraNo"}, OnDevice},
    Endpoint{"/api/v3/device/sdk/device/local/video", post, result, token, {"deviceSerial", "cameraNo"}, OnDevice},
    Endpoint{"/api/v3/das/device/local/video/query", get, meta, token, {"deviceSerial", "channelNo"}, OnDeviceExtended},
    Endpoint{"/api/lapp/video/by/time", post, result, token, {"deviceSerial", "channelNo"}, OnPlatform},
    Endpoint{"/api/lapp/video/by/id", post, result, token, {"deviceSerial", "channelNo", "alarmId"}, OfAlarm},
    Endpoint{"/api/cloud/files/get", post, result, token, {"deviceSerial", "cameraNo"}, InCloud},
    Endpoint{
        "/api/service/cloudrecord/video/info/list", get, meta, token, {"deviceSerial", "localIndex"}, InCloudSpace},
    Endpoint{"/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
             post,
             meta,
             token,
             {"deviceSerial", "channelNo", "searchDate"},
             OfDay},
    Endpoint{"/api/v3/open/cloud/v3/clouds/videoDetails", post, meta, token, {"deviceSerial"}, Details},
};

}  // namespace

std::span<const Endpoint> RecordEndpoints() { return recordEndpoints; }

}  // namespace vantix::simulator
