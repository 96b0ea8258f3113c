#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>

#include "base/GuardedMap.h"
#include "core/detail/CacheKey.h"
#include "core/detail/CachedRecords.h"
#include "core/detail/SharedTexts.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// Whether a record may be served from a cache: only those of one release are.
bool IsServedRelease(const BelongDevInfo& device);
/// Marks a record as one that came from a cache and took no request.
void MarkFromCache(DevDetailInfo& detail);

/// Cached records of devices and channels: three caches, each with its own lock; no two locks are held at once, and no
/// record is copied under one. Lines bear the core's tags.
class DetailCaches {
public:
    // ---- The interface's operations
    int getDevInfoCache(const std::string& serial, int ch, DevChannelInfo& channelInfo, DevDetailInfo& detail) const;
    int getDeviceRecord(const std::string& serial, int ch, DevDetailInfo& detail) const;
    int SetDevInfoCache(const std::string& serial, int ch);
    int getChannelCacheValue(const std::string& serial, int ch) const;
    void setChannelCacheValue(const std::string& serial, int ch, int value);
    bool IsSupportSeekPlayback(const std::string& serial) const;
    bool IsSupportPlaybackSpeed(const std::string& serial, int speed) const;
    int ClearDeviceInfoCache();

    /// As `getDevInfoCache`, but the device is found by the serial in the channel's record.
    int getDevDetailInfoFromLocal(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                  DevDetailInfo& detail) const;

    /// Copies a channel's record out; false when it is not cached.
    bool CopyChannel(const std::string& serial, int ch, DevChannelInfo& channelInfo) const;
    /// A copy of a device's record, by its serial.
    std::optional<DevDetailInfo> FindDevice(const std::string& serial) const;

    /// Stores the records of a fetch. A device that names a parent gets the parent's record stored too, when the
    /// response had one, or when nothing is cached under the parent's serial. When memory runs out, nothing is stored.
    void Store(const std::string& serial, int ch, const DevChannelInfo& channelInfo, const DevDetailInfo& detail,
               const std::optional<BelongDevInfo>& parent);

    void ClearChannels() { m_mapDevDetailInfo.Clear(); }
    void ClearDevices() { m_mapSerialDetailInfo.Clear(); }

private:
    using ChannelMap = std::unordered_map<CacheKey, CachedChannel, CacheKey::Hash>;
    using DeviceMap = std::map<CacheKey, CachedDevice>;

    bool CopyChannelOf(const CacheKey& key, DevChannelInfo& channelInfo) const;
    /// The device's record, shared with that of its other channels when they are equal.
    CachedDevice Shared(const DevDetailInfo& detail, const CacheKey& serial);

    SharedTexts m_texts;
    GuardedMap<ChannelMap> m_mapDevDetailInfo;    ///< By channel key.
    GuardedMap<DeviceMap> m_mapDeviceInfoCache;   ///< By channel key.
    GuardedMap<DeviceMap> m_mapSerialDetailInfo;  ///< By serial; parents too.
};

}  // namespace vantix
