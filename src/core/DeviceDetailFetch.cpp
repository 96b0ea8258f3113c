// Fetching device details: the refill of the caches, and the synchronous and asynchronous fronts.

#include "boundary/Logger.h"
#include "core/AsyncTask.h"
#include "core/CVantixDataCenter.h"
#include "platform/DeviceDetail.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kVideoTkType = 3;
constexpr int kMostAttempts = 3;

bool IsTransient(int result) { return result == VANTIX_PLATFORM_CODE_49999 || result == VANTIX_PLATFORM_CODE_50000; }

}  // namespace

int CVantixDataCenter::fetchDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                          DevDetailInfo& detail, std::optional<BelongDevInfo>& parent) {
    const std::string token = deviceCredential(VANTIX_HERE, serial, ch, kVideoTkType);
    if (token.empty()) {
        return VANTIX_ERROR;
    }
    const Caller caller = callerFor(getDomain(serial, ch).Copy(), token);
    return GetDevDetailInfoFromPlatformBySerial(caller, serial, ch, channelInfo, detail, parent);
}

void CVantixDataCenter::storeDevDetailInfo(const std::string& key, const DevChannelInfo& channelInfo,
                                           const DevDetailInfo& detail, const std::optional<BelongDevInfo>& parent) {
    m_mapDevDetailInfo.With([&](ChannelMap& map) { map.insert_or_assign(key, channelInfo); });
    m_mapDeviceInfoCache.With([&](DeviceMap& map) { map.insert_or_assign(key, detail); });
    m_mapSerialDetailInfo.With([&](DeviceMap& map) {
        map.insert_or_assign(detail.deviceSerial, detail);
        if (!detail.belongSerial.empty() && parent) {
            DevDetailInfo record;
            static_cast<BelongDevInfo&>(record) = *parent;
            map.insert_or_assign(detail.belongSerial, std::move(record));
        }
    });
}

int CVantixDataCenter::updateDevDetailInfo(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                           DevDetailInfo& detail) {
    std::optional<BelongDevInfo> parent;
    int result = VANTIX_ERROR;
    for (int attempts = 0; attempts < kMostAttempts; ++attempts) {
        parent.reset();
        result = fetchDevDetailInfo(serial, ch, channelInfo, detail, parent);
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
        // A success worded and levelled as an error: support looks for it so.
        VANTIX_LOG_ERROR(level::kError, "getDevDetailInfo FromLocal SUCCESS  isUpdate = %d", result);
        return VANTIX_NOERROR;
    }
    future = StartTask([this, strDeviceSerial = serial, iChannel = ch, &channelInfo, &detail, retried]() -> int32_t {
        VANTIX_LOG_INFO(level::kInfo, "futureDetailInfo async strDeviceSerial = %s iChannel = %d",
                        strDeviceSerial.c_str(), iChannel);
        const int fetched = updateDevDetailInfo(strDeviceSerial, iChannel, channelInfo, detail);
        if (fetched == VANTIX_ACCESS_TOKEN_EXPIRED && !retried && !refreshedToken().empty()) {
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
    if (result == VANTIX_ACCESS_TOKEN_EXPIRED && !retried && !refreshedToken().empty()) {
        return getDevDetailInfoSync(serial, ch, force, channelInfo, detail, true);
    }
    return result;
}

}  // namespace vantix
