// The B2C tokens that the host hands in, and which devices they say are shared with the account.

#include "core/CVantixDataCenter.h"
#include "json/Fields.h"
#include "json/Json11Reader.h"
#include "log/Logger.h"

namespace vantix {
namespace {

constexpr json::Field<B2CToken> kMembers[] = {
    {"token", &B2CToken::token},
    {"deviceSerial", &B2CToken::deviceSerial},
    {"channelNo", &B2CToken::channelNo},
    {"isShared", &B2CToken::isShared},
};

std::string B2CKey(const std::string& serial, const std::string& channel) { return serial + "_" + channel; }

std::optional<B2CToken> Find(const Guarded<B2CTokenMap>& tokens, const std::string& key) {
    return tokens.With([&](const B2CTokenMap& map) -> std::optional<B2CToken> {
        const auto found = map.find(key);
        return found == map.end() ? std::nullopt : std::optional(found->second);
    });
}

}  // namespace

void CVantixDataCenter::SetB2CTokens(const std::string& text) {
    B2CTokenMap tokens(8);
    json::Json11Document document;
    if (!document.Parse(text)) {
        // The text names the other kind of tokens, and is kept so.
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "szDeviceTkTokens parse error %s", document.Error().c_str());
        return;
    }
    for (size_t i = 0; i < document.Root().Size(); ++i) {
        B2CToken entry;
        json::ReadFields(document.Root().Element(i), kMembers, entry);
        const std::string key = B2CKey(entry.deviceSerial, entry.channelNo);
        VANTIX_LOG_INFO(VANTIX_HERE, level::kTrace, "setB2CTokens key = %s isShared = %d", key.c_str(), entry.isShared);
        tokens[key] = std::move(entry);
    }
    const int count = static_cast<int>(tokens.size());
    m_mapB2CTokens.Assign(std::move(tokens));
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapB2CTokens size = %d ", count);
}

std::string CVantixDataCenter::getB2CTokens(const std::string& serial, int ch) {
    return getB2CTokens(serial, std::to_string(ch));
}

std::string CVantixDataCenter::getB2CTokens(const std::string& serial, const std::string& ch) {
    const std::string key = B2CKey(serial, ch);
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "getB2CTokens key = %s ", key.c_str());
    const auto entry = Find(m_mapB2CTokens, key);
    if (!entry) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "The key does not exist key = %s", key.c_str());
        return {};
    }
    return entry->token;
}

bool CVantixDataCenter::isB2CSharedDevice(const std::string& serial, int ch) {
    const std::string key = B2CKey(serial, std::to_string(ch));
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "isB2CSharedDevice key = %s ", key.c_str());
    const auto entry = Find(m_mapB2CTokens, key);
    if (!entry) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "The key does not exist key = %s", key.c_str());
        return false;
    }
    return entry->isShared != 0;
}

bool CVantixDataCenter::isB2CSharedDevice(const std::string& token) {
    const auto isToken = [&](const std::string& own) { return own == token; };
    if (m_settings.accessToken.With(isToken)) {
        return false;
    }
    if (m_settings.sharedAccessToken.With(isToken)) {
        return true;
    }
    const auto shared = m_mapB2CTokens.With([&](const B2CTokenMap& map) -> std::optional<int32_t> {
        for (const auto& [key, entry] : map) {
            if (entry.token == token) {
                return entry.isShared;
            }
        }
        return std::nullopt;
    });
    if (shared) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kDetail, "Token found in B2C map, isShared=%d", *shared);
        return *shared != 0;
    }
    VANTIX_LOG_ERROR(VANTIX_HERE, level::kWarning,
                     "Unknown token provided, cannot determine if it's a shared device. Defaulting to false.");
    return false;
}

void CVantixDataCenter::setSharedAccessToken(const std::string& token) { m_settings.sharedAccessToken.Assign(token); }

const std::string& CVantixDataCenter::getSharedAccessToken() { return m_settings.sharedAccessToken.Live(); }

}  // namespace vantix
