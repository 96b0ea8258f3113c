// Devices that are reached through a parent device.

#include "core/CVantixDataCenter.h"
#include "log/Logger.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kOnline = 1;

}  // namespace

std::optional<DevDetailInfo> CVantixDataCenter::cachedDevice(const std::string& serial) {
    return m_mapSerialDetailInfo.With([&](const DeviceMap& map) -> std::optional<DevDetailInfo> {
        const auto found = map.find(serial);
        return found == map.end() ? std::nullopt : std::optional(found->second);
    });
}

int CVantixDataCenter::getDevDetailInfoFromLocalByRelation(const std::string& serial, int ch,
                                                           DevChannelInfo& channelInfo, DevDetailInfo& detail) {
    const int32_t closeBlong = detail.iCloseBlong;
    if (!readChannel(getDevDetailInfoMapKey(serial, ch), channelInfo)) {
        return VANTIX_ERROR;
    }
    const auto own = cachedDevice(channelInfo.deviceSerial);
    if (!own) {
        return VANTIX_ERROR;
    }
    if (own->releaseVersion != "VERSION_17") {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "VANTIX_DEV_NO_SUPPORT Release Version Not Equal VERSION_17");
        return VANTIX_ERROR;
    }
    detail.belongNo = 0;
    const bool unrelated =
        detail.belongSerial.empty() || detail.belongState == 0 || isCloseBelongSerial() || closeBlong == 1;
    if (unrelated) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "BelongNo Unrelated device stDeviceInfo.iCloseBlong = %d",
                        closeBlong);
        detail = *own;
        detail.iCloseBlong = closeBlong;
    } else {
        const auto parent = cachedDevice(detail.belongSerial);
        if (!parent) {
            return VANTIX_ERROR;
        }
        if (parent->deviceStatus == kOnline) {
            detail = *parent;
            VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "BelongNo Associated device %s is online",
                            detail.deviceSerial.c_str());
            detail.belongNo = own->belongNo;
            detail.isEncrypt = own->isEncrypt;
            detail.encryptPwd = own->encryptPwd;
            channelInfo.cameraNo = own->belongNo;
        } else {
            detail = *own;
        }
    }
    detail.iRequestCost = 0;
    detail.isFromCache = true;
    return VANTIX_NOERROR;
}

int CVantixDataCenter::getDevDetailInfoByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                                  DevDetailInfo& detail, bool retried) {
    int result = getDevDetailInfoFromLocalByRelation(serial, ch, channelInfo, detail);
    if (result == VANTIX_NOERROR) {
        // Read twice on purpose: the second read sees the relation that the first one wrote into the record.
        return getDevDetailInfoFromLocalByRelation(serial, ch, channelInfo, detail);
    }
    result = updateDevDetailInfo(serial, ch, channelInfo, detail);
    if (result == VANTIX_NOERROR) {
        result = getDevDetailInfoFromLocalByRelation(serial, ch, channelInfo, detail);
    }
    if (!retried && isRenewed(serial, ch, result)) {
        return getDevDetailInfoByRelation(serial, ch, channelInfo, detail, true);
    }
    return result;
}

}  // namespace vantix
