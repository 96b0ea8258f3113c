#pragma once

#include "Cloud.h"
#include "Envelope.h"
#include "Parameters.h"

#include <array>
#include <optional>
#include <span>
#include <string_view>

namespace vantix::simulator {

/// One request while it is answered, under the cloud's lock.
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

/// What a handler answers: a code and, with success, the members that stand beside or inside the envelope.
struct Reply {
    std::string code{code::success};
    Json payload = Json::object();
};

/// A failure of this code.
Reply Refuse(std::string_view code);

/// {"result":{"data":data}}
Reply ResultData(Json data);

/// {"data":data}
Reply Data(Json data);

/// What proves that the caller may ask.
enum class Proof { none, token, session };

enum class Verb { get, post, put };

/// One row: a path, how it is asked, and who answers.
struct Endpoint {
    std::string_view path;
    Verb verb;
    Envelope envelope;
    Proof proof;
    /// Parameters that must be there and not empty; with "deviceSerial" the device must exist as well.
    std::array<std::string_view, 5> required;
    Reply (*handler)(Call& call);
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

/// The row of the path, null when nobody answers there.
const Endpoint* FindEndpoint(std::string_view path);

}  // namespace vantix::simulator
