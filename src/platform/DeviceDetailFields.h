#pragma once

/// @file
/// Which member of the device detail answer fills which field.

#include "json/Fields.h"
#include "records/BelongDevInfo.h"
#include "records/DevChannelInfo.h"
#include "records/DevDetailInfo.h"
#include "records/VideoQualityInfo.h"
#include "records/VtmAddr.h"

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

/// A capability of "supportExt": a decimal number as text. Those with a number in the short list take their default
/// from it, and only a value that is not zero replaces the default.
struct Capability {
    const char* key;
    int32_t DevDetailInfo::*field;
    unsigned shortListNumber;  ///< 0 when the short list does not have it.
};

inline constexpr Capability kControls[] = {
    {"support_ptz", &DevDetailInfo::support_ptz, 0},       {"support_talk", &DevDetailInfo::support_talk, 0},
    {"ptz_left_right", &DevDetailInfo::ptz_left_right, 0}, {"ptz_top_bottom", &DevDetailInfo::ptz_top_bottom, 0},
    {"ptz_preset", &DevDetailInfo::ptz_preset, 0},
};
inline constexpr Capability kReplayDownload{"support_replay_download", &DevDetailInfo::support_replay_download, 0};
inline constexpr Capability kVideoCover{"support_device_video_cover", &DevDetailInfo::support_device_video_cover, 0};
inline constexpr Capability kSeekPlayback{"support_seek_playback", &DevDetailInfo::support_seek_playback, 257};
inline constexpr Capability kSeekV2{"support_seek_v2", &DevDetailInfo::support_seek_v2, 836};
inline constexpr Capability kSpeeds[] = {
    {"support_quickplay_way", &DevDetailInfo::support_quickplay_way, 149},
    {"support_device_playback_small_speed", &DevDetailInfo::support_device_playback_small_speed, 585},
};

}  // namespace vantix::detail_fields
