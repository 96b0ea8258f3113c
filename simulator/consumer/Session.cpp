#include "../cloud/Endpoint.h"

namespace vantix::simulator {
namespace {

/// The servers of the account without those that the consumer servers do not send.
Outcome SystemInfo(Call& call) {
    Json servers = Member(call.state.account, "servers");
    for (const char* name : {"logAddr", "microCloudMode", "vtmBackups"}) {
        servers.erase(name);
    }
    Outcome outcome;
    outcome.payload["systemConfigInfo"] = std::move(servers);
    return outcome;
}

Outcome Login(Call& call) {
    auto& account = call.state.account;
    auto& sessions = call.state.sessions;
    if (!sessions.validForRefresh.contains(call.parameters.Text("refreshSessionId"))) {
        return Refuse(code::sessionExpired);
    }
    account["sessionId"] = call.state.IssueUnique("se.fresh.4a7d18c9.");
    account["refreshSessionId"] = call.state.IssueUnique("rs.fresh.b305e6f2.");
    sessions.valid.insert(TextOf(account, "sessionId"));
    sessions.validForRefresh.insert(TextOf(account, "refreshSessionId"));
    Outcome outcome;
    outcome.payload["sessionInfo"] = {{"sessionId", account["sessionId"]},
                                      {"refreshSessionId", account["refreshSessionId"]}};
    return outcome;
}

Outcome Users(Call& call) {
    Outcome outcome;
    outcome.payload["userInfo"] = {{"userId", Member(call.state.account, "userId")},
                                   {"userName", Member(call.state.account, "userName")}};
    return outcome;
}

Outcome P2pConfiguration(Call& call) {
    const Json& user = Member(call.state.account, "p2pUser");
    Outcome outcome;
    outcome.payload["secret"] = Member(user, "data");
    outcome.payload["data"] = {{"version", Member(user, "version")}, {"saltIndex", Member(user, "saltIndex")}};
    return outcome;
}

constexpr auto get = Method::get;
constexpr auto meta = Envelope::meta;

constexpr std::array sessionEndpoints = {
    Endpoint{"/v3/configurations/system/info", get, meta, Authentication::session, {}, SystemInfo},
    Endpoint{"/v3/apigateway/login", Method::put, meta, Authentication::none, {"refreshSessionId"}, Login},
    Endpoint{"/v3/users/info", get, meta, Authentication::session, {}, Users},
    Endpoint{"/v3/p2pbusiness/configurations/p2p", get, meta, Authentication::session, {}, P2pConfiguration},
};

}  // namespace

std::span<const Endpoint> SessionEndpoints() { return sessionEndpoints; }

}  // namespace vantix::simulator
