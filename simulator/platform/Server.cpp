#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

Reply ServerInfo(Call& call) {
    Json servers = Member(call.state.account, "servers");
    if (const Json* device = call.Device(); device != nullptr) {
        servers.merge_patch(Member(*device, "servers").is_object() ? Member(*device, "servers") : Json::object());
    }
    Reply reply;
    reply.payload["serverResp"] = std::move(servers);
    return reply;
}

Reply Configuration(Call& call) { return ResultData(Member(call.state.account, "config")); }

Reply RelayServer(Call& call) {
    return call.Camera() == nullptr ? Refuse(code::noChannel) : Data(Member(call.state.account, "relayServer"));
}

Reply Bandwidth(Call& call) { return Data(Member(call.state.account, "bandwidth")); }

Reply DataTicket(Call& call, const std::string& prefix) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    return Data({{"ticket", call.state.Fresh(prefix)}});
}

Reply RelayTicket(Call& call) { return DataTicket(call, "tk.relay."); }

Reply CloudTicket(Call& call) { return DataTicket(call, "tk.cloud."); }

Reply Ticket(Call& call) {
    if (call.Camera() == nullptr) {
        return Refuse(code::noChannel);
    }
    Reply reply;
    reply.payload["ticketInfo"]["ticket"] = call.state.Fresh("tk.media.");
    return reply;
}

constexpr std::array rows = {
    Endpoint{"/api/service/media/server/info", Verb::post, Envelope::resultCode, Proof::token, {}, ServerInfo},
    Endpoint{"/api/config/info", Verb::post, Envelope::result, Proof::none, {}, Configuration},
    Endpoint{"/api/service/media/streaming/relay/server",
             Verb::get,
             Envelope::meta,
             Proof::token,
             {"deviceSerial", "channelNo"},
             RelayServer},
    Endpoint{"/api/service/media/streaming/relay/ticket",
             Verb::get,
             Envelope::meta,
             Proof::token,
             {"deviceSerial", "channelNo"},
             RelayTicket},
    Endpoint{"/api/service/cloud/ticket",
             Verb::get,
             Envelope::meta,
             Proof::token,
             {"deviceSerial", "localIndex"},
             CloudTicket},
    Endpoint{"/api/route/userdevicetob/v3/cameras/ticketInfo",
             Verb::get,
             Envelope::meta,
             Proof::token,
             {"deviceSerial", "channelNo"},
             Ticket},
    Endpoint{
        "/v3/cameras/ticketInfo", Verb::get, Envelope::meta, Proof::session, {"deviceSerial", "channelNo"}, Ticket},
    Endpoint{"/api/service/media/bwc/address", Verb::get, Envelope::meta, Proof::token, {}, Bandwidth},
};

}  // namespace

std::span<const Endpoint> ServerEndpoints() { return rows; }

}  // namespace vantix::simulator
