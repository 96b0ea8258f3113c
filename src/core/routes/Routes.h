#pragma once

#include <string>
#include <utility>
#include <variant>

#include "base/Guarded.h"
#include "core/routes/Decision.h"
#include "core/routes/RouteRow.h"
#include "log/CallSite.h"
#include "requests/Route.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

class B2CTokens;
class Settings;
class TkTokens;

/// One of the two server families.
enum class ServerFamily { Platform, Consumer };

/// No route: the credential of this family is empty.
struct MissingCredential {
    ServerFamily family = ServerFamily::Platform;
};

/// The route of an operation that either family may respond to.
using AnyRoute = std::variant<MissingCredential, PlatformRoute, ConsumerRoute>;
/// The route of an operation that has the platform's form only.
using PlatformOnlyRoute = std::variant<MissingCredential, PlatformRoute>;

/// The one place that decides where a request goes and with which credential.
///
/// Each decision uses one look: mode, token maps and settings are read on first use, each at most once and under one
/// lock at a time. Family, address and credential all come from that look, so no credential reaches another family's
/// servers when the host changes a setting in between. A decision writes the lines of `getDomain` or
/// `getDomainByToken` once; without a credential it writes none and the caller refuses.
class Routes {
public:
    /// The parts outlive this one.
    Routes(const Settings& settings, const TkTokens& tkTokens, const B2CTokens& b2cTokens)
        : m_settings(settings), m_tkTokens(tkTokens), m_b2cTokens(b2cTokens) {}

    /// Of an operation with a form for each family.
    AnyRoute Decide(const CallSite& site, const RouteRow& row, const Subject& subject) const;
    /// Of an operation with the platform's form only; `row.family` is `Platform`.
    PlatformOnlyRoute DecidePlatform(const CallSite& site, const RouteRow& row, const Subject& subject) const;

    /// A decision for an operation that needs something of it before its route.
    Decision Begin(const RouteRow& row, const Subject& subject) const;
    /// The route of that decision.
    AnyRoute Decide(const CallSite& site, Decision& decision) const;
    PlatformOnlyRoute DecidePlatform(const CallSite& site, Decision& decision) const;

    /// To the consumer servers, whatever the mode: for the list of shared devices. Missing without a session.
    AnyRoute OfSession() const;
    /// To the consumer servers, to renew the session, which may be empty.
    ConsumerRoute ToRenewSession() const;
    /// To the authorisation service.
    AuthorizationRoute ToRenewToken() const;

    /// The domain for a channel, or for a token: the live value. Writes the lines of that name.
    const Guarded<std::string>& getDomain(const std::string& serial, int ch) const;
    const Guarded<std::string>& getDomainByToken(const std::string& token) const;

    /// Whether a token is that of a shared channel, whatever the mode.
    bool isB2CSharedDevice(const std::string& token) const;

private:
    Look NewLook() const;

    const Settings& m_settings;
    const TkTokens& m_tkTokens;
    const B2CTokens& m_b2cTokens;
};

}  // namespace vantix
