#include "core/detail/DetailCaches.h"

#include <utility>

#include "core/CoreSite.h"
#include "core/detail/ChannelKey.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// Copies a stored record out as one that came from a cache, when its release is served.
int Serve(const CachedDevice& stored, DevDetailInfo& detail) {
    if (!IsServedRelease(stored.Members())) {
        return VANTIX_DEV_RELEASE_MISMATCH;
    }
    stored.CopyTo(detail);
    MarkFromCache(detail);
    return VANTIX_NOERROR;
}

CacheKey KeyOf(const std::string& serial, int ch) { return CacheKey(getDevDetailInfoMapKey(serial, ch)); }

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
    const CacheKey key = KeyOf(serial, ch);
    if (!CopyChannelOf(key, channelInfo)) {
        VANTIX_LOG_INFO(site, level::kInfo, "m_mapDevDetailInfo not exist key = %s", key.Text().c_str());
        return VANTIX_ERROR;
    }
    const auto device = m_mapDeviceInfoCache.Find(key);
    if (!device) {
        VANTIX_LOG_INFO(site, level::kInfo, "m_mapDeviceInfoCache not exist key = %s", key.Text().c_str());
        return VANTIX_ERROR;
    }
    return Serve(*device, detail);
}

int DetailCaches::getDevDetailInfoFromLocal(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                            DevDetailInfo& detail) const {
    const CacheKey key = KeyOf(serial, ch);
    if (!CopyChannelOf(key, channelInfo)) {
        VANTIX_LOG_INFO(VANTIX_CORE_HERE("getDevDetailInfoFromLocal"), level::kInfo,
                        "m_mapDevDetailInfo not exist key = %s", key.Text().c_str());
        return VANTIX_ERROR;
    }
    const auto device = m_mapSerialDetailInfo.Find(CacheKey(channelInfo.deviceSerial));
    return device ? Serve(*device, detail) : static_cast<int>(VANTIX_ERROR);
}

int DetailCaches::getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) const {
    const auto device = m_mapDeviceInfoCache.Find(KeyOf(serial, ch));
    if (!device) {
        return VANTIX_ERROR;
    }
    device->CopyTo(detail);
    return VANTIX_NOERROR;
}

bool DetailCaches::CopyChannelOf(const CacheKey& key, DevChannelInfo& channelInfo) const {
    const auto channel = m_mapDevDetailInfo.Find(key);
    if (channel) {
        channel->CopyTo(channelInfo);
    }
    return channel.has_value();
}

bool DetailCaches::CopyChannel(const std::string& serial, int ch, DevChannelInfo& channelInfo) const {
    return CopyChannelOf(KeyOf(serial, ch), channelInfo);
}

std::optional<DevDetailInfo> DetailCaches::FindDevice(const std::string& serial) const {
    const auto device = m_mapSerialDetailInfo.Find(CacheKey(serial));
    if (!device) {
        return std::nullopt;
    }
    std::optional<DevDetailInfo> detail(std::in_place);
    device->CopyTo(*detail);
    return detail;
}

int DetailCaches::SetDevInfoCache(const std::string& serial, int ch) {
    const CallSite site = VANTIX_CORE_HERE("SetDevInfoCache");
    const CacheKey key = KeyOf(serial, ch);
    if (!m_mapDeviceInfoCache.Edit(key, [](CachedDevice& stored) { stored.MarkForUpdate(); })) {
        VANTIX_LOG_INFO(site, level::kInfo, "key not exist strKey= %s", key.Text().c_str());
        return VANTIX_ERROR;
    }
    VANTIX_LOG_INFO(site, level::kInfo, "Update status successful strKey= %s", key.Text().c_str());
    return VANTIX_NOERROR;
}

int DetailCaches::ClearDeviceInfoCache() {
    m_mapDeviceInfoCache.Clear();
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("ClearDeviceInfoCache"), level::kInfo, "m_mapDeviceInfoCache clear");
    return VANTIX_NOERROR;
}

int DetailCaches::getChannelCacheValue(const std::string& serial, int ch) const {
    return m_mapDevDetailInfo.Read<int>(KeyOf(serial, ch), VANTIX_ERROR,
                                        [](const CachedChannel& stored) { return stored.Trust(); });
}

void DetailCaches::setChannelCacheValue(const std::string& serial, int ch, int value) {
    m_mapDevDetailInfo.Edit(KeyOf(serial, ch), [&](CachedChannel& stored) { stored.SetTrust(value); });
}

bool DetailCaches::IsSupportSeekPlayback(const std::string& serial) const {
    if (!IsSerialGiven(VANTIX_CORE_HERE("IsSupportSeekPlayback"), serial)) {
        return false;
    }
    return m_mapSerialDetailInfo.Read(CacheKey(serial), false, [](const CachedDevice& stored) {
        return stored.Members().support_seek_playback == 1;
    });
}

bool DetailCaches::IsSupportPlaybackSpeed(const std::string& serial, int speed) const {
    if (!IsSerialGiven(VANTIX_CORE_HERE("IsSupportPlaybackSpeed"), serial)) {
        return false;
    }
    constexpr unsigned kSmallSpeeds = 0x2AC;  // 2, 3, 5, 7 and 9
    const bool isSmall = speed >= 0 && speed <= 9 && ((kSmallSpeeds >> static_cast<unsigned>(speed)) & 1U) != 0;
    return m_mapSerialDetailInfo.Read(CacheKey(serial), false, [&](const CachedDevice& stored) {
        // A small speed must be exactly 1, any other must not be 0.
        const DevDetailInfo& device = stored.Members();
        return isSmall ? device.support_device_playback_small_speed == 1 : device.support_quickplay_way != 0;
    });
}

CachedDevice DetailCaches::Shared(const DevDetailInfo& detail, const CacheKey& serial) {
    CachedDevice device(detail, m_texts);
    if (const auto known = m_mapSerialDetailInfo.Find(serial)) {
        device.ShareWith(*known);
    }
    return device;
}

void DetailCaches::Store(const std::string& serial, int ch, const DevChannelInfo& channelInfo,
                         const DevDetailInfo& detail, const std::optional<BelongDevInfo>& parent) {
    const CacheKey key = KeyOf(serial, ch);
    // Everything that needs memory is made before the first cache changes. Only the channels' table may still have to
    // grow, so it comes first.
    const CacheKey deviceKey(detail.deviceSerial);
    const CachedDevice device = Shared(detail, deviceKey);
    auto channelEntry = GuardedMap<ChannelMap>::EntryFor(key, CachedChannel(channelInfo, m_texts));
    auto deviceEntry = GuardedMap<DeviceMap>::EntryFor(key, device);
    auto serialEntry = GuardedMap<DeviceMap>::EntryFor(deviceKey, device);
    DeviceMap::node_type parentEntry;
    if (!detail.belongSerial.empty()) {
        DevDetailInfo record;
        static_cast<BelongDevInfo&>(record) = parent.value_or(BelongDevInfo());
        const CacheKey parentKey(detail.belongSerial);
        parentEntry = GuardedMap<DeviceMap>::EntryFor(parentKey, Shared(record, parentKey));
    }

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
