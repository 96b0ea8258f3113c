#pragma once

#include <string>
#include <utility>
#include <variant>

#include "core/routes/Routes.h"
#include "log/CallSite.h"

namespace vantix {

class CredentialRefresh;

/// The outcome of one attempt of an operation.
struct Outcome {
    int result = VANTIX_ERROR;
    ServerFamily family = ServerFamily::Platform;
    bool isCredentialMissing = false;  ///< Nothing was sent.
};

/// Why an attempt is made.
enum class AttemptReason {
    First,
    Renewed,    ///< The credential had expired and is renewed now.
    Transient,  ///< The server had a transient failure.
};

/// One attempt of an operation.
struct Attempt {
    Subject subject;  ///< Once the access token is renewed, its token is the new one.
    AttemptReason reason = AttemptReason::First;
};

/// When an operation is repeated, as data.
struct RepeatRules {
    bool renews = true;  ///< One renewal of an expired credential, and one repeat.
    /// Whether the code of an expired access token counts from the consumer servers too.
    bool tokenCodeFromAnyFamily = false;
    /// Repeats after a transient failure; counted anew after a renewal.
    int transientRepeats = 0;
};

/// Sends a request along its route: calls `toPlatform` or `toConsumer` with it and returns the outcome.
template <class ToPlatform, class ToConsumer>
Outcome SendAlong(const AnyRoute& route, ToPlatform toPlatform, ToConsumer toConsumer) {
    if (const auto* platform = std::get_if<PlatformRoute>(&route)) {
        return {toPlatform(*platform), ServerFamily::Platform, false};
    }
    if (const auto* consumer = std::get_if<ConsumerRoute>(&route)) {
        return {toConsumer(*consumer), ServerFamily::Consumer, false};
    }
    return {VANTIX_ERROR, std::get<MissingCredential>(route).family, true};
}
template <class ToPlatform>
Outcome SendAlong(const PlatformOnlyRoute& route, ToPlatform toPlatform) {
    if (const auto* platform = std::get_if<PlatformRoute>(&route)) {
        return {toPlatform(*platform), ServerFamily::Platform, false};
    }
    return {VANTIX_ERROR, std::get<MissingCredential>(route).family, true};
}

/// Refuses an operation whose credential is empty: writes a line, sets the calling thread's last error, returns -1.
int RefuseWithoutCredential(const CallSite& site);

/// The one policy of repeats: renew an expired credential once and repeat once; repeat a limited number of times after
/// transient failures. An empty session counts as an expired one.
class Renewal {
public:
    explicit Renewal(CredentialRefresh& refresh) : m_refresh(refresh) {}

    /// Runs an operation, a callable from an `Attempt` to its `Outcome`, until the rules ask for no further attempt.
    /// `retried` forbids the renewal. Returns the last result; -1 and the line when a credential is missing.
    template <class Operation>
    int Run(const CallSite& site, const RepeatRules& rules, bool retried, Subject subject, Operation operation) {
        Attempt attempt{std::move(subject), AttemptReason::First};
        RepeatRules left = rules;
        left.renews = rules.renews && !retried;
        for (;;) {
            const Outcome outcome = operation(std::as_const(attempt));
            if (!PrepareRepeat(outcome, rules, left, attempt)) {
                return outcome.isCredentialMissing ? RefuseWithoutCredential(site) : outcome.result;
            }
        }
    }

private:
    /// Renews what has expired, if the rules left allow it; false when the outcome stands.
    bool PrepareRepeat(const Outcome& outcome, const RepeatRules& rules, RepeatRules& left, Attempt& attempt);
    bool RenewToken(Attempt& attempt);
    bool RenewSession();

    CredentialRefresh& m_refresh;
};

}  // namespace vantix
