#include "core/tokens/TkTokens.h"

#include <utility>

#include "core/CoreSite.h"
#include "core/tokens/TokenText.h"

namespace vantix {
namespace {

constexpr json::Field<DeviceTkTokens> kMembers[] = {
    {"deviceTkToken", &DeviceTkTokens::deviceTkToken},   {"deviceVideoTkToken", &DeviceTkTokens::deviceVideoTkToken},
    {"previewTkToken", &DeviceTkTokens::previewTkToken}, {"playTackTkToken", &DeviceTkTokens::playTackTkToken},
    {"talkTkToken", &DeviceTkTokens::talkTkToken},       {"deviceSerial", &DeviceTkTokens::deviceSerial},
    {"channelNo", &DeviceTkTokens::channelNo},
};

struct Use {
    int tkType;
    std::string DeviceTkTokens::*token;
};
constexpr Use kUses[] = {
    {tk::kDevice, &DeviceTkTokens::deviceTkToken},   {tk::kVideo, &DeviceTkTokens::deviceVideoTkToken},
    {tk::kPreview, &DeviceTkTokens::previewTkToken}, {tk::kPlayback, &DeviceTkTokens::playTackTkToken},
    {tk::kTalk, &DeviceTkTokens::talkTkToken},
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

void TkTokens::SetDeviceTkTokens(const std::string& szDeviceTkTokens) {
    const CallSite site = VANTIX_CORE_HERE("SetDeviceTkTokens");
    auto tokens = std::make_shared<DeviceTkTokenMap>(kTokenBuckets);
    const bool isRead = ReadTokenText<kMembers, DeviceTkTokens>(site, szDeviceTkTokens, [&](DeviceTkTokens&& entry) {
        const std::string key = entry.deviceSerial + entry.channelNo;
        VANTIX_LOG_INFO(site, level::kTrace, "SetDeviceTkTokens key = %s ", key.c_str());
        (*tokens)[key] = std::move(entry);
    });
    if (isRead) {
        const int count = static_cast<int>(tokens->size());
        m_mapDeviceTkTokens.Assign(std::move(tokens));
        VANTIX_LOG_INFO(site, level::kInfo, "m_mapDeviceTkTokens size = %d ", count);
    }
}

std::string TkTokens::getDeviceTkTokens(int tkType, const std::string& strSerial, int iChannelNo,
                                        const std::string& globalToken) const {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDeviceTkTokens"), level::kTrace, "tkType = %d strSerial = %s iChannelNo = %d",
                    tkType, strSerial.c_str(), iChannelNo);
    if (tkType == tk::kGlobal) {
        return globalToken;
    }
    return Find(tkType, strSerial + std::to_string(iChannelNo));
}

std::string TkTokens::getDeviceTkTokens(int tkType, const std::string& strSerial, const std::string& strChannelNo,
                                        const std::string& globalToken) const {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDeviceTkTokens"), level::kTrace,
                    "tkType = %d strSerial = %s strChannelNo = %s", tkType, strSerial.c_str(), strChannelNo.c_str());
    if (tkType == tk::kGlobal) {
        return globalToken;
    }
    return Find(tkType, strSerial + strChannelNo);
}

std::string TkTokens::Find(int tkType, const std::string& key) const {
    const CallSite site = VANTIX_CORE_HERE("getDeviceTkTokens");
    VANTIX_LOG_INFO(site, level::kTrace, "getDeviceTkTokens key = %s ", key.c_str());
    const auto tokens = m_mapDeviceTkTokens.Copy();
    const auto found = tokens->find(key);
    if (found == tokens->end()) {
        VANTIX_LOG_ERROR(site, level::kError, "The key does not exist key = %s", key.c_str());
        return {};
    }
    return TokenOfUse(found->second, tkType);
}

}  // namespace vantix
