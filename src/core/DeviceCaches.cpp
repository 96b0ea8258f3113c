// What the core remembers of devices and channels: reading, marking and emptying the three caches.

#include "core/DeviceCaches.h"

#include <cstdio>

#include "core/CVantixDataCenter.h"
#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr char kServedRelease[] = "VERSION_17";

/// Copies a served record out as one that came from a cache.
void ServeFromCache(const DevDetailInfo& stored, DevDetailInfo& detail) {
    detail = stored;
    detail.iRequestCost = 0;
    detail.isFromCache = true;
}

/// What a plain read yields for a stored record: only one release is served.
int Serve(const DevDetailInfo& stored, DevDetailInfo& detail) {
    if (stored.releaseVersion != kServedRelease) {
        return VANTIX_DEV_RELEASE_MISMATCH;
    }
    ServeFromCache(stored, detail);
    return VANTIX_NOERROR;
}

}  // namespace

std::string CVantixDataCenter::getDevDetailInfoMapKey(const std::string& serial, int ch) {
    constexpr size_t kLongestSerial = 128;
    if (serial.empty() || serial.size() > kLongestSerial) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "%s, Serial:%s Channel:%d", "设备序列号参数错误", serial.c_str(),
                         ch);
        return serial;
    }
    char key[256] = {};
    std::snprintf(key, sizeof(key), "%s_%d", serial.c_str(), ch);
    return key;
}

bool CVantixDataCenter::readChannel(const std::string& key, DevChannelInfo& channelInfo) {
    return m_mapDevDetailInfo.With([&](const ChannelMap& map) {
        const auto found = map.find(key);
        if (found == map.end()) {
            return false;
        }
        channelInfo = found->second;
        return true;
    });
}

int CVantixDataCenter::getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                       DevDetailInfo& detail) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    if (!readChannel(key, channelInfo)) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDevDetailInfo not exist key = %s", key.c_str());
        return VANTIX_ERROR;
    }
    const int result = m_mapDeviceInfoCache.With([&](const DeviceMap& map) -> int {
        const auto found = map.find(key);
        return found == map.end() ? VANTIX_ERROR : Serve(found->second, detail);
    });
    if (result == VANTIX_ERROR) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDeviceInfoCache not exist key = %s", key.c_str());
    }
    return result;
}

int CVantixDataCenter::getDevDetailInfoFromLocal(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                                 DevDetailInfo& detail) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    if (!readChannel(key, channelInfo)) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDevDetailInfo not exist key = %s", key.c_str());
        return VANTIX_ERROR;
    }
    return m_mapSerialDetailInfo.With([&](const DeviceMap& map) -> int {
        const auto found = map.find(channelInfo.deviceSerial);
        return found == map.end() ? VANTIX_ERROR : Serve(found->second, detail);
    });
}

int CVantixDataCenter::getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    return m_mapDeviceInfoCache.With([&](const DeviceMap& map) -> int {
        const auto found = map.find(key);
        if (found == map.end()) {
            return VANTIX_ERROR;
        }
        detail = found->second;
        return VANTIX_NOERROR;
    });
}

int CVantixDataCenter::SetDevInfoCache(const std::string& serial, int ch) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    const bool isThere = m_mapDeviceInfoCache.With([&](DeviceMap& map) {
        const auto found = map.find(key);
        if (found == map.end()) {
            return false;
        }
        found->second.isUpdate = true;
        return true;
    });
    if (!isThere) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "key not exist strKey= %s", key.c_str());
        return VANTIX_ERROR;
    }
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Update status successful strKey= %s", key.c_str());
    return VANTIX_NOERROR;
}

int CVantixDataCenter::ClearDeviceInfoCache() {
    m_mapDeviceInfoCache.Assign({});
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "m_mapDeviceInfoCache clear");
    return VANTIX_NOERROR;
}

int CVantixDataCenter::ClearAllCache() {
    m_p2pUserInfo.Invalidate();
    m_serverInfo.Invalidate();
    m_mapDevDetailInfo.Assign({});
    m_mapSerialDetailInfo.Assign({});
    m_mapP2PDevInfo.Assign({});
    return ClearDeviceInfoCache();
}

int CVantixDataCenter::getChannelCacheValue(const std::string& serial, int ch) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    return m_mapDevDetailInfo.With([&](const ChannelMap& map) -> int {
        const auto found = map.find(key);
        return found == map.end() ? VANTIX_ERROR : found->second.iIsTrust;
    });
}

void CVantixDataCenter::setChannelCacheValue(const std::string& serial, int ch, int value) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    m_mapDevDetailInfo.With([&](ChannelMap& map) {
        if (const auto found = map.find(key); found != map.end()) {
            found->second.iIsTrust = value;
        }
    });
}

bool CVantixDataCenter::supportsPlayback(const CallSite& site, const std::string& serial,
                                         const std::function<bool(const DevDetailInfo&)>& test) {
    if (serial.empty()) {
        VANTIX_LOG_ERROR(site, level::kError, "strSerial invalid, Serial:%s", serial.c_str());
        return false;
    }
    return m_mapSerialDetailInfo.With([&](const DeviceMap& map) {
        const auto found = map.find(serial);
        return found != map.end() && test(found->second);
    });
}

int CVantixDataCenter::IsSupportSeekPlayback(const std::string& serial) {
    return supportsPlayback(VANTIX_HERE, serial,
                            [](const DevDetailInfo& device) { return device.support_seek_playback == 1; });
}

int CVantixDataCenter::IsSupportPlaybackSpeed(const std::string& serial, int speed) {
    constexpr unsigned kSmallSpeeds = 0x2AC;  // 2, 3, 5, 7 and 9
    const bool isSmall = speed >= 0 && speed <= 9 && ((kSmallSpeeds >> static_cast<unsigned>(speed)) & 1U) != 0;
    return supportsPlayback(VANTIX_HERE, serial, [&](const DevDetailInfo& device) {
        // A small speed must be exactly 1, any other one merely not 0.
        return isSmall ? device.support_device_playback_small_speed == 1 : device.support_quickplay_way != 0;
    });
}

}  // namespace vantix
