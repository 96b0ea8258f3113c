#pragma once

#include <optional>
#include <string>
#include <utility>

#include "core/routes/Look.h"
#include "core/routes/RouteRow.h"
#include "log/CallSite.h"

namespace vantix {

/// Credential, server family and address of one operation, all from one look. Each is found on first use and does not
/// change afterwards. Row and subject outlive it.
class Decision {
public:
    Decision(Look look, const RouteRow& row, const Subject& subject)
        : m_look(std::move(look)), m_row(row), m_subject(subject) {}

    int Mode() { return m_look.Mode(); }

    /// The credential of a platform request; empty when there is none.
    const std::string& PlatformCredential();
    /// The same handed out: nothing is asked of the decision afterwards.
    std::string TakePlatformCredential() &&;
    /// Whether the platform needs a credential and there is none.
    bool IsCredentialMissing() { return m_row.credential != Credential::None && PlatformCredential().empty(); }
    /// Whether consumer requests of this row need only the session, not the platform's credential.
    bool IsSessionEnough() const { return m_row.family == FamilyRule::ByToken; }
    /// Whether the host gave an empty token, which counts as none.
    bool IsGivenTokenEmpty() const { return m_subject.token && m_subject.token->empty(); }

    /// Whether the consumer servers' requests are the ones to send.
    bool IsConsumer();
    /// Whether the platform's requests go to the consumer servers. A look-up by token writes its first line here.
    bool FindAddress();
    /// Writes the other lines about the address, once for the look.
    void LogAddress(const CallSite& site, bool isConsumer);

private:
    const std::string& DecidingToken();
    bool IsSharedToken();
    bool IsSharedChannel();
    void LogTokenLookup();

    Look m_look;
    const RouteRow& m_row;
    const Subject& m_subject;
    bool m_isLookupLogged = false;
    bool m_isCredentialFound = false;
    std::optional<std::string> m_ownCredential;  ///< Once found: nothing stands for the look's access token.
    std::optional<std::string> m_decidingToken;
    std::optional<bool> m_isSharedToken;
    std::optional<bool> m_isSharedChannel;
};

/// Writes which domain a decision chose.
void LogDomain(const CallSite& site, bool isConsumer, const char* platformText);
/// Writes for which token a domain is looked up.
void LogTokenLookup(const std::string& token);

inline constexpr char kPlatformByChannel[] = "Returning B domain";
inline constexpr char kPlatformByToken[] = "Returning B domain not a shared device";

}  // namespace vantix
