#include "Responses.h"

#include "Authentication.h"
#include "Endpoint.h"
#include "Uploads.h"

#include <array>

namespace vantix::simulator {
namespace {

constexpr int unauthorized = 401;
constexpr int notFound = 404;
constexpr int wrongMethod = 405;
constexpr std::string_view uploadPrefix = "/upload/";

Response JsonResponse(const Json& json, int status = 200) {
    Response response;
    response.status = status;
    response.body = Dump(json);
    response.headers.emplace_back("Content-Type", "application/json;charset=UTF-8");
    return response;
}

std::string_view NameOf(Method method) {
    switch (method) {
        case Method::get: return "GET";
        case Method::post: return "POST";
        case Method::put: return "PUT";
    }
    return {};
}

/// The consumer servers send 401 as status and as code; their clients read the code in "meta".
Response SessionExpiredResponse(Envelope envelope) {
    Json json = Wrap(Envelope::meta, code::sessionExpired, MessageOf(code::sessionExpired), Json::object());
    if (envelope == Envelope::resultCode) {
        json.update(Wrap(envelope, code::sessionExpired, MessageOf(code::sessionExpired), Json::object()));
    }
    return JsonResponse(json, unauthorized);
}

/// The code of the failure that keeps the call from its handler; empty when there is none.
std::string_view FailureBeforeHandler(const Endpoint& endpoint, const Call& call) {
    if (endpoint.authentication == Authentication::accessToken && !HasValidToken(call)) {
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
    if (endpoint.authentication == Authentication::accessToken && !TokenCoversDevice(call)) {
        return code::noPermission;
    }
    return {};
}

Response CallEndpoint(const Endpoint& endpoint, Call& call) {
    if (endpoint.authentication == Authentication::session && !HasValidSession(call)) {
        return SessionExpiredResponse(endpoint.envelope);
    }
    const std::string_view failure = FailureBeforeHandler(endpoint, call);
    const Outcome outcome = failure.empty() ? endpoint.handler(call) : Refuse(failure);
    return JsonResponse(Wrap(endpoint.envelope, outcome.code, MessageOf(outcome.code), outcome.payload));
}

}  // namespace

Response HandleRequest(Cloud& cloud, const Request& request, const Parameters& parameters) {
    return cloud.With([&](CloudState& state) {
        Call call{state, request, parameters};
        if (request.path.starts_with(uploadPrefix)) {
            return StoreUpload(call, request.path.substr(uploadPrefix.size()));
        }
        const Endpoint* endpoint = FindEndpoint(request.path);
        if (endpoint == nullptr) {
            return ResponseWithStatus(notFound);
        }
        if (request.method != NameOf(endpoint->method)) {
            return ResponseWithStatus(wrongMethod);
        }
        return CallEndpoint(*endpoint, call);
    });
}

Response ResponseWithCode(const std::string& path, const std::string& code, const std::string& message) {
    const Endpoint* endpoint = FindEndpoint(path);
    Envelope envelope = path.starts_with("/v3/") ? Envelope::meta : Envelope::result;
    if (endpoint != nullptr) {
        envelope = endpoint->envelope;
    }
    return JsonResponse(Wrap(envelope, code, message.empty() ? MessageOf(code) : message, Json::object()));
}

Response ResponseWithStatus(int status) {
    Response response;
    response.status = status;
    const std::string number = std::to_string(status);
    response.body = "<html><head><title>" + number + "</title></head><body><h1>" + number + "</h1></body></html>\n";
    response.headers.emplace_back("Content-Type", "text/html");
    return response;
}

}  // namespace vantix::simulator
