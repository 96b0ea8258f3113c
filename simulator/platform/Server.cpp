#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

Outcome ServerInfo(Call& call) {
    Json servers = Member(call.state.account, "servers");
    if (const Json* device = call.Device(); device != nullptr) {
        servers.merge_patch(Member(*device, "servers").is_object() ? Member(*device, "servers") : Json::object());
    }
    Outcome outcome;
    outcome.payload["serverResp"] = std::move(servers);
    return outcome;
}

Outcome Configuration(Call& call) { return ResultData(Member(call.state.account, "config")); }

Outcome RelayServer(Call& call) {
    return call.Camera() == nullptr ? Refuse(code::noChannel) : Data(Member(call.state.account, "relayServer"));
}

Outcome Bandwidth(Call& call) { return Data(Member(call.state.account, "bandwidth")); }

Outcome DataTicket(Call& call, const std::string& prefix) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    return Data({{"ticket", call.state.IssueUnique(prefix)}});
}

Outcome RelayTicket(Call& call) { return DataTicket(call, "tk.relay."); }

Outcome CloudTicket(Call& call) { return DataTicket(call, "tk.cloud."); }

Outcome Ticket(Call& call) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    Outcome outcome;
    outcome.payload["ticketInfo"]["ticket"] = call.state.IssueUnique("tk.media.");
    return outcome;
}

constexpr std::array serverEndpoints = {
    Endpoint{"/api/service/media/server/info",
             Method::post,
             Envelope::resultCode,
             Authentication::accessToken,
             {},
             ServerInfo},
    Endpoint{"/api/config/info", Method::post, Envelope::result, Authentication::none, {}, Configuration},
    Endpoint{"/api/service/media/streaming/relay/server",
             Method::get,
             Envelope::meta,
             Authentication::accessToken,
             {"deviceSerial", "channelNo"},
             RelayServer},
    Endpoint{"/api/service/media/streaming/relay/ticket",
             Method::get,
             Envelope::meta,
             Authentication::accessToken,
             {"deviceSerial", "channelNo"},
             RelayTicket},
    Endpoint{"/api/service/cloud/ticket",
             Method::get,
             Envelope::meta,
             Authentication::accessToken,
             {"deviceSerial", "localIndex"},
             CloudTicket},
    Endpoint{"/api/route/userdevicetob/v3/cameras/ticketInfo",
             Method::get,
             Envelope::meta,
             Authentication::accessToken,
             {"deviceSerial", "channelNo"},
             Ticket},
    Endpoint{"/v3/cameras/ticketInfo",
             Method::get,
             Envelope::meta,
             Authentication::session,
             {"deviceSerial", "channelNo"},
             Ticket},
    Endpoint{"/api/service/media/bwc/address", Method::get, Envelope::meta, Authentication::accessToken, {}, Bandwidth},
};

}  // namespace

std::span<const Endpoint> ServerEndpoints() { return serverEndpoints; }

}  // namespace vantix::simulator
