#include "../cloud/Endpoint.h"
#include "Detail.h"

namespace vantix::simulator {
namespace {

void TurnIntoText(const Json& device, Json& sent) {
    for (const Json& name : Member(device, "nestedAsText")) {
        if (!name.is_string()) {
            continue;
        }
        const auto found = sent.find(name.get_ref<const std::string&>());
        if (found != sent.end() && !found->is_string()) {
            *found = Dump(*found);
        }
    }
}

Outcome Detail(Call& call) {
    const Json* camera = call.Camera();
    if (camera == nullptr) {
        return Refuse(code::noChannel);
    }
    return ResultData({{"camera", *camera}, {"device", DeviceAsSent(call.state, *call.Device())}});
}

Outcome SetVideoLevel(Call& call) {
    Json* camera = call.Camera();
    if (camera == nullptr) {
        return Refuse(code::noChannel);
    }
    (*camera)["videoLevel"] = call.parameters.Number("videoLevel", 0);
    return {};
}

constexpr std::array deviceEndpoints = {
    Endpoint{
        "/api/device/detail", Method::post, Envelope::result, Authentication::accessToken, {"deviceSerial"}, Detail},
    Endpoint{"/api/device/setVideoLevel",
             Method::post,
             Envelope::result,
             Authentication::accessToken,
             {"deviceSerial", "videoLevel"},
             SetVideoLevel},
    Endpoint{"/api/camera/setVideoLevel",
             Method::post,
             Envelope::result,
             Authentication::accessToken,
             {"deviceSerial", "videoLevel"},
             SetVideoLevel},
};

}  // namespace

Json DeviceAsSent(CloudState& state, const Json& device) {
    Json sent = Member(device, "device");
    if (!sent.is_object()) {
        return sent;
    }
    const std::string parentSerial = TextOf(sent, "belongSerial");
    const Json* parent = parentSerial.empty() ? nullptr : FindDevice(state, parentSerial);
    if (parent != nullptr && !sent.contains("belongDevice")) {
        sent["belongDevice"] = Member(*parent, "device");
    }
    TurnIntoText(device, sent);
    return sent;
}

std::span<const Endpoint> DeviceEndpoints() { return deviceEndpoints; }

}  // namespace vantix::simulator
