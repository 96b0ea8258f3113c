#include "core/servers/ServerInformation.h"

#include "core/CoreSite.h"
#include "cserver/Server.h"
#include "platform/Server.h"

namespace vantix {
namespace {

constexpr SingleRecordKind<ServerInfo> kKind{
    .call = VANTIX_CORE_HERE("getServerInfo"),
    .task = VANTIX_CORE_HERE("getServerInfo::<lambda()>"),
    .taskText = "futureServerInfo async",
    .fromPlatform = GetServerInfoFromPlatform,
    .fromConsumer = GetServerInfoFromCServer,
    .isFilled = [](const ServerInfo&) { return true; },
};
constexpr RouteRow kRoute{.family = FamilyRule::ByToken, .address = AddressRule::ByToken};
static_assert(IsConsistent(kRoute));

}  // namespace

ServerInformation::ServerInformation(const Routes& routes, Renewal& renewal) : m_record(kKind, routes, renewal) {}

int ServerInformation::getServerInfo(const std::string& token, ServerInfo& serverInfo, std::future<int32_t>& future,
                                     bool retried) {
    return m_record.GetAsync(kRoute, Subject::OfToken(token), serverInfo, future, retried);
}

int ServerInformation::getServerInfo(const std::string& token, ServerInfo& serverInfo, bool retried) {
    return m_record.Get(kRoute, Subject::OfToken(token), serverInfo, retried);
}

void ServerInformation::expireServerInfo() {
    constexpr int32_t kServedSeconds = 120;
    m_record.InvalidateOlderThan(kServedSeconds);
}

}  // namespace vantix
