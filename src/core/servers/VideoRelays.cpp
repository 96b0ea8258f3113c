#include "core/servers/VideoRelays.h"

#include <vector>

#include "core/CoreSite.h"
#include "json/JsonText.h"
#include "platform/Server.h"

namespace vantix {
namespace {

constexpr RouteRow kOwnToken{.credential = Credential::TkToken, .tkKind = tk::kVideo};
constexpr CallSite kGivenTokenSite = VANTIX_CORE_HERE("getServerInfoEx");
constexpr RouteRow kGivenToken{.credential = Credential::GivenToken};
static_assert(IsConsistent(kOwnToken) && IsConsistent(kGivenToken));

std::string RelayList(const std::vector<VtmAddr>& relays) {
    auto list = json::JsonBuilder::Array();
    for (const VtmAddr& relay : relays) {
        list.Append(json::JsonBuilder::Object().Set("addr", relay.strVtmAddr).Set("port", relay.iVtmPort));
    }
    return json::JsonBuilder::Object().Set("vtmBackups", list).Compact();
}

void LogRelays(const CallSite& site, const std::vector<VtmAddr>& relays) {
    for (const VtmAddr& relay : relays) {
        VANTIX_LOG_INFO(site, level::kInfo, " addr = [%s]", relay.strVtmAddr.c_str());
        VANTIX_LOG_INFO(site, level::kInfo, " port = [%d]", relay.iVtmPort);
    }
}

}  // namespace

int VideoRelays::getVideoVtmAddr(const std::string& serial, int ch, std::string& json, bool retried) {
    return Fetch(VANTIX_CORE_HERE("getVideoVtmAddr"), kOwnToken, Subject::OfChannel(serial, ch), json, retried);
}

int VideoRelays::getServerInfoEx(const std::string& token, std::string& json, const std::string& serial, int ch,
                                 bool retried) {
    return Fetch(kGivenTokenSite, kGivenToken, Subject::OfBoth(serial, ch, token), json, retried);
}

int VideoRelays::Fetch(const CallSite& site, const RouteRow& row, const Subject& subject, std::string& json,
                       bool retried) {
    ServerInfo servers;
    bool isSent = false;
    CallSite lines = site;
    const int result = m_renewal.Run(site, {}, retried, subject, [&](const Attempt& attempt) {
        const bool isRenewed = attempt.reason == AttemptReason::Renewed;
        if (isRenewed) {
            lines = kGivenTokenSite;  // the repeat is the form with the token given
        }
        servers = {};
        const Outcome outcome =
            SendAlong(m_routes.DecidePlatform(lines, isRenewed ? kGivenToken : row, attempt.subject),
                      [&](const PlatformRoute& route) {
                          return GetServerInfoFromPlatform(route, attempt.subject.serial, attempt.subject.ch, servers);
                      });
        isSent = !outcome.isCredentialMissing;
        return outcome;
    });
    if (!isSent) {
        return result;
    }
    if (result != VANTIX_NOERROR || servers.vtmBackups.empty()) {
        VANTIX_LOG_ERROR(lines, level::kError, "lVideoVtmAddr size 0");
        return VANTIX_ERROR;
    }
    LogRelays(lines, servers.vtmBackups);
    json = RelayList(servers.vtmBackups);
    VANTIX_LOG_ERROR(lines, level::kError, "stVideoVtmAddr %s", json.c_str());
    return VANTIX_NOERROR;
}

}  // namespace vantix
