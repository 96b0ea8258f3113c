// Domains, credentials and which of them a request uses.

#include "boundary/Logger.h"
#include "core/CVantixDataCenter.h"
#include "core/LastError.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

void CVantixDataCenter::setDomain(const std::string& szBDomain, const std::string& szCDomain) {
    VANTIX_LOG_INFO(level::kInfo, "SetDomain OldAreaBDomain:%s, szBDomain:%s, szCDomain:%s",
                    m_settings.AreaBDomain.Copy().c_str(), szBDomain.c_str(), szCDomain.c_str());
    if (!szBDomain.empty()) {
        m_settings.AreaBDomain.Assign(szBDomain);
    }
    if (!szCDomain.empty()) {
        m_settings.CDomain.Assign(szCDomain);
    }
}

const GuardedText& CVantixDataCenter::getDomain(const std::string& serial, int ch) {
    if (m_settings.permissionMode.Copy() == permission_mode::kB2C && isB2CSharedDevice(serial, ch)) {
        VANTIX_LOG_INFO(level::kInfo, "Returning C domain for shared device");
        return m_settings.CDomain;
    }
    VANTIX_LOG_INFO(level::kInfo, "Returning B domain");
    return m_settings.AreaBDomain;
}

const GuardedText& CVantixDataCenter::getDomainByToken(const std::string& token) {
    VANTIX_LOG_INFO(level::kInfo, "Getting domain for token (first 10 chars): %.10s...", token.c_str());
    if (m_settings.permissionMode.Copy() == permission_mode::kB2C && isB2CSharedDevice(token)) {
        VANTIX_LOG_INFO(level::kInfo, "Returning C domain for shared device");
        return m_settings.CDomain;
    }
    VANTIX_LOG_INFO(level::kInfo, "Returning B domain not a shared device");
    return m_settings.AreaBDomain;
}

void CVantixDataCenter::setAuthAddr(const std::string& addr) {
    VANTIX_LOG_INFO(level::kInfo, "SetAuthAddr OldAuth:%s, NewAuth:%s", m_settings.AuthAddr.Copy().c_str(),
                    addr.c_str());
    m_settings.AuthAddr.Assign(addr);
}

void CVantixDataCenter::setTokenExpireTime(const std::string& text) {
    VANTIX_LOG_INFO(level::kInfo, "Set TokenExpireTime:%s", text.c_str());
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

std::string CVantixDataCenter::deviceCredential(const CallSite& site, const std::string& serial, int ch, int tkType) {
    const int mode = m_settings.permissionMode.Copy();
    std::string token;
    if (mode == permission_mode::kSmall) {
        token = getDeviceTkTokens(tkType, serial, ch);
    } else if (mode == permission_mode::kB2C) {
        token = getB2CTokens(serial, ch);
    } else {
        token = m_settings.accessToken.Copy();
    }
    if (token.empty()) {
        LogErrorAt(site, level::kError, "get strToken error");
        SetThreadLastError(VANTIX_ERROR);
    }
    return token;
}

Caller CVantixDataCenter::callerFor(const std::string& domain, const std::string& token) {
    return {domain, token, getAppId()};
}

std::string CVantixDataCenter::refreshedToken() {
    std::string newToken;
    RefreshToken(newToken);
    return newToken;
}

int CVantixDataCenter::RefreshToken(std::string& newToken) {
    newToken.clear();
    VANTIX_LOG_ERROR(level::kError, "operation is not available yet");
    return VANTIX_ERROR;
}

}  // namespace vantix
