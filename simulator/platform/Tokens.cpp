#include "../cloud/Endpoint.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

constexpr long long largestBatch = 100;
constexpr long long sessionBatch = 20;

Outcome Batch(Call& call, long long count) {
    Json tokens = Json::array();
    for (long long number = 0; number < std::min(count, largestBatch); ++number) {
        tokens.push_back(call.state.IssueUnique("st.5d1f3a0c."));
    }
    Outcome outcome;
    outcome.payload["tokenArray"] = std::move(tokens);
    return outcome;
}

Outcome StreamTokens(Call& call) {
    const long long count = call.parameters.Number("count", 0);
    return count < 1 ? Refuse(code::badParameter) : Batch(call, count);
}

Outcome SessionStreamTokens(Call& call) { return Batch(call, sessionBatch); }

/// Earlier refresh tokens stay valid: a client need not keep the new one.
Outcome Refresh(Call& call) {
    auto& account = call.state.account;
    auto& tokens = call.state.tokens;
    if (!tokens.validForRefresh.contains(call.parameters.Text("refresh_token")) ||
        call.parameters.Text("open_id") != TextOf(account, "openId")) {
        return Refuse(code::tokenExpired);
    }
    account["accessToken"] = call.state.IssueUnique("at.fresh.7c2e90b4.");
    account["refreshToken"] = call.state.IssueUnique("rt.fresh.d81a5f36.");
    tokens.valid.insert(TextOf(account, "accessToken"));
    tokens.validForRefresh.insert(TextOf(account, "refreshToken"));
    return ResultData({{"access_token", account["accessToken"]},
                       {"openId", account["openId"]},
                       {"refresh_token", account["refreshToken"]},
                       {"expires_in", Member(account, "expiresIn")},
                       {"scope", Member(account, "scope")}});
}

constexpr std::array tokenEndpoints = {
    Endpoint{
        "/api/user/token", Method::post, Envelope::resultCode, Authentication::accessToken, {"count"}, StreamTokens},
    Endpoint{
        "/api/user/token/get", Method::post, Envelope::resultCode, Authentication::session, {}, SessionStreamTokens},
    Endpoint{"/oauth/token/refreshToken",
             Method::post,
             Envelope::result,
             Authentication::none,
             {"refresh_token", "grant_type", "client_id", "open_id"},
             Refresh},
};

}  // namespace

std::span<const Endpoint> TokenEndpoints() { return tokenEndpoints; }

}  // namespace vantix::simulator
