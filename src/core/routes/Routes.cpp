#include "core/routes/Routes.h"

#include "core/CoreSite.h"

namespace vantix {
Look Routes::NewLook() const { return {m_settings, m_tkTokens, m_b2cTokens}; }

Decision Routes::Begin(const RouteRow& row, const Subject& subject) const { return {NewLook(), row, subject}; }

AnyRoute Routes::Decide(const CallSite& site, const RouteRow& row, const Subject& subject) const {
    Decision decision = Begin(row, subject);
    return Decide(site, decision);
}

AnyRoute Routes::Decide(const CallSite& site, Decision& decision) const {
    if (decision.IsGivenTokenEmpty() || (!decision.IsSessionEnough() && decision.IsCredentialMissing())) {
        return MissingCredential{ServerFamily::Platform};
    }
    if (decision.IsConsumer()) {
        AnyRoute route = OfSession();
        if (std::holds_alternative<ConsumerRoute>(route)) {
            decision.LogAddress(site, true);
        }
        return route;
    }
    if (decision.IsCredentialMissing()) {
        return MissingCredential{ServerFamily::Platform};
    }
    const bool isAddressConsumer = decision.FindAddress();
    decision.LogAddress(site, isAddressConsumer);
    const Guarded<std::string>& domain = isAddressConsumer ? m_settings.CDomain : m_settings.AreaBDomain;
    return PlatformRoute(domain.Copy(), std::move(decision).TakePlatformCredential(), m_settings.appID.Copy());
}

PlatformOnlyRoute Routes::DecidePlatform(const CallSite& site, const RouteRow& row, const Subject& subject) const {
    Decision decision = Begin(row, subject);
    return DecidePlatform(site, decision);
}

PlatformOnlyRoute Routes::DecidePlatform(const CallSite& site, Decision& decision) const {
    AnyRoute route = Decide(site, decision);
    if (auto* toPlatform = std::get_if<PlatformRoute>(&route)) {
        return std::move(*toPlatform);
    }
    return MissingCredential{ServerFamily::Platform};
}

AnyRoute Routes::OfSession() const {
    std::string session = m_settings.sessionId.Copy();
    if (session.empty()) {
        return MissingCredential{ServerFamily::Consumer};
    }
    return ConsumerRoute(m_settings.CDomain.Copy(), std::move(session));
}

ConsumerRoute Routes::ToRenewSession() const { return {m_settings.CDomain.Copy(), m_settings.sessionId.Copy()}; }

AuthorizationRoute Routes::ToRenewToken() const { return {m_settings.AuthAddr.Copy(), m_settings.appID.Copy()}; }

const Guarded<std::string>& Routes::getDomain(const std::string& serial, int ch) const {
    const bool isShared = NewLook().IsSharedChannel(serial, ch);
    LogDomain(VANTIX_CORE_HERE("getDomain"), isShared, kPlatformByChannel);
    return isShared ? m_settings.CDomain : m_settings.AreaBDomain;
}

const Guarded<std::string>& Routes::getDomainByToken(const std::string& token) const {
    LogTokenLookup(token);
    const bool isShared = NewLook().IsSharedToken(token);
    LogDomain(VANTIX_CORE_HERE("getDomainByToken"), isShared, kPlatformByToken);
    return isShared ? m_settings.CDomain : m_settings.AreaBDomain;
}

bool Routes::isB2CSharedDevice(const std::string& token) const { return NewLook().IsSharedInMap(token); }

}  // namespace vantix
