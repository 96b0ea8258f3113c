#include "core/detail/DetailCaches.h"

#include <utility>

#include "core/CoreSite.h"
#include "core/detail/ChannelKey.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// Copies a stored record out as one that came from a cache, when its release is served.
int Serve(const DevDetailInfo& stored, DevDetailInfo& detail) {
    if (!IsServedRelease(stored)) {
        return VANTIX_DEV_RELEASE_MISMATCH;
    }
    detail = stored;
    MarkFromCache(detail);
    return VANTIX_NOERROR;
}

bool IsSerialGiven(const CallSite& site, const std::string& serial) {
    if (serial.empty()) {
        VANTIX_LOG_ERROR(site, level::kError, "strSerial invalid, Serial:%s", serial.c_str());
    }
    return !serial.empty();
}

}  // namespace

bool IsServedRelease(const BelongDevInfo& device) { return device.releaseVersion == "VERSION_17"; }

void MarkFromCache(DevDetailInfo& detail) {
    detail.iRequestCost = 0;
    detail.isFromCache = true;
}

int DetailCaches::getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                  DevDetailInfo& detail) const {
    const CallSite site = VANTIX_CORE_HERE("getDevInfoCache");
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    if (!m_mapDevDetailInfo.CopyOut(key, channelInfo)) {
        VANTIX_LOG_INFO(site, level::kInfo, "m_mapDevDetailInfo not exist key = %s", key.c_str());
        return VANTIX_ERROR;
    }
    const int result = m_mapDeviceInfoCache.Read<int>(
        key, VANTIX_ERROR, [&](const DevDetailInfo& stored) { return Serve(stored, detail); });
    if (result == VANTIX_ERROR) {
        VANTIX_LOG_INFO(site, level::kInfo, "m_mapDeviceInfoCache not exist key = %s", key.c_str());
    }
    return result;
}

int DetailCaches::getDevDetailInfoFromLocal(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                            DevDetailInfo& detail) const {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    if (!m_mapDevDetailInfo.CopyOut(key, channelInfo)) {
        VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDevDetailInfoFromLocal"), level::kInfo,
                        "m_mapDevDetailInfo not exist key = %s", key.c_str());
        return VANTIX_ERROR;
    }
    return m_mapSerialDetailInfo.Read<int>(channelInfo.deviceSerial, VANTIX_ERROR,
                                           [&](const DevDetailInfo& stored) { return Serve(stored, detail); });
}

int DetailCaches::getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) const {
    return m_mapDeviceInfoCache.CopyOut(getDevDetailInfoMapKey(serial, ch), detail) ? VANTIX_NOERROR : VANTIX_ERROR;
}

bool DetailCaches::CopyChannel(const std::string& serial, int ch, DevChannelInfo& channelInfo) const {
    return m_mapDevDetailInfo.CopyOut(getDevDetailInfoMapKey(serial, ch), channelInfo);
}

std::optional<DevDetailInfo> DetailCaches::FindDevice(const std::string& serial) const {
    return m_mapSerialDetailInfo.Find(serial);
}

int DetailCaches::SetDevInfoCache(const std::string& serial, int ch) {
    const CallSite site = VANTIX_CORE_HERE("SetDevInfoCache");
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    if (!m_mapDeviceInfoCache.Edit(key, [](DevDetailInfo& stored) { stored.isUpdate = true; })) {
        VANTIX_LOG_INFO(site, level::kInfo, "key not exist strKey= %s", key.c_str());
        return VANTIX_ERROR;
    }
    VANTIX_LOG_INFO(site, level::kInfo, "Update status successful strKey= %s", key.c_str());
    return VANTIX_NOERROR;
}

int DetailCaches::ClearDeviceInfoCache() {
    m_mapDeviceInfoCache.Clear();
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("ClearDeviceInfoCache"), level::kInfo, "m_mapDeviceInfoCache clear");
    return VANTIX_NOERROR;
}

int DetailCaches::getChannelCacheValue(const std::string& serial, int ch) const {
    return m_mapDevDetailInfo.Read<int>(getDevDetailInfoMapKey(serial, ch), VANTIX_ERROR,
                                        [](const DevChannelInfo& stored) { return stored.iIsTrust; });
}

void DetailCaches::setChannelCacheValue(const std::string& serial, int ch, int value) {
    m_mapDevDetailInfo.Edit(getDevDetailInfoMapKey(serial, ch),
                            [&](DevChannelInfo& stored) { stored.iIsTrust = value; });
}

bool DetailCaches::IsSupportSeekPlayback(const std::string& serial) const {
    return IsSerialGiven(VANTIX_CORE_HERE("IsSupportSeekPlayback"), serial) &&
           m_mapSerialDetailInfo.Read(serial, false,
                                      [](const DevDetailInfo& stored) { return stored.support_seek_playback == 1; });
}

bool DetailCaches::IsSupportPlaybackSpeed(const std::string& serial, int speed) const {
    constexpr unsigned kSmallSpeeds = 0x2AC;  // 2, 3, 5, 7 and 9
    const bool isSmall = speed >= 0 && speed <= 9 && ((kSmallSpeeds >> static_cast<unsigned>(speed)) & 1U) != 0;
    return IsSerialGiven(VANTIX_CORE_HERE("IsSupportPlaybackSpeed"), serial) &&
           m_mapSerialDetailInfo.Read(serial, false, [&](const DevDetailInfo& stored) {
               // A small speed must be exactly 1, any other must not be 0.
               return isSmall ? stored.support_device_playback_small_speed == 1 : stored.support_quickplay_way != 0;
           });
}

void DetailCaches::Store(const std::string& serial, int ch, const DevChannelInfo& channelInfo,
                         const DevDetailInfo& detail, const std::optional<BelongDevInfo>& parent) {
    const std::string key = getDevDetailInfoMapKey(serial, ch);
    // Everything that needs memory is made before the first cache changes. Only the channels' table may still have to
    // grow, so it comes first.
    auto channelEntry = GuardedMap<ChannelMap>::EntryFor(key, channelInfo);
    auto deviceEntry = GuardedMap<DeviceMap>::EntryFor(key, detail);
    auto serialEntry = GuardedMap<DeviceMap>::EntryFor(detail.deviceSerial, detail);
    DevDetailInfo parentRecord;
    if (parent) {
        static_cast<BelongDevInfo&>(parentRecord) = *parent;
    }
    auto parentEntry = GuardedMap<DeviceMap>::EntryFor(detail.belongSerial, std::move(parentRecord));

    m_mapDevDetailInfo.Put(std::move(channelEntry));
    m_mapDeviceInfoCache.Put(std::move(deviceEntry));
    m_mapSerialDetailInfo.Put(std::move(serialEntry));
    if (detail.belongSerial.empty()) {
        return;
    }
    if (parent) {
        m_mapSerialDetailInfo.Put(std::move(parentEntry));
    } else {
        m_mapSerialDetailInfo.PutIfAbsent(std::move(parentEntry));  // the device then comes back as itself
    }
}

}  // namespace vantix
