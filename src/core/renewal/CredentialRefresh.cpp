#include "core/renewal/CredentialRefresh.h"

#include <utility>

#include "core/CoreSite.h"
#include "core/routes/Routes.h"
#include "core/settings/Settings.h"
#include "cserver/Tokens.h"
#include "platform/Tokens.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

int CredentialRefresh::RefreshToken(std::string& newToken) {
    const CallSite site = VANTIX_CORE_HERE("RefreshToken");
    newToken.clear();
    if (m_settings.permissionMode.Copy() == permission_mode::kSmall) {
        VANTIX_LOG_ERROR(site, level::kError, "Small permissions do not need to use the following logic");
        return VANTIX_ERROR;
    }
    const AuthorizationRoute service = m_routes.ToRenewToken();
    const RefreshCredentials sent{m_settings.RefreshToken.Copy(), m_settings.OpenID.Copy(), m_settings.Scope.Copy(),
                                  m_settings.State.Copy()};
    if (service.Address().empty() || sent.openId.empty() || sent.refreshToken.empty() || service.AppKey().empty()) {
        VANTIX_LOG_INFO(
            site, level::kInfo, "Refresh Token, params invalid, AuthAddr:%s, OpenID:%s, RefreshToken:%s, appID:%s",
            service.Address().c_str(), sent.openId.c_str(), sent.refreshToken.c_str(), service.AppKey().c_str());
        return VANTIX_ERROR;
    }
    RefreshTokenInfo info;
    const int result = RefreshTokenFromPlatform(service, sent, info);
    // An empty token would overwrite the current one.
    if (result != VANTIX_NOERROR || info.access_token.empty()) {
        VANTIX_LOG_ERROR(site, level::kError,
                         "Refresh Token Failed, AuthAddr:%s, OpenID:%s, RefreshToken:%s, appID:%s, Scope:%s, State:%s",
                         service.Address().c_str(), sent.openId.c_str(), sent.refreshToken.c_str(),
                         service.AppKey().c_str(), sent.scope.c_str(), sent.state.c_str());
        return VANTIX_ERROR;
    }
    VANTIX_LOG_INFO(site, level::kInfo,
                    "Refresh Token Success, OldAccessToken:%.5s***, NewAccessToken:%.5s***, ExpireTime:%s",
                    m_settings.accessToken.Copy().c_str(), info.access_token.c_str(), info.expires_in.c_str());
    m_settings.accessToken.Assign(info.access_token);
    m_settings.setTokenExpireTime(info.expires_in);
    newToken = std::move(info.access_token);
    return VANTIX_NOERROR;
}

int CredentialRefresh::RefreshSession(const std::string& refreshSessionId, std::string& newSession) {
    const CallSite site = VANTIX_CORE_HERE("RefreshSession");
    if (!refreshSessionId.empty()) {
        m_settings.refreshSessionId.Assign(refreshSessionId);
    }
    newSession.clear();  // only now: the host may use one text for both
    VANTIX_LOG_INFO(site, level::kInfo, "start RefreshSession");
    if (m_settings.permissionMode.Copy() != permission_mode::kB2C) {
        VANTIX_LOG_INFO(site, level::kInfo, "Not 4200 B2C Mode, do not need to use the following logic");
        return VANTIX_ERROR;
    }
    const ConsumerRoute server = m_routes.ToRenewSession();
    SessionInfo session{server.SessionId(), m_settings.refreshSessionId.Copy()};
    const std::string oldRefreshId = session.refreshSessionId;
    if (server.Address().empty() || oldRefreshId.empty()) {
        VANTIX_LOG_INFO(site, level::kInfo,
                        "Refresh Session, params invalid, CDomain:%s, SessionID:%s, RefreshSessionID:%s",
                        server.Address().c_str(), server.SessionId().c_str(), oldRefreshId.c_str());
        return VANTIX_ERROR;
    }
    const int result = RefreshSessionFromCServer(server, session);
    // Empty ids would overwrite the current ones.
    if (result != VANTIX_NOERROR || session.sessionId.empty()) {
        VANTIX_LOG_ERROR(site, level::kError, "Refresh Session Failed, Domain:%s, OldRefreshSessionID:%s",
                         server.Address().c_str(), oldRefreshId.c_str());
        return VANTIX_ERROR;
    }
    if (session.refreshSessionId.empty()) {
        session.refreshSessionId = oldRefreshId;
    }
    // The line speaks of a token, though this refreshes a session. The text is fixed.
    VANTIX_LOG_INFO(site, level::kInfo, "Refresh Token Success,  NewSession:%.5s***, RefreshSessionID:%s",
                    session.sessionId.c_str(), session.refreshSessionId.c_str());
    m_settings.sessionId.Assign(session.sessionId);
    m_settings.refreshSessionId.Assign(std::move(session.refreshSessionId));
    newSession = std::move(session.sessionId);
    return VANTIX_NOERROR;
}

}  // namespace vantix
