#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

constexpr long long mayWatch = 1;
constexpr long long mayPlayBack = 2;

Reply UserName(Call& call) {
    Reply reply;
    reply.payload["userName"] = Member(call.state.account, "userName");
    return reply;
}

Reply UserId(Call& call) { return ResultData({{"userId", Member(call.state.account, "userId")}}); }

Reply PushSession(Call& call) {
    Reply reply;
    reply.payload["pushSessionId"] = call.state.Fresh("push.");
    return reply;
}

Reply Message(Call& call) {
    for (const Json& message : Member(call.state.account, "messages")) {
        if (TextOf(message, "msgSeq") == call.parameters.Text("msgSeq")) {
            Reply reply;
            reply.payload["result"]["msgData"] = message;
            return reply;
        }
    }
    return Refuse(code::nothingFound);
}

/// The camera's "permission" is a sum of rights: 1 to watch, 2 to play recordings.
Reply Permission(Call& call) {
    const Json* camera = call.Camera();
    if (camera == nullptr) {
        return Refuse(code::noChannel);
    }
    const std::string wanted = call.parameters.Text("permission");
    if (wanted != "Real" && wanted != "Replay") {
        return Refuse(code::badParameter);
    }
    const long long right = wanted == "Real" ? mayWatch : mayPlayBack;
    return (NumberOf(*camera, "permission") / right) % 2 == 1 ? Reply{} : Refuse(code::noPermission);
}

constexpr std::array rows = {
    Endpoint{"/api/user/getUserName", Verb::post, Envelope::resultCode, Proof::token, {}, UserName},
    Endpoint{"/api/service/user/get", Verb::post, Envelope::result, Proof::token, {}, UserId},
    Endpoint{"/api/service/set/push", Verb::post, Envelope::meta, Proof::token, {"pushAppId"}, PushSession},
    Endpoint{"/api/common/transparent/getMsgDetail", Verb::post, Envelope::result, Proof::token, {"msgSeq"}, Message},
    Endpoint{"/api/service/auth/device/user/permission",
             Verb::post,
             Envelope::result,
             Proof::token,
             {"deviceSerial", "cameraNo", "permission"},
             Permission},
};

}  // namespace

std::span<const Endpoint> AccountEndpoints() { return rows; }

}  // namespace vantix::simulator
