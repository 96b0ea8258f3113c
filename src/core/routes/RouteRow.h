#pragma once

/// @file
/// How an operation finds its route, as data.

#include <optional>
#include <string>

#include "core/tokens/TkTokens.h"

namespace vantix {

/// Which credential a platform request sends.
enum class Credential {
    None,
    AccessToken,
    TkToken,       ///< In the small-permission mode the Tk token of a kind; the access token in every other.
    ChannelToken,  ///< The same, but in the B2C mode the channel's B2C token.
    GivenToken,    ///< The token that the host gave with the call.
};

/// Which server family gets the request in the B2C mode. In all other modes it is the platform.
enum class FamilyRule {
    Platform,   ///< Always the platform's requests.
    ByToken,    ///< The consumer servers for a token that is shared.
    ByChannel,  ///< The consumer servers for a channel that is shared; the platform's credential is needed even then.
};

/// Where the platform's requests go: to the platform, or, in the B2C mode, to the consumer servers.
enum class AddressRule {
    ByChannel,  ///< To the consumer servers for a channel that is shared.
    ByToken,    ///< To the consumer servers for a token that is shared.
};

/// Which tag the lines about the address have.
enum class Wording {
    OfGetDomain,  ///< That of `getDomain` or `getDomainByToken`.
    OfOperation,  ///< That of the operation.
};

/// How one operation finds its route.
struct RouteRow {
    Credential credential = Credential::AccessToken;
    int tkKind = 0;  ///< Of `Credential::TkToken` and `ChannelToken`.
    FamilyRule family = FamilyRule::Platform;
    AddressRule address = AddressRule::ByChannel;
    Wording wording = Wording::OfGetDomain;
};

/// Whether a row names a kind of Tk token if, and only if, its credential may be one.
constexpr bool IsConsistent(const RouteRow& row) {
    const bool mayBeTkToken = row.credential == Credential::TkToken || row.credential == Credential::ChannelToken;
    return mayBeTkToken == (row.tkKind != 0);
}

/// The channel of operations on a whole device.
inline constexpr int kFirstChannel = 1;

/// What an operation is about: a channel, a token, both, or the account as a whole.
struct Subject {
    std::string serial;
    int ch = kFirstChannel;
    std::optional<std::string> token;  ///< Given by the host with the call.

    static Subject OfAccount() { return {}; }
    static Subject OfChannel(const std::string& serial, int ch) { return {serial, ch, std::nullopt}; }
    static Subject OfToken(const std::string& token) { return {{}, kFirstChannel, token}; }
    static Subject OfBoth(const std::string& serial, int ch, const std::string& token) { return {serial, ch, token}; }
};

}  // namespace vantix
