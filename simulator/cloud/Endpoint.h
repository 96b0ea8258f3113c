#pragma once

#include "Cloud.h"
#include "Envelope.h"
#include "Parameters.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace vantix::simulator {

/// One request while it is handled, under the cloud's lock.
struct Call {
    CloudState& state;
    const Request& request;
    const Parameters& parameters;

    [[nodiscard]] Json* Device() const { return FindDevice(state, parameters.Text("deviceSerial")); }
    /// The channel that the request names: "cameraNo", "channelNo" or "localIndex", else 1.
    [[nodiscard]] long long Channel() const;
    /// That channel of that device, null when there is none.
    [[nodiscard]] Json* Camera() const;
};

/// What a handler returns: a code and, with success, the members that are merged into the envelope.
struct Outcome {
    std::string code{code::success};
    Json payload = Json::object();
};

/// A failure with this code.
Outcome Refuse(std::string_view code);

/// {"result":{"data":data}}
Outcome ResultData(Json data);

/// {"data":data}
Outcome Data(Json data);

/// The credential that an endpoint requires.
enum class Authentication { none, accessToken, session };

enum class Method { get, post, put };

/// One endpoint of the servers: its path, what it requires of a request, and its handler.
struct Endpoint {
    std::string_view path;
    Method method;
    Envelope envelope;
    Authentication authentication;
    /// Parameters that must be present and not empty; with "deviceSerial" the device must exist as well.
    std::array<std::string_view, 5> required;
    Outcome (*handler)(Call& call);
};

std::span<const Endpoint> DeviceEndpoints();
std::span<const Endpoint> ServerEndpoints();
std::span<const Endpoint> P2pEndpoints();
std::span<const Endpoint> TokenEndpoints();
std::span<const Endpoint> ListEndpoints();
std::span<const Endpoint> RecordEndpoints();
std::span<const Endpoint> CloudUploadEndpoints();
std::span<const Endpoint> AccountEndpoints();
std::span<const Endpoint> SessionEndpoints();
std::span<const Endpoint> PageListEndpoints();
std::span<const Endpoint> ConsumerRecordEndpoints();
std::span<const Endpoint> SharedListEndpoints();

/// The endpoint with this path, null when there is none.
const Endpoint* FindEndpoint(std::string_view path);

}  // namespace vantix::simulator
