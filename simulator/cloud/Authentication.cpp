#include "Authentication.h"

#include <algorithm>
#include <array>

namespace vantix::simulator {
namespace {

constexpr std::array<std::string_view, 6> tokenMembers = {"deviceTkToken",   "deviceVideoTkToken", "previewTkToken",
                                                          "playTackTkToken", "talkTkToken",        "token"};

bool HasToken(const Json& entry, const std::string& token) {
    return std::any_of(tokenMembers.begin(), tokenMembers.end(),
                       [&](std::string_view key) { return TextOf(entry, key) == token; });
}

bool IsAccountToken(const CloudState& state, const std::string& token) {
    return state.tokens.valid.contains(token) || token == TextOf(state.account, "globalTkToken");
}

/// Whether an entry of the account's device tokens has the token (and the serial, when one is given).
bool IsDeviceToken(const CloudState& state, const std::string& token, const std::string& serial) {
    for (const char* list : {"tkTokens", "b2cTokens"}) {
        for (const Json& entry : Member(state.account, list)) {
            if (HasToken(entry, token) && (serial.empty() || TextOf(entry, "deviceSerial") == serial)) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace

bool HasValidToken(const Call& call) {
    const std::string token = call.parameters.Text("accessToken");
    return !token.empty() && (IsAccountToken(call.state, token) || IsDeviceToken(call.state, token, {}));
}

bool TokenCoversDevice(const Call& call) {
    const std::string token = call.parameters.Text("accessToken");
    return IsAccountToken(call.state, token) || IsDeviceToken(call.state, token, call.parameters.Text("deviceSerial"));
}

bool HasValidSession(const Call& call) {
    std::string session = HeaderValue(call.request.headers, "sessionId");
    if (session.empty()) {
        session = call.parameters.Text("sessionId");
    }
    return call.state.sessions.valid.contains(session);
}

}  // namespace vantix::simulator
