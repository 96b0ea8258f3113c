// The Tk tokens that the host hands in: five for each channel, and one for the account.

#include "core/CVantixDataCenter.h"
#include "json/Fields.h"
#include "json/Json11Reader.h"
#include "log/Logger.h"

namespace vantix {
namespace {

constexpr json::Field<DeviceTkTokens> kMembers[] = {
    {"deviceTkToken", &DeviceTkTokens::deviceTkToken},   {"deviceVideoTkToken", &DeviceTkTokens::deviceVideoTkToken},
    {"previewTkToken", &DeviceTkTokens::previewTkToken}, {"playTackTkToken", &DeviceTkTokens::playTackTkToken},
    {"talkTkToken", &DeviceTkTokens::talkTkToken},       {"deviceSerial", &DeviceTkTokens::deviceSerial},
    {"channelNo", &DeviceTkTokens::channelNo},
};

constexpr int kGlobalTkType = 1;

struct Use {
    int tkType;
    std::string DeviceTkTokens::*token;
};
constexpr Use kUses[] = {
    {2, &DeviceTkTokens::deviceTkToken},  {3, &DeviceTkTokens::deviceVideoTkToken},
    {4, &DeviceTkTokens::previewTkToken}, {5, &DeviceTkTokens::playTackTkToken},
    {6, &DeviceTkTokens::talkTkToken},
};

std::string TokenOfUse(const DeviceTkTokens& tokens, int tkType) {
    for (const Use& use : kUses) {
        if (use.tkType == tkType) {
            return tokens.*use.token;
        }
    }
    return {};
}

}  // namespace

void CVantixDataCenter::SetDeviceTkTokens(const std::string& szDeviceTkTokens) {
    DeviceTkTokenMap tokens(8);
    json::Json11Document document;
    if (!document.Parse(szDeviceTkTokens)) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "szDeviceTkTokens parse error %s", document.Error().c_str());
        return;
    }
    for (size_t i = 0; i < document.Root().Size(); ++i) {
        DeviceTkTokens entry;
        json::ReadFields(document.Root().Element(i), kMembers, entry);
        const std::string key = entry.deviceSerial + entry.channelNo;
        VANTIX_LOG_INFO(VANTIX_HERE, level::kTrace, "SetDeviceTkTokens key = %s ", key.c_str());
        tokens[key] = std::move(entry);
    }
    const int count = static_cast<int>(tokens.size());
    m_mapDeviceTkTokens.Assign(std::move(tokens));
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDeviceTkTokens size = %d ", count);
}

std::string CVantixDataCenter::getDeviceTkTokens(int tkType, const std::string& strSerial, int iChannelNo) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kTrace, "tkType = %d strSerial = %s iChannelNo = %d", tkType, strSerial.c_str(),
                    iChannelNo);
    return tkToken(VANTIX_HERE, tkType, strSerial + std::to_string(iChannelNo));
}

std::string CVantixDataCenter::getDeviceTkTokens(int tkType, const std::string& strSerial,
                                                 const std::string& strChannelNo) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kTrace, "tkType = %d strSerial = %s strChannelNo = %s", tkType,
                    strSerial.c_str(), strChannelNo.c_str());
    return tkToken(VANTIX_HERE, tkType, strSerial + strChannelNo);
}

std::string CVantixDataCenter::tkToken(const CallSite& site, int tkType, const std::string& key) {
    if (tkType == kGlobalTkType) {
        return m_settings.globalTkToken.Copy();
    }
    VANTIX_LOG_INFO(site, level::kTrace, "getDeviceTkTokens key = %s ", key.c_str());
    const auto tokens = m_mapDeviceTkTokens.With([&](const DeviceTkTokenMap& map) -> std::optional<DeviceTkTokens> {
        const auto found = map.find(key);
        return found == map.end() ? std::nullopt : std::optional(found->second);
    });
    if (!tokens) {
        VANTIX_LOG_ERROR(site, level::kError, "The key does not exist key = %s", key.c_str());
        return {};
    }
    return TokenOfUse(*tokens, tkType);
}

void CVantixDataCenter::setGlobalTkToken(const std::string& token) {
    if (!token.empty()) {
        m_settings.globalTkToken.Assign(token);
    }
}

const std::string& CVantixDataCenter::getGlobalTkToken() { return m_settings.globalTkToken.Live(); }

}  // namespace vantix
