#pragma once

#include <span>
#include <string>
#include <vector>

#include "support/SimulatorClient.h"

namespace vantix::test {

/// A channel that calls ask for, with the device that it is connected through, if any.
struct Place {
    const char* serial;
    int ch;
    const char* parent;  ///< "" without one.
    int parentChannel;
    const char* alarm;  ///< An alarm of the account, of whatever device.
};
std::span<const Place> Places();

/// The one of them that another account shares.
inline constexpr char kSharedSerial[] = "S60000006";
/// Tokens of its channel: one that says "shared", and one that says "own".
inline constexpr char kSharedToken[] = "b2c.shared.S60000006-1";
inline constexpr char kOwnToken[] = "b2c.own.S60000006-1";

/// Texts that hosts set, several of a kind, all of which the cloud accepts at all times.
struct Account {
    std::string bDomain;
    std::string cDomain;
    std::string refreshToken;
    std::string openId;
    std::string refreshSessionId;
    std::string globalTkToken;
    std::vector<std::string> accessTokens{};
    std::vector<std::string> sessions{};
    std::vector<std::string> tkTokens{};   ///< Whole maps, as JSON.
    std::vector<std::string> b2cTokens{};  ///< The first one says "shared" of the shared channel, the second one "own".
    std::vector<std::string> appIds{};
    /// Everything in a list that only the host hands in and that no response has: the log never has it whole.
    std::vector<std::string> hostSecrets{};
};

/// Gives the cloud's account these credentials.
Account MakeAccount(const SimulatorClient& cloud);

}  // namespace vantix::test
