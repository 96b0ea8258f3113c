#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

constexpr long long mayWatch = 1;
constexpr long long mayPlayBack = 2;

Outcome UserName(Call& call) {
    Outcome outcome;
    outcome.payload["userName"] = Member(call.state.account, "userName");
    return outcome;
}

Outcome UserId(Call& call) { return ResultData({{"userId", Member(call.state.account, "userId")}}); }

Outcome PushSession(Call& call) {
    Outcome outcome;
    outcome.payload["pushSessionId"] = call.state.IssueUnique("push.");
    return outcome;
}

Outcome Message(Call& call) {
    for (const Json& message : Member(call.state.account, "messages")) {
        if (TextOf(message, "msgSeq") == call.parameters.Text("msgSeq")) {
            Outcome outcome;
            outcome.payload["result"]["msgData"] = message;
            return outcome;
        }
    }
    return Refuse(code::nothingFound);
}

/// The camera's "permission" is a sum of rights: 1 to watch, 2 to play recordings.
Outcome Permission(Call& call) {
    const Json* camera = call.Camera();
    if (camera == nullptr) {
        return Refuse(code::noChannel);
    }
    const std::string wanted = call.parameters.Text("permission");
    if (wanted != "Real" && wanted != "Replay") {
        return Refuse(code::badParameter);
    }
    const long long right = wanted == "Real" ? mayWatch : mayPlayBack;
    return (NumberOf(*camera, "permission") / right) % 2 == 1 ? Outcome{} : Refuse(code::noPermission);
}

constexpr std::array accountEndpoints = {
    Endpoint{"/api/user/getUserName", Method::post, Envelope::resultCode, Authentication::accessToken, {}, UserName},
    Endpoint{"/api/service/user/get", Method::post, Envelope::result, Authentication::accessToken, {}, UserId},
    Endpoint{
        "/api/service/set/push", Method::post, Envelope::meta, Authentication::accessToken, {"pushAppId"}, PushSession},
    Endpoint{"/api/common/transparent/getMsgDetail",
             Method::post,
             Envelope::result,
             Authentication::accessToken,
             {"msgSeq"},
             Message},
    Endpoint{"/api/service/auth/device/user/permission",
             Method::post,
             Envelope::result,
             Authentication::accessToken,
             {"deviceSerial", "cameraNo", "permission"},
             Permission},
};

}  // namespace

std::span<const Endpoint> AccountEndpoints() { return accountEndpoints; }

}  // namespace vantix::simulator
