#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

/// Names of the system configuration that the consumer servers do not send.
Reply SystemInfo(Call& call) {
    Json servers = Member(call.state.account, "servers");
    for (const char* name : {"logAddr", "microCloudMode", "vtmBackups"}) {
        servers.erase(name);
    }
    Reply reply;
    reply.payload["systemConfigInfo"] = std::move(servers);
    return reply;
}

Reply Login(Call& call) {
    auto& account = call.state.account;
    auto& sessions = call.state.sessions;
    if (!sessions.refreshers.contains(call.parameters.Text("refreshSessionId"))) {
        return Refuse(code::sessionExpired);
    }
    account["sessionId"] = call.state.Fresh("se.fresh.4a7d18c9.");
    account["refreshSessionId"] = call.state.Fresh("rs.fresh.b305e6f2.");
    sessions.valid.insert(TextOf(account, "sessionId"));
    sessions.refreshers.insert(TextOf(account, "refreshSessionId"));
    Reply reply;
    reply.payload["sessionInfo"] = {{"sessionId", account["sessionId"]},
                                    {"refreshSessionId", account["refreshSessionId"]}};
    return reply;
}

Reply Users(Call& call) {
    Reply reply;
    reply.payload["userInfo"] = {{"userId", Member(call.state.account, "userId")},
                                 {"userName", Member(call.state.account, "userName")}};
    return reply;
}

Reply P2pConfiguration(Call& call) {
    const Json& user = Member(call.state.account, "p2pUser");
    Reply reply;
    reply.payload["secret"] = Member(user, "data");
    reply.payload["data"] = {{"version", Member(user, "version")}, {"saltIndex", Member(user, "saltIndex")}};
    return reply;
}

constexpr auto get = Verb::get;
constexpr auto meta = Envelope::meta;

constexpr std::array rows = {
    Endpoint{"/v3/configurations/system/info", get, meta, Proof::session, {}, SystemInfo},
    Endpoint{"/v3/apigateway/login", Verb::put, meta, Proof::none, {"refreshSessionId"}, Login},
    Endpoint{"/v3/users/info", get, meta, Proof::session, {}, Users},
    Endpoint{"/v3/p2pbusiness/configurations/p2p", get, meta, Proof::session, {}, P2pConfiguration},
};

}  // namespace

std::span<const Endpoint> SessionEndpoints() { return rows; }

}  // namespace vantix::simulator
