#pragma once

#include <memory>
#include <optional>
#include <string>

#include "core/routes/RouteRow.h"
#include "core/settings/Settings.h"
#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"

namespace vantix {

/// One look at mode, settings and token maps: each is read on first use, and later uses get the same value, also when
/// the host changes a setting in between. The lines of a token map are written when it is searched.
class Look {
public:
    Look(const Settings& settings, const TkTokens& tkTokens, const B2CTokens& b2cTokens)
        : m_settings(settings), m_tkTokens(tkTokens), m_b2cTokens(b2cTokens) {}

    int Mode() { return Once(m_mode, m_settings.permissionMode); }
    bool IsB2C() { return Mode() == permission_mode::kB2C; }
    const std::string& AccessToken() { return Once(m_accessToken, m_settings.accessToken); }
    /// The same handed out: nothing is asked of the look afterwards.
    std::string TakeAccessToken() && {
        AccessToken();
        return *std::move(m_accessToken);
    }

    /// The credential of a platform request; nothing stands for the access token itself.
    std::optional<std::string> OwnCredentialOf(const RouteRow& row, const Subject& subject);
    /// A channel's B2C token in the B2C mode, else empty.
    std::string ChannelToken(const Subject& subject);
    /// Whether the consumer servers respond for a channel, or for a token.
    bool IsSharedChannel(const std::string& serial, int ch);
    bool IsSharedToken(const std::string& token) { return IsB2C() && IsSharedInMap(token); }
    /// The same whatever the mode.
    bool IsSharedInMap(const std::string& token);

private:
    template <class Value>
    const Value& Once(std::optional<Value>& seen, const Guarded<Value>& source) {
        if (!seen) {
            seen = source.Copy();
        }
        return *seen;
    }
    const B2CTokenMap& Map();

    const Settings& m_settings;
    const TkTokens& m_tkTokens;
    const B2CTokens& m_b2cTokens;
    std::optional<int> m_mode;
    std::optional<std::string> m_accessToken;
    std::shared_ptr<const B2CTokenMap> m_map;
};

}  // namespace vantix
