#include "core/renewal/Renewal.h"

#include "base/LastError.h"
#include "core/renewal/CredentialRefresh.h"
#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// A transient failure of the platform.
bool IsTransient(int result) { return result == VANTIX_PLATFORM_CODE_49999 || result == VANTIX_PLATFORM_CODE_50000; }

/// The code 401 of the consumer servers, bare or as that of a parser.
bool IsSessionExpired(const Outcome& outcome) {
    constexpr int kSessionExpired = 401;
    return outcome.family == ServerFamily::Consumer &&
           (outcome.isCredentialMissing || outcome.result == kSessionExpired ||
            outcome.result == VANTIX_PLATFORM_ERROR_BASE + kSessionExpired);
}

bool IsTokenExpired(const Outcome& outcome, const RepeatRules& rules) {
    return outcome.result == VANTIX_ACCESS_TOKEN_EXPIRED &&
           (outcome.family == ServerFamily::Platform || rules.tokenCodeFromAnyFamily);
}

}  // namespace

int RefuseWithoutCredential(const CallSite& site) {
    VANTIX_LOG_ERROR(site, level::kError, "get strToken error");
    SetThreadLastError(VANTIX_ERROR);
    return VANTIX_ERROR;
}

bool Renewal::PrepareRepeat(const Outcome& outcome, const RepeatRules& rules, RepeatRules& left, Attempt& attempt) {
    if (left.transientRepeats > 0 && IsTransient(outcome.result)) {
        --left.transientRepeats;
        attempt.reason = AttemptReason::Transient;
        return true;
    }
    if (!left.renews) {
        return false;
    }
    const bool isRenewed =
        IsTokenExpired(outcome, rules) ? RenewToken(attempt) : IsSessionExpired(outcome) && RenewSession();
    if (isRenewed) {
        left = rules;
        left.renews = false;
        attempt.reason = AttemptReason::Renewed;
    }
    return isRenewed;
}

bool Renewal::RenewToken(Attempt& attempt) {
    std::string token;
    m_refresh.RefreshToken(token);
    if (token.empty()) {
        return false;
    }
    attempt.subject.token = std::move(token);
    return true;
}

bool Renewal::RenewSession() {
    std::string session;
    m_refresh.RefreshSession({}, session);
    return !session.empty();
}

}  // namespace vantix
