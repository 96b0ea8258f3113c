#include "core/detail/DetailRelation.h"

#include "core/CoreSite.h"
#include "core/detail/DetailCaches.h"
#include "core/settings/Settings.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

constexpr int kOnline = 1;

/// Replaces the record by the parent's, with the members that only the device has.
void BecomeParent(const CallSite& site, const DevDetailInfo& parent, const DevDetailInfo& own, DevDetailInfo& detail) {
    detail = parent;
    VANTIX_LOG_INFO(site, level::kInfo, "BelongNo Associated device %s is online", detail.deviceSerial.c_str());
    detail.belongNo = own.belongNo;
    detail.isEncrypt = own.isEncrypt;
    detail.encryptPwd = own.encryptPwd;
}

}  // namespace

bool DetailRelation::IsRelated(const DevDetailInfo& detail) const {
    return !detail.belongSerial.empty() && detail.belongState != 0 && !m_settings.isCloseBelongSerial() &&
           detail.iCloseBlong != 1;
}

int DetailRelation::getDevDetailInfoFromLocalByRelation(const std::string& serial, int ch, DevChannelInfo& channelInfo,
                                                        DevDetailInfo& detail) const {
    const CallSite site = VANTIX_CORE_HERE("getDevDetailInfoFromLocalByRelation");
    if (!m_caches.CopyChannel(serial, ch, channelInfo)) {
        return VANTIX_ERROR;
    }
    const auto own = m_caches.FindDevice(channelInfo.deviceSerial);
    if (!own) {
        return VANTIX_ERROR;
    }
    if (!IsServedRelease(*own)) {
        VANTIX_LOG_ERROR(site, level::kError, "VANTIX_DEV_NO_SUPPORT Release Version Not Equal VERSION_17");
        return VANTIX_ERROR;
    }
    detail.belongNo = 0;
    if (!IsRelated(detail)) {
        const int32_t closeBlong = detail.iCloseBlong;
        VANTIX_LOG_INFO(site, level::kInfo, "BelongNo Unrelated device stDeviceInfo.iCloseBlong = %d", closeBlong);
        detail = *own;
        detail.iCloseBlong = closeBlong;
    } else {
        const auto parent = m_caches.FindDevice(detail.belongSerial);
        if (!parent) {
            return VANTIX_ERROR;
        }
        if (parent->deviceStatus == kOnline) {
            BecomeParent(site, *parent, *own, detail);
            channelInfo.cameraNo = own->belongNo;
        } else {
            detail = *own;
        }
    }
    MarkFromCache(detail);
    return VANTIX_NOERROR;
}

}  // namespace vantix
