#include "Answering.h"

#include "Endpoint.h"
#include "Proof.h"
#include "Uploads.h"

#include <array>

namespace vantix::simulator {
namespace {

constexpr int unauthorized = 401;
constexpr int notFound = 404;
constexpr int wrongMethod = 405;
constexpr std::string_view uploadPrefix = "/upload/";

Answer JsonAnswer(const Json& json, int status = 200) {
    Answer answer;
    answer.status = status;
    answer.body = Dump(json);
    answer.headers.emplace_back("Content-Type", "application/json;charset=UTF-8");
    return answer;
}

std::string_view NameOf(Verb verb) {
    switch (verb) {
        case Verb::get: return "GET";
        case Verb::post: return "POST";
        case Verb::put: return "PUT";
    }
    return {};
}

/// The consumer servers say it in the status as well; their clients read the body's "meta".
Answer SessionRefused(Envelope envelope) {
    Json json = Wrap(Envelope::meta, code::sessionExpired, MessageOf(code::sessionExpired), Json::object());
    if (envelope == Envelope::resultCode) {
        json.update(Wrap(envelope, code::sessionExpired, MessageOf(code::sessionExpired), Json::object()));
    }
    return JsonAnswer(json, unauthorized);
}

/// The code that refuses the call before its handler is asked; empty when it may be asked.
std::string_view Objection(const Endpoint& endpoint, const Call& call) {
    if (endpoint.proof == Proof::token && !TokenHolds(call)) {
        return code::tokenExpired;
    }
    for (const std::string_view name : endpoint.required) {
        if (!name.empty() && call.parameters.Text(name).empty()) {
            return code::badParameter;
        }
        if (name == "deviceSerial" && call.Device() == nullptr) {
            return code::noDevice;
        }
    }
    if (endpoint.proof == Proof::token && !TokenReachesDevice(call)) {
        return code::noPermission;
    }
    return {};
}

Answer Ask(const Endpoint& endpoint, Call& call) {
    if (endpoint.proof == Proof::session && !SessionHolds(call)) {
        return SessionRefused(endpoint.envelope);
    }
    const std::string_view objection = Objection(endpoint, call);
    const Reply reply = objection.empty() ? endpoint.handler(call) : Refuse(objection);
    return JsonAnswer(Wrap(endpoint.envelope, reply.code, MessageOf(reply.code), reply.payload));
}

}  // namespace

Answer AnswerFrom(Cloud& cloud, const Request& request, const Parameters& parameters) {
    return cloud.With([&](CloudState& state) {
        Call call{state, request, parameters};
        if (request.path.starts_with(uploadPrefix)) {
            return TakeUpload(call, request.path.substr(uploadPrefix.size()));
        }
        const Endpoint* endpoint = FindEndpoint(request.path);
        if (endpoint == nullptr) {
            return AnswerWithStatus(notFound);
        }
        if (request.method != NameOf(endpoint->verb)) {
            return AnswerWithStatus(wrongMethod);
        }
        return Ask(*endpoint, call);
    });
}

Answer AnswerWithCode(const std::string& path, const std::string& code, const std::string& message) {
    const Endpoint* endpoint = FindEndpoint(path);
    Envelope envelope = path.starts_with("/v3/") ? Envelope::meta : Envelope::result;
    if (endpoint != nullptr) {
        envelope = endpoint->envelope;
    }
    return JsonAnswer(Wrap(envelope, code, message.empty() ? MessageOf(code) : message, Json::object()));
}

Answer AnswerWithStatus(int status) {
    Answer answer;
    answer.status = status;
    const std::string number = std::to_string(status);
    answer.body = "<html><head><title>" + number + "</title></head><body><h1>" + number + "</h1></body></html>\n";
    answer.headers.emplace_back("Content-Type", "text/html");
    return answer;
}

}  // namespace vantix::simulator
