// Fetching device details: the refill of the caches, and the synchronous and asynchronous fronts.

#include "base/AsyncTask.h"
#include "core/CVantixDataCenter.h"
#include "cserver/DeviceDetail.h"
#include "log/Logger.h"
#include "platform/DeviceDetail.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kMostAttempts = 3;

bool IsTransient(int result) { return result == VANTIX_PLATFORM_CODE_49999 || result == VANTIX_PLATFORM_CODE_50000; }

/// An entry of a cache, made outside of it.
template <class Map>
typename Map::node_type EntryFor(const std::string& key, typename Map::mapped_type value) {
    Map one;
    one.emplace(key, std::move(value));
    return one.extract(one.begin());
}

/// Puts an entry in the place of the one with its key, if there is one.
template <class Map>
void Put(Map& map, typename Map::node_type entry) {
    const auto present = map.find(entry.key());
    if (present != map.end()) {
        present->second = std::move(entry.mapped());
    } else {
        map.insert(std::move(entry));
    }
}

}  // namespace

int CVantixDataCenter::fetchDevDetailInfo(const CallSite& site, const std::string& serial, int ch,
                                          DevChannelInfo& channelInfo, DevDetailInfo& detail,
                                          std::optional<BelongDevInfo>& parent) {
    const std::string token = detailCredential(serial, ch);
    if (!hasCredential(site, token)) {
        return VANTIX_ERROR;
    }
    const std::string domain = getDomain(serial, ch).Copy();
    if (isServedByConsumer(serial, ch)) {
        const Caller session = callerFor(domain, m_settings.sessionId.Copy());
        return GetDevDetailInfoFromCServerBySerial(session, serial, ch, channelInfo, detail);
    }
    const Caller caller = callerFor(domain, token);
    return GetDevDetailInfoFromPlatformBySerial(caller, serial, ch, channelInfo, detail, parent);
}

void CVantixDataCenter::storeDevDetailInfo(const std::string& key, const DevChannelInfo& channelInfo,
                                           const DevDetailInfo& detail, const std::optional<BelongDevInfo>& parent) {
    // Everything that needs memory is made before the first cache changes: a refill takes place whole or not at all.
    // Only the channels' table may still have to grow, so it comes first.
    auto channelEntry = EntryFor<ChannelMap>(key, channelInfo);
    auto deviceEntry = EntryFor<DeviceMap>(key, detail);
    auto serialEntry = EntryFor<DeviceMap>(detail.deviceSerial, detail);
    DeviceMap::node_type parentEntry;
    if (!detail.belongSerial.empty() && parent) {
        DevDetailInfo record;
        static_cast<BelongDevInfo&>(record) = *parent;
        parentEntry = EntryFor<DeviceMap>(detail.belongSerial, std::move(record));
    }
    m_mapDevDetailInfo.With([&](ChannelMap& map) { Put(map, std::move(channelEntry)); });
    m_mapDeviceInfoCache.With([&](DeviceMap& map) { Put(map, std::move(deviceEntry)); });
    m_mapSerialDetailInfo.With([&](DeviceMap& map) {
        Put(map, std::move(serialEntry));
        if (!parentEntry.empty()) {
            Put(map, std::move(parentEntry));
        }
    });
}

int CVantixDataCenter::updateDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                           DevDetailInfo& detail) {
    std::optional<BelongDevInfo> parent;
    int result = VANTIX_ERROR;
    for (int attempts = 0; attempts < kMostAttempts; ++attempts) {
        parent.reset();
        result = fetchDevDetailInfo(VANTIX_HERE, serial, ch, channelInfo, detail, parent);
        if (!IsTransient(result)) {
            break;
        }
    }
    if (result == VANTIX_NOERROR) {
        storeDevDetailInfo(getDevDetailInfoMapKey(serial, ch), channelInfo, detail, parent);
    }
    return result;
}

int CVantixDataCenter::getDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                        DevDetailInfo& detail, std::future<int32_t>& future, bool retried) {
    const int result = getDevInfoCache(serial, ch, channelInfo, detail);
    if (result == VANTIX_NOERROR && !isExpired(detail.tCacheTime) && !detail.isUpdate) {
        // A success worded and levelled as an error, and kept so.
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "getDevDetailInfo FromLocal SUCCESS  isUpdate = %d", result);
        return VANTIX_NOERROR;
    }
    future = StartTask([this, strDeviceSerial = serial, iChannel = ch, &channelInfo, &detail, retried]() -> int32_t {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "futureDetailInfo async strDeviceSerial = %s iChannel = %d",
                        strDeviceSerial.c_str(), iChannel);
        const int fetched = updateDevDetailInfo(strDeviceSerial, iChannel, channelInfo, detail);
        if (!retried && isRenewed(strDeviceSerial, iChannel, fetched)) {
            return getDevDetailInfoSync(strDeviceSerial, iChannel, true, channelInfo, detail, true);
        }
        return fetched;
    });
    return result;
}

int CVantixDataCenter::getDevDetailInfoSync(const std::string& serial, int ch, bool force, DevChannelInfo& channelInfo,
                                            DevDetailInfo& detail, bool retried) {
    if (!force && getDevDetailInfoFromLocal(serial, ch, channelInfo, detail) == VANTIX_NOERROR) {
        return VANTIX_NOERROR;
    }
    const int result = updateDevDetailInfo(serial, ch, channelInfo, detail);
    if (!retried && isRenewed(serial, ch, result)) {
        return getDevDetailInfoSync(serial, ch, force, channelInfo, detail, true);
    }
    return result;
}

}  // namespace vantix
