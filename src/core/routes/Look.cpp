#include "core/routes/Look.h"

namespace vantix {

const B2CTokenMap& Look::Map() {
    if (!m_map) {
        m_map = m_b2cTokens.Current();
    }
    return *m_map;
}

std::optional<std::string> Look::OwnCredentialOf(const RouteRow& row, const Subject& subject) {
    switch (row.credential) {
        case Credential::None: return std::string();
        case Credential::GivenToken: return subject.token.value_or(std::string());
        case Credential::ChannelToken:
            if (IsB2C()) {
                return ChannelToken(subject);
            }
            [[fallthrough]];
        case Credential::TkToken:
            if (Mode() == permission_mode::kSmall) {
                const std::string global = row.tkKind == tk::kGlobal ? m_settings.globalTkToken.Copy() : std::string();
                return m_tkTokens.getDeviceTkTokens(row.tkKind, subject.serial, subject.ch, global);
            }
            break;
        case Credential::AccessToken: break;
    }
    return std::nullopt;
}

std::string Look::ChannelToken(const Subject& subject) {
    if (!IsB2C()) {
        return {};
    }
    return getB2CTokens(Map(), subject.serial, std::to_string(subject.ch));
}

bool Look::IsSharedChannel(const std::string& serial, int ch) {
    return IsB2C() && isB2CSharedDevice(Map(), serial, ch);
}

bool Look::IsSharedInMap(const std::string& token) {
    // Read one after the other: as arguments they would be read in an order of the compiler's choice.
    const std::string& accessToken = AccessToken();
    const std::string sharedAccessToken = m_settings.sharedAccessToken.Copy();
    return isB2CSharedDevice(Map(), token, accessToken, sharedAccessToken);
}

}  // namespace vantix
