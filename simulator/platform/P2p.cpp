#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

Outcome P2pUserInfo(Call& call) {
    Json data = {{"userId", TextOf(call.state.account, "userId")}};
    data.update(Member(call.state.account, "p2pUser"));
    return ResultData(std::move(data));
}

Outcome P2pDeviceInfo(Call& call) {
    const Json& p2p = Member(*call.Device(), "p2p");
    Json data;
    for (const char* name : {"serverInfos", "defaultKey", "defaultKeyVer"}) {
        if (!Member(p2p, name).is_null()) {
            data[name] = Member(p2p, name);
        }
    }
    const Json& capability = Member(p2p, "capability");
    data["qxDeviceCapability"] = capability.is_object() ? Json(Dump(capability)) : capability;
    return ResultData(std::move(data));
}

constexpr std::array p2pEndpoints = {
    Endpoint{
        "/api/sdk/p2p/user/info/get", Method::post, Envelope::result, Authentication::accessToken, {}, P2pUserInfo},
    Endpoint{"/api/sdk/p2p/dev/info/get",
             Method::post,
             Envelope::result,
             Authentication::accessToken,
             {"deviceSerial"},
             P2pDeviceInfo},
};

}  // namespace

std::span<const Endpoint> P2pEndpoints() { return p2pEndpoints; }

}  // namespace vantix::simulator
