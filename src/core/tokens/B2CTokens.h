#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "base/Guarded.h"

namespace vantix {

/// The B2C token of one channel, and whether the channel is shared with the account.
struct B2CToken {
    std::string token;
    std::string deviceSerial;
    std::string channelNo;
    int32_t isShared = 0;
};

/// By serial, "_" and channel.
using B2CTokenMap = std::unordered_map<std::string, B2CToken>;

// Look-ups in one map; their lines bear the core's tags.

/// The token of a channel; empty when the map does not have the channel.
std::string getB2CTokens(const B2CTokenMap& map, const std::string& serial, const std::string& ch);
/// Whether a channel is shared with the account.
bool isB2CSharedDevice(const B2CTokenMap& map, const std::string& serial, int ch);
/// Whether a token is that of a shared channel. The account's own token never is, and the shared access token, unless
/// it is empty, always is.
bool isB2CSharedDevice(const B2CTokenMap& map, const std::string& token, const std::string& accessToken,
                       const std::string& sharedAccessToken);

/// The B2C tokens that the host sets for its channels. A new map replaces the old one as a whole; a reader can look
/// several things up in the current one.
class B2CTokens {
public:
    /// Replaces the tokens by those of a JSON array; a text that is not JSON leaves the old ones.
    void SetB2CTokens(const std::string& text);

    // The same look-ups in the current map.
    std::string getB2CTokens(const std::string& serial, const std::string& ch) const {
        return vantix::getB2CTokens(*Current(), serial, ch);
    }
    bool isB2CSharedDevice(const std::string& serial, int ch) const {
        return vantix::isB2CSharedDevice(*Current(), serial, ch);
    }

    /// The current map.
    std::shared_ptr<const B2CTokenMap> Current() const { return m_mapB2CTokens.Copy(); }

private:
    Guarded<std::shared_ptr<const B2CTokenMap>> m_mapB2CTokens{std::make_shared<const B2CTokenMap>()};
};

}  // namespace vantix
