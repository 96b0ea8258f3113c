#include "core/p2p/P2PUser.h"

#include "core/CoreSite.h"
#include "cserver/P2P.h"
#include "platform/P2P.h"

namespace vantix {
namespace {

constexpr SingleRecordKind<P2PUserInfo> kKind{
    .call = VANTIX_CORE_HERE("getP2PUserInfo"),
    .task = VANTIX_CORE_HERE("getP2PUserInfo::<lambda()>"),
    .taskText = "futureUserInfo async",
    .fromPlatform = GetP2PUserInfoFromPlatform,
    .fromConsumer = GetP2PUserInfoFromCServer,
    // A refusal of the consumer servers ends as a success without a record.
    .isFilled = [](const P2PUserInfo& userInfo) { return !userInfo.userId.empty() || !userInfo.data.empty(); },
};
constexpr RouteRow kByToken{.family = FamilyRule::ByToken, .address = AddressRule::ByToken};
constexpr RouteRow kByDevice{
    .credential = Credential::TkToken,
    .tkKind = tk::kDevice,
    .family = FamilyRule::ByToken,
    .address = AddressRule::ByToken,
};
static_assert(IsConsistent(kByToken) && IsConsistent(kByDevice));

}  // namespace

P2PUser::P2PUser(const Routes& routes, Renewal& renewal) : m_record(kKind, routes, renewal) {}

int P2PUser::getP2PUserInfo(P2PUserInfo& userInfo, const std::string& token, std::future<int32_t>& future,
                            bool retried) {
    return m_record.GetAsync(kByToken, Subject::OfToken(token), userInfo, future, retried);
}

int P2PUser::getP2PUserInfo(const std::string& token, P2PUserInfo& userInfo, bool retried) {
    return m_record.Get(kByToken, Subject::OfToken(token), userInfo, retried);
}

int P2PUser::getP2PUserInfo(const std::string& serial, int ch, P2PUserInfo& userInfo, bool retried) {
    return m_record.Get(kByDevice, Subject::OfChannel(serial, ch), userInfo, retried);
}

}  // namespace vantix
