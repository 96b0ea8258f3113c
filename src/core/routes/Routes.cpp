#include "core/routes/Routes.h"

#include "core/CoreSite.h"
#include "core/routes/Look.h"

namespace vantix {
namespace {

/// Writes which domain a decision chose.
void LogDomain(const CallSite& site, bool isConsumer, const char* platformText) {
    VANTIX_LOG_INFO(site, level::kInfo, "%s", isConsumer ? "Returning C domain for shared device" : platformText);
}

void LogTokenLookup(const std::string& token) {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDomainByToken"), level::kInfo,
                    "Getting domain for token (first 10 chars): %.10s...", token.c_str());
}

constexpr char kPlatformByChannel[] = "Returning B domain";
constexpr char kPlatformByToken[] = "Returning B domain not a shared device";

/// The decision of one look.
class Decision {
public:
    Decision(Look& look, const RouteRow& row, const Subject& subject)
        : m_look(look), m_row(row), m_subject(subject), m_credential(look.CredentialOf(row, subject)) {}

    /// Whether the host gave an empty token: that is no token at all.
    bool IsGivenTokenEmpty() const { return m_subject.token && m_subject.token->empty(); }
    bool IsCredentialMissing() const { return m_row.credential != Credential::None && m_credential.empty(); }

    /// Whether the consumer servers' requests are the ones to send.
    bool IsConsumer() {
        switch (m_row.family) {
            case FamilyRule::ByToken: return IsSharedToken();
            case FamilyRule::ByChannel: return IsSharedChannel();
            case FamilyRule::Platform: break;
        }
        return false;
    }

    /// Whether the platform's requests go to the consumer servers.
    bool IsAddressConsumer() { return m_row.address == AddressRule::ByToken ? IsSharedToken() : IsSharedChannel(); }

    /// Writes the lines about the address, once for the look.
    void LogAddress(const CallSite& site, bool isConsumer) {
        if (m_row.wording == Wording::OfOperation) {
            LogDomain(site, isConsumer, kPlatformByChannel);
        } else if (m_row.address == AddressRule::ByToken) {
            LogTokenLookup(DecidingToken());
            LogDomain(VANTIX_CORE_HERE("getDomainByToken"), isConsumer, kPlatformByToken);
        } else {
            LogDomain(VANTIX_CORE_HERE("getDomain"), isConsumer, kPlatformByChannel);
        }
    }

    std::string& PlatformCredential() { return m_credential; }

private:
    /// The token that decides: the given one, else, where the family depends on it, the channel's B2C token. A channel
    /// without one is the account's own.
    const std::string& DecidingToken() {
        if (!m_decidingToken) {
            std::string token = m_subject.token.value_or(std::string());
            if (!m_subject.token && m_row.family == FamilyRule::ByToken) {
                token = m_look.ChannelToken(m_subject);
            }
            if (!m_subject.token && token.empty()) {
                token = m_row.credential == Credential::None ? m_look.AccessToken() : m_credential;
            }
            m_decidingToken = std::move(token);
        }
        return *m_decidingToken;
    }
    bool IsSharedToken() {
        if (!m_isSharedToken) {
            m_isSharedToken = m_look.IsSharedToken(DecidingToken());
        }
        return *m_isSharedToken;
    }
    bool IsSharedChannel() {
        if (!m_isSharedChannel) {
            m_isSharedChannel = m_look.IsSharedChannel(m_subject.serial, m_subject.ch);
        }
        return *m_isSharedChannel;
    }

    Look& m_look;
    const RouteRow& m_row;
    const Subject& m_subject;
    std::string m_credential;
    std::optional<std::string> m_decidingToken;
    std::optional<bool> m_isSharedToken;
    std::optional<bool> m_isSharedChannel;
};

}  // namespace

Look Routes::NewLook() const { return {m_settings, m_tkTokens, m_b2cTokens}; }

AnyRoute Routes::Decide(const CallSite& site, const RouteRow& row, const Subject& subject) const {
    Look look = NewLook();
    Decision decision(look, row, subject);
    const bool needsCredential = row.family != FamilyRule::ByToken;
    if (decision.IsGivenTokenEmpty() || (needsCredential && decision.IsCredentialMissing())) {
        return MissingCredential{ServerFamily::Platform};
    }
    if (decision.IsConsumer()) {
        std::string session = m_settings.sessionId.Copy();
        if (session.empty()) {
            return MissingCredential{ServerFamily::Consumer};
        }
        decision.LogAddress(site, true);
        return ConsumerRoute(m_settings.CDomain.Copy(), std::move(session));
    }
    if (decision.IsCredentialMissing()) {
        return MissingCredential{ServerFamily::Platform};
    }
    const bool isAddressConsumer = decision.IsAddressConsumer();
    decision.LogAddress(site, isAddressConsumer);
    const Guarded<std::string>& domain = isAddressConsumer ? m_settings.CDomain : m_settings.AreaBDomain;
    return PlatformRoute(domain.Copy(), std::move(decision.PlatformCredential()), m_settings.appID.Copy());
}

PlatformOnlyRoute Routes::DecidePlatform(const CallSite& site, const RouteRow& row, const Subject& subject) const {
    AnyRoute route = Decide(site, row, subject);
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

bool Routes::IsCredentialEmpty(const RouteRow& row, const Subject& subject) const {
    return NewLook().CredentialOf(row, subject).empty();
}

}  // namespace vantix
