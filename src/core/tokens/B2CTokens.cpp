#include "core/tokens/B2CTokens.h"

#include <algorithm>
#include <utility>

#include "core/CoreSite.h"
#include "core/tokens/TokenText.h"

namespace vantix {
namespace {

constexpr json::Field<B2CToken> kMembers[] = {
    {"token", &B2CToken::token},
    {"deviceSerial", &B2CToken::deviceSerial},
    {"channelNo", &B2CToken::channelNo},
    {"isShared", &B2CToken::isShared},
};

std::string B2CKey(const std::string& serial, const std::string& channel) { return serial + "_" + channel; }

/// The entry of a key, or null and a line.
const B2CToken* Find(const CallSite& site, const B2CTokenMap& map, const std::string& key) {
    const auto found = map.find(key);
    if (found == map.end()) {
        VANTIX_LOG_ERROR(site, level::kError, "The key does not exist key = %s", key.c_str());
        return nullptr;
    }
    return &found->second;
}

}  // namespace

void B2CTokens::SetB2CTokens(const std::string& text) {
    const CallSite site = VANTIX_CORE_HERE("SetB2CTokens");
    auto tokens = std::make_shared<B2CTokenMap>(kTokenBuckets);
    const bool isRead = ReadTokenText<kMembers, B2CToken>(site, text, [&](B2CToken&& entry) {
        const std::string key = B2CKey(entry.deviceSerial, entry.channelNo);
        VANTIX_LOG_INFO(site, level::kTrace, "setB2CTokens key = %s isShared = %d", key.c_str(), entry.isShared);
        (*tokens)[key] = std::move(entry);
    });
    if (isRead) {
        const int count = static_cast<int>(tokens->size());
        m_mapB2CTokens.Assign(std::move(tokens));
        VANTIX_LOG_INFO(site, level::kInfo, "m_mapB2CTokens size = %d ", count);
    }
}

std::string getB2CTokens(const B2CTokenMap& map, const std::string& serial, const std::string& ch) {
    const CallSite site = VANTIX_CORE_HERE("getB2CTokens");
    const std::string key = B2CKey(serial, ch);
    VANTIX_LOG_INFO(site, level::kInfo, "getB2CTokens key = %s ", key.c_str());
    const B2CToken* entry = Find(site, map, key);
    return entry == nullptr ? std::string() : entry->token;
}

bool isB2CSharedDevice(const B2CTokenMap& map, const std::string& serial, int ch) {
    const CallSite site = VANTIX_CORE_HERE("isB2CSharedDevice");
    const std::string key = B2CKey(serial, std::to_string(ch));
    VANTIX_LOG_INFO(site, level::kInfo, "isB2CSharedDevice key = %s ", key.c_str());
    const B2CToken* entry = Find(site, map, key);
    return entry != nullptr && entry->isShared != 0;
}

bool isB2CSharedDevice(const B2CTokenMap& map, const std::string& token, const std::string& accessToken,
                       const std::string& sharedAccessToken) {
    const CallSite site = VANTIX_CORE_HERE("isB2CSharedDevice");
    if (token == accessToken) {
        return false;
    }
    if (!sharedAccessToken.empty() && token == sharedAccessToken) {
        return true;
    }
    const auto found = std::find_if(map.begin(), map.end(), [&](const auto& row) { return row.second.token == token; });
    if (found == map.end()) {
        VANTIX_LOG_ERROR(site, level::kWarning,
                         "Unknown token provided, cannot determine if it's a shared device. Defaulting to false.");
        return false;
    }
    VANTIX_LOG_INFO(site, level::kDetail, "Token found in B2C map, isShared=%d", found->second.isShared);
    return found->second.isShared != 0;
}

}  // namespace vantix
