#pragma once

/// @file
/// Where a request goes and with which credential, decided in one look at the settings.
///
/// A route of each server family is a type of its own, and requests of a family take only theirs: a session id cannot
/// reach the platform, nor an access token the consumer servers. Only the core's `Routes` makes routes.

#include <string>
#include <utility>

namespace vantix {

/// To the open platform's requests. The address can be that of the consumer servers: they take some of the platform's
/// requests for devices that are shared with the account.
class PlatformRoute {
public:
    /// Scheme and host.
    const std::string& Address() const { return m_address; }
    /// The access token, or the per-device token that stands in for it.
    const std::string& AccessToken() const { return m_accessToken; }
    /// The host's app id.
    const std::string& AppKey() const { return m_appKey; }

private:
    friend class Routes;

    PlatformRoute(std::string address, std::string accessToken, std::string appKey)
        : m_address(std::move(address)), m_accessToken(std::move(accessToken)), m_appKey(std::move(appKey)) {}

    std::string m_address;
    std::string m_accessToken;
    std::string m_appKey;
};

/// To the consumer servers' requests.
class ConsumerRoute {
public:
    /// Scheme and host.
    const std::string& Address() const { return m_address; }
    const std::string& SessionId() const { return m_sessionId; }

private:
    friend class Routes;

    ConsumerRoute(std::string address, std::string sessionId)
        : m_address(std::move(address)), m_sessionId(std::move(sessionId)) {}

    std::string m_address;
    std::string m_sessionId;
};

/// To the authorisation service, which renews access tokens and needs none.
class AuthorizationRoute {
public:
    /// Scheme and host.
    const std::string& Address() const { return m_address; }
    /// The host's app id.
    const std::string& AppKey() const { return m_appKey; }

private:
    friend class Routes;

    AuthorizationRoute(std::string address, std::string appKey)
        : m_address(std::move(address)), m_appKey(std::move(appKey)) {}

    std::string m_address;
    std::string m_appKey;
};

}  // namespace vantix
