#pragma once

#include <string>

namespace vantix {

class Routes;
class Settings;

/// Renews what has expired: the platform's access token and the consumer servers' session. Nothing is locked while a
/// request is under way; a failed renewal leaves every credential as it was. Lines bear the core's tags.
class CredentialRefresh {
public:
    /// The parts outlive this one.
    CredentialRefresh(Settings& settings, const Routes& routes) : m_settings(settings), m_routes(routes) {}

    /// Renews the access token and stores it; `newToken` is the new one, or empty. 0 or -1.
    int RefreshToken(std::string& newToken);

    /// Renews the session and stores it; `newSession` is the new one, or empty. A refresh session id that is not empty
    /// is stored first. 0 or -1.
    int RefreshSession(const std::string& refreshSessionId, std::string& newSession);

private:
    Settings& m_settings;
    const Routes& m_routes;
};

}  // namespace vantix
