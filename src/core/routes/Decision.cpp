#include "core/routes/Decision.h"

#include <utility>

#include "core/CoreSite.h"

namespace vantix {

void LogDomain(const CallSite& site, bool isConsumer, const char* platformText) {
    VANTIX_LOG_INFO(site, level::kInfo, "%s", isConsumer ? "Returning C domain for shared device" : platformText);
}

void LogTokenLookup(const std::string& token) {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDomainByToken"), level::kInfo,
                    "Getting domain for token (first 10 chars): %.10s...", token.c_str());
}

const std::string& Decision::PlatformCredential() {
    if (!std::exchange(m_isCredentialFound, true)) {
        m_ownCredential = m_look.OwnCredentialOf(m_row, m_subject);
    }
    return m_ownCredential ? *m_ownCredential : m_look.AccessToken();
}

std::string Decision::TakePlatformCredential() && {
    PlatformCredential();
    return m_ownCredential ? std::move(*m_ownCredential) : std::move(m_look).TakeAccessToken();
}

bool Decision::IsConsumer() {
    switch (m_row.family) {
        case FamilyRule::ByToken: return IsSharedToken();
        case FamilyRule::ByChannel: return IsSharedChannel();
        case FamilyRule::Platform: break;
    }
    return false;
}

bool Decision::FindAddress() {
    if (m_row.address == AddressRule::ByChannel) {
        return IsSharedChannel();
    }
    LogTokenLookup();
    return IsSharedToken();
}

void Decision::LogAddress(const CallSite& site, bool isConsumer) {
    if (m_row.wording == Wording::OfOperation) {
        LogDomain(site, isConsumer, kPlatformByChannel);
    } else if (m_row.address == AddressRule::ByToken) {
        LogTokenLookup();
        LogDomain(VANTIX_CORE_HERE("getDomainByToken"), isConsumer, kPlatformByToken);
    } else {
        LogDomain(VANTIX_CORE_HERE("getDomain"), isConsumer, kPlatformByChannel);
    }
}

void Decision::LogTokenLookup() {
    const bool isOwnWording = m_row.wording == Wording::OfOperation;
    if (!isOwnWording && !std::exchange(m_isLookupLogged, true)) {
        vantix::LogTokenLookup(DecidingToken());
    }
}

/// The token that decides: the given one, else, where the family depends on it, the channel's B2C token. A channel
/// without one is the account's own.
const std::string& Decision::DecidingToken() {
    if (!m_decidingToken) {
        std::string token = m_subject.token.value_or(std::string());
        if (!m_subject.token && m_row.family == FamilyRule::ByToken) {
            token = m_look.ChannelToken(m_subject);
        }
        if (!m_subject.token && token.empty()) {
            token = m_row.credential == Credential::None ? m_look.AccessToken() : PlatformCredential();
        }
        m_decidingToken = std::move(token);
    }
    return *m_decidingToken;
}

bool Decision::IsSharedToken() {
    if (!m_isSharedToken) {
        m_isSharedToken = m_look.IsSharedToken(DecidingToken());
    }
    return *m_isSharedToken;
}

bool Decision::IsSharedChannel() {
    if (!m_isSharedChannel) {
        m_isSharedChannel = m_look.IsSharedChannel(m_subject.serial, m_subject.ch);
    }
    return *m_isSharedChannel;
}

}  // namespace vantix
