#include "soak/LogRules.h"

#include <array>
#include <string_view>

namespace vantix::test {
namespace {

bool Holds(std::string_view line, std::string_view part) { return line.find(part) != std::string_view::npos; }

/// Lines about what is sent; what servers return stands whole in other lines.
bool IsOfRequest(std::string_view line) { return Holds(line, " url and Param = ") || Holds(line, "heads = "); }

/// Lines about the consumer servers' responses to the P2P user request.
bool IsOfP2PUser(std::string_view line) { return Holds(line, "P2PUserInfoFromCServer>\t"); }

/// The renewal of the access token writes the app id whole.
bool IsOfTokenRenewal(std::string_view line) { return Holds(line, "client_id=") || Holds(line, "appID:"); }

}  // namespace

std::string WrongInLine(const Account& account, const std::string& line) {
    for (const std::string& secret : account.hostSecrets) {
        if (Holds(line, secret)) {
            return "a secret of the host: " + line.substr(0, 2000);
        }
    }
    for (const std::string& appId : account.appIds) {
        if (Holds(line, appId) && !IsOfTokenRenewal(line)) {
            return "an app id: " + line.substr(0, 2000);
        }
    }
    constexpr std::array<std::string_view, 2> kRenewed = {"at.fresh.7c2e90b4.", "se.fresh.4a7d18c9."};
    for (const std::string_view stem : kRenewed) {
        if (Holds(line, stem) && IsOfRequest(line)) {
            return "a renewed credential: " + line.substr(0, 2000);
        }
    }
    return Holds(line, ".p2puser") && IsOfP2PUser(line) ? "the secret of the P2P user: " + line.substr(0, 2000) : "";
}

}  // namespace vantix::test
