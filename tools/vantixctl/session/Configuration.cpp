#include "session/Configuration.h"

#include <vantix/IVantixDataCenter.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace vantix::ctl {
namespace {

constexpr std::array kSettings = {
    Setting{"b-domain", "bDomain", "", "URL", "base address of the platform", false,
            [](IVantixDataCenter& center, const std::string& value) { center.setDomain(value, {}); }},
    Setting{"c-domain", "cDomain", "", "URL", "base address of the consumer servers", false,
            [](IVantixDataCenter& center, const std::string& value) { center.setDomain({}, value); }},
    Setting{"app-id", "appId", "appKey", "ID", "the application's id", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setAppId(value); }},
    Setting{"access-token", "accessToken", "", "TOKEN", "the account's access token", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setAccessToken(value); }},
    Setting{"session-id", "sessionId", "", "ID", "the consumer session", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setSessionId(value); }},
    // There is no setter: RefreshSession stores its argument, and sends no request while the mode is not 2.
    Setting{"refresh-session-id", "refreshSessionId", "", "ID", "renews the consumer session", true,
            [](IVantixDataCenter& center, const std::string& value) {
                std::string none;
                center.setPermissionMode(0);
                center.RefreshSession(value, none);
            }},
    Setting{"shared-access-token", "sharedAccessToken", "", "TOKEN", "the token that marks shared devices", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setSharedAccessToken(value); }},
    Setting{"auth-addr", "authAddr", "", "URL", "the authorisation service, for renewing the access token", false,
            [](IVantixDataCenter& center, const std::string& value) { center.setAuthAddr(value); }},
    Setting{"refresh-token", "refreshToken", "", "TOKEN", "renews the access token", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setRefreshToken(value); }},
    Setting{"open-id", "openId", "", "ID", "the OpenID, for renewing the access token", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setOpenID(value); }},
    Setting{"scope", "scope", "", "TEXT", "the scope that a renewal asks for", false,
            [](IVantixDataCenter& center, const std::string& value) { center.setScope(value); }},
    Setting{"state", "state", "", "TEXT", "the state that a renewal sends", false,
            [](IVantixDataCenter& center, const std::string& value) { center.setState(value); }},
    Setting{"global-tk-token", "globalTkToken", "", "TOKEN", "the account-wide Tk token", true,
            [](IVantixDataCenter& center, const std::string& value) { center.setGlobalTkToken(value); }},
    Setting{"tk-tokens", "tkTokens", "", "JSON", "the Tk tokens of devices, an array", true,
            [](IVantixDataCenter& center, const std::string& value) { center.SetDeviceTkTokens(value); }},
    Setting{"b2c-tokens", "b2cTokens", "", "JSON", "the B2C tokens of devices, an array", true,
            [](IVantixDataCenter& center, const std::string& value) { center.SetB2CTokens(value); }},
    Setting{"mode", "mode", "permissionMode", "0|1|2", "0 ordinary, 1 small permissions, 2 consumer (B2C)", false,
            [](IVantixDataCenter& center, const std::string& value) {
                center.setPermissionMode(ToNumber(value, "--mode"));
            }},
    Setting{"cache-time", "cacheTime", "", "MINUTES", "age after which a cached detail counts as expired", false,
            [](IVantixDataCenter& center, const std::string& value) {
                center.setCacheTime(ToNumber(value, "--cache-time"));
            }},
};

std::string TextOf(const Json& value) { return value.is_string() ? value.get<std::string>() : Dumped(value, -1); }

const Json* Member(const Json& content, const Setting& setting) {
    for (const std::string_view key : {setting.key, setting.alias}) {
        const auto found = key.empty() ? content.end() : content.find(key);
        if (found != content.end() && !found->is_null()) {
            return &*found;
        }
    }
    return nullptr;
}

}  // namespace

std::span<const Setting> Settings() { return kSettings; }

const Setting* FindSetting(std::string_view option) {
    const auto* found = std::find_if(kSettings.begin(), kSettings.end(),
                                     [&](const Setting& setting) { return setting.option == option; });
    return found == kSettings.end() ? nullptr : found;
}

std::string EnvironmentName(std::string_view option) {
    std::string name = "VANTIXCTL_";
    for (const char letter : option) {
        const bool isLower = letter >= 'a' && letter <= 'z';
        name += letter == '-' ? '_' : static_cast<char>(isLower ? letter - 'a' + 'A' : letter);
    }
    return name;
}

const std::string& Configuration::Get(std::string_view option) const {
    static const std::string none;
    const auto found = m_values.find(option);
    return found == m_values.end() ? none : found->second;
}

void Configuration::TakeEnvironment() {
    for (const Setting& setting : kSettings) {
        const char* value = std::getenv(EnvironmentName(setting.option).c_str());
        if (value != nullptr && *value != '\0') {
            m_values.try_emplace(setting.option, value);
        }
    }
}

void Configuration::TakeJson(const Json& content) {
    const auto account = content.find("account");
    for (const Setting& setting : kSettings) {
        const Json* value = Member(content, setting);
        if (value == nullptr && account != content.end() && account->is_object()) {
            value = Member(*account, setting);
        }
        if (value != nullptr) {
            m_values.try_emplace(setting.option, TextOf(*value));
        }
    }
}

void Configuration::TakeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw UsageError("cannot read the credentials file " + path);
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const Json content = Parsed(text);
    if (!content.is_object()) {
        throw UsageError("the credentials file " + path + " holds no JSON object");
    }
    TakeJson(content);
}

void Configuration::Apply(IVantixDataCenter& center) const {
    for (const Setting& setting : kSettings) {
        const auto value = m_values.find(setting.option);
        if (value != m_values.end()) {
            setting.apply(center, value->second);
        }
    }
}

int ToNumber(const std::string& text, std::string_view what) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, problem] = std::from_chars(text.data(), end, number);
    if (problem != std::errc() || stopped != end || text.empty()) {
        throw UsageError(std::string(what) + " takes a number, not \"" + text + "\"");
    }
    return number;
}

}  // namespace vantix::ctl
