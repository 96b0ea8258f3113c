// Domains and credentials that the host hands in.

#include "core/CVantixDataCenter.h"
#include "log/Logger.h"

namespace vantix {

void CVantixDataCenter::setDomain(const std::string& szBDomain, const std::string& szCDomain) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "SetDomain OldAreaBDomain:%s, szBDomain:%s, szCDomain:%s",
                    m_settings.AreaBDomain.Copy().c_str(), szBDomain.c_str(), szCDomain.c_str());
    if (!szBDomain.empty()) {
        m_settings.AreaBDomain.Assign(szBDomain);
    }
    if (!szCDomain.empty()) {
        m_settings.CDomain.Assign(szCDomain);
    }
}

const GuardedText& CVantixDataCenter::getDomain(const std::string& serial, int ch) {
    if (isServedByConsumer(serial, ch)) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Returning C domain for shared device");
        return m_settings.CDomain;
    }
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Returning B domain");
    return m_settings.AreaBDomain;
}

const GuardedText& CVantixDataCenter::getDomainByToken(const std::string& token) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Getting domain for token (first 10 chars): %.10s...", token.c_str());
    if (isServedByConsumer(token)) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Returning C domain for shared device");
        return m_settings.CDomain;
    }
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Returning B domain not a shared device");
    return m_settings.AreaBDomain;
}

void CVantixDataCenter::setAuthAddr(const std::string& addr) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "SetAuthAddr OldAuth:%s, NewAuth:%s", m_settings.AuthAddr.Copy().c_str(),
                    addr.c_str());
    m_settings.AuthAddr.Assign(addr);
}

void CVantixDataCenter::setTokenExpireTime(const std::string& text) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Set TokenExpireTime:%s", text.c_str());
    m_settings.TokenExpireTime.Assign(text);
}

const std::string& CVantixDataCenter::getAuthAddr() { return m_settings.AuthAddr.Live(); }
void CVantixDataCenter::setAppId(const std::string& appId) { m_settings.appID.Assign(appId); }
std::string CVantixDataCenter::getAppId() { return m_settings.appID.Copy(); }
void CVantixDataCenter::setAccessToken(const std::string& token) { m_settings.accessToken.Assign(token); }
const std::string& CVantixDataCenter::getAccessToken() { return m_settings.accessToken.Live(); }
const std::string& CVantixDataCenter::getTokenExpireTime() { return m_settings.TokenExpireTime.Live(); }
void CVantixDataCenter::setRefreshToken(const std::string& token) { m_settings.RefreshToken.Assign(token); }
const std::string& CVantixDataCenter::getRefreshToken() { return m_settings.RefreshToken.Live(); }
void CVantixDataCenter::setOpenID(const std::string& openId) { m_settings.OpenID.Assign(openId); }
const std::string& CVantixDataCenter::getOpenID() { return m_settings.OpenID.Live(); }
void CVantixDataCenter::setScope(const std::string& scope) { m_settings.Scope.Assign(scope); }
const std::string& CVantixDataCenter::getScope() { return m_settings.Scope.Live(); }
void CVantixDataCenter::setState(const std::string& state) { m_settings.State.Assign(state); }
const std::string& CVantixDataCenter::getState() { return m_settings.State.Live(); }
void CVantixDataCenter::setSessionId(const std::string& sessionId) { m_settings.sessionId.Assign(sessionId); }
const std::string& CVantixDataCenter::getSessionId() { return m_settings.sessionId.Live(); }

}  // namespace vantix
