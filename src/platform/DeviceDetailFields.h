#pragma once

/// @file
/// Which member of the device detail response fills which field.

#include "json/Fields.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/VideoQualityInfo.h"
#include "vantix/records/VtmAddr.h"

namespace vantix::detail_fields {

inline constexpr json::Field<DevChannelInfo> kCamera[] = {
    {"cameraId", &DevChannelInfo::cameraId},
    {"cameraNo", &DevChannelInfo::cameraNo},
    {"deviceSerial", &DevChannelInfo::deviceSerial},
    {"videoLevel", &DevChannelInfo::videoLevel},
    {"type", &DevChannelInfo::type},
    {"capability", &DevChannelInfo::capability},
    {"status", &DevChannelInfo::status},
    {"permission", &DevChannelInfo::permission},
    {"isShared", &DevChannelInfo::isShared},
    {"forceStreamType", &DevChannelInfo::forceStreamType},
    {"streamBiz", &DevChannelInfo::streamBiz},
    {"streamBizUrl", &DevChannelInfo::streamBizUrl},
    {"isTrust", &DevChannelInfo::isTrust},
};

inline constexpr json::Field<VideoQualityInfo> kVideoQuality[] = {
    {"videoQualityName", &VideoQualityInfo::videoQualityName},
    {"videoLevel", &VideoQualityInfo::videoLevel},
    {"streamType", &VideoQualityInfo::streamType},
};

inline constexpr json::Field<BelongDevInfo> kDevice[] = {
    {"deviceSerial", &BelongDevInfo::deviceSerial},
    {"deviceIP", &BelongDevInfo::deviceIP},
    {"devicePort", &BelongDevInfo::devicePort},
    {"cmdPort", &BelongDevInfo::cmdPort},
    {"httpPort", &BelongDevInfo::httpPort},
    {"streamPort", &BelongDevInfo::streamPort},
    {"localIp", &BelongDevInfo::localIp},
    {"localDevicePort", &BelongDevInfo::localDevicePort},
    {"localCmdPort", &BelongDevInfo::localCmdPort},
    {"localHttpPort", &BelongDevInfo::localHttpPort},
    {"localStreamPort", &BelongDevInfo::localStreamPort},
    {"netType", &BelongDevInfo::netType},
    {"ppvsAddr", &BelongDevInfo::ppvsAddr},
    {"ppvsPort", &BelongDevInfo::ppvsPort},
    {"casIp", &BelongDevInfo::casIp},
    {"casPort", &BelongDevInfo::casPort},
    {"maskIp", &BelongDevInfo::maskIp},
    {"upnp", &BelongDevInfo::upnp},
    {"cloudServiceStatus", &BelongDevInfo::cloudServiceStatus},
    {"releaseVersion", &BelongDevInfo::releaseVersion},
    {"belongSerial", &BelongDevInfo::belongSerial},
    {"belongNo", &BelongDevInfo::belongNo},
    {"belongAdded", &BelongDevInfo::belongAdded},
    {"isEncrypt", &BelongDevInfo::isEncrypt},
    {"encryptPwd", &BelongDevInfo::encryptPwd},
    {"belongState", &BelongDevInfo::belongState},
    {"vtmIp", &BelongDevInfo::vtmIp},
    {"vtmPort", &BelongDevInfo::vtmPort},
    {"ttsIp", &BelongDevInfo::ttsIp},
    {"ttsPort", &BelongDevInfo::ttsPort},
    {"deviceStatus", &BelongDevInfo::deviceStatus},
    {"supportExtShort", &BelongDevInfo::supportExtShort},
    {"supportChannelNums", &BelongDevInfo::supportChannelNums},
    {"gbJtTtsIP", &BelongDevInfo::gbJtTtsIP},
    {"gbJtTtsPort", &BelongDevInfo::gbJtTtsPort},
    {"publicKey", &BelongDevInfo::publicKey},
    {"version", &BelongDevInfo::version},
    {"isOwner", &BelongDevInfo::isOwner},
};

inline constexpr json::Field<VtmAddr> kVtmBackup[] = {
    {"ip", &VtmAddr::strVtmAddr},
    {"port", &VtmAddr::iVtmPort},
};

}  // namespace vantix::detail_fields
