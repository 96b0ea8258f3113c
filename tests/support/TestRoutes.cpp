#include "support/TestRoutes.h"

#include "core/routes/Routes.h"
#include "core/settings/Settings.h"
#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"
#include "log/Logger.h"

namespace vantix::test {
namespace {

/// Routes of a host that set just these texts. They are decided as all others are.
struct RouteMaker {
    RouteMaker(const std::string& address, const std::string& credential, const std::string& appKey) {
        settings.AreaBDomain.Assign(address);
        settings.CDomain.Assign(address);
        settings.AuthAddr.Assign(address);
        settings.accessToken.Assign(credential);
        settings.sessionId.Assign(credential);
        settings.appID.Assign(appKey);
    }

    Settings settings;
    TkTokens tkTokens;
    B2CTokens b2cTokens;
    Routes routes{settings, tkTokens, b2cTokens};
};

}  // namespace

PlatformRoute PlatformRouteTo(const std::string& address, const std::string& accessToken, const std::string& appKey) {
    const int32_t threshold = iLogLevel.exchange(level::kError + 1);
    const RouteMaker maker(address, accessToken, appKey);
    const Credential credential = accessToken.empty() ? Credential::None : Credential::AccessToken;
    const RouteRow row{.credential = credential, .address = AddressRule::ByToken};
    const auto route = maker.routes.DecidePlatform(VANTIX_HERE, row, Subject::OfAccount());
    iLogLevel = threshold;
    return std::get<PlatformRoute>(route);
}

ConsumerRoute ConsumerRouteTo(const std::string& address, const std::string& sessionId) {
    return RouteMaker(address, sessionId, {}).routes.ToRenewSession();
}

AuthorizationRoute AuthorizationRouteTo(const std::string& address, const std::string& appKey) {
    return RouteMaker(address, {}, appKey).routes.ToRenewToken();
}

}  // namespace vantix::test
