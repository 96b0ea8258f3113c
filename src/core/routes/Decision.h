#pragma once

#include <optional>
#include <string>

#include "core/routes/Look.h"
#include "core/routes/RouteRow.h"
#include "log/CallSite.h"

namespace vantix {

/// What one look says of one operation: its credential, the family that responds, and the address. Each is found out
/// when it is first asked for, and stays. Row and subject outlive it.
class Decision {
public:
    Decision(const Look& look, const RouteRow& row, const Subject& subject)
        : m_look(look), m_row(row), m_subject(subject) {}

    int Mode() { return m_look.Mode(); }

    /// What the platform is given.
    const std::string& PlatformCredential();
    /// Whether there is no credential for the platform although one is needed.
    bool IsCredentialMissing() { return m_row.credential != Credential::None && PlatformCredential().empty(); }
    /// Whether the consumer servers need no credential of the platform's.
    bool IsSessionEnough() const { return m_row.family == FamilyRule::ByToken; }
    /// Whether the host gave an empty token: that is no token at all.
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
    std::optional<std::string> m_credential;
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
