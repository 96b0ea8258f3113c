#pragma once

#include <string>
#include <utility>
#include <variant>

#include "core/routes/Routes.h"
#include "log/CallSite.h"

namespace vantix {

class CredentialRefresh;

/// What one attempt of an operation came to.
struct Outcome {
    int result = VANTIX_ERROR;
    ServerFamily family = ServerFamily::Platform;
    bool isCredentialMissing = false;  ///< Nothing was sent.
};

/// Why an attempt is made.
enum class AttemptReason {
    First,
    Renewed,    ///< The credential had expired and is renewed now.
    Transient,  ///< The server failed for the moment.
};

/// One attempt of an operation.
struct Attempt {
    Subject subject;  ///< With a renewed access token as its token.
    AttemptReason reason = AttemptReason::First;
};

/// What makes an operation repeat, as data.
struct RepeatRules {
    bool renews = true;  ///< One renewal of an expired credential, and one repeat.
    /// Whether the code of an expired access token counts from the consumer servers too.
    bool tokenCodeFromAnyFamily = false;
    int transientRepeats =
        0;  ///< How often, with each credential, it is repeated while the server fails for the moment.
};

/// Sends a request along its route: calls `toPlatform` or `toConsumer` with it and returns what came of it.
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

/// Refuses an operation whose credential is empty: writes the line and sets the calling thread's last error. Returns
/// -1.
int RefuseWithoutCredential(const CallSite& site);

/// The one policy of repeats: renew an expired credential once and repeat once; repeat while the server fails for the
/// moment, at most so often. An empty session counts as an expired one.
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
