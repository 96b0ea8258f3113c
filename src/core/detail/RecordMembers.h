#pragma once

/// @file
/// The members of cached records as data.

#include <cstdint>
#include <string>

#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix {

/// The texts of a record.
template <class Record>
struct TextsOf;

template <>
struct TextsOf<DevChannelInfo> {
    static constexpr std::string DevChannelInfo::*kAll[] = {
        &DevChannelInfo::deviceSerial, &DevChannelInfo::cameraId,     &DevChannelInfo::capability,
        &DevChannelInfo::isShared,     &DevChannelInfo::streamBizUrl, &DevChannelInfo::isTrust,
    };
};

template <>
struct TextsOf<DevDetailInfo> {
    static constexpr std::string DevDetailInfo::*kAll[] = {
        &DevDetailInfo::deviceSerial, &DevDetailInfo::deviceIP,        &DevDetailInfo::localIp,
        &DevDetailInfo::ppvsAddr,     &DevDetailInfo::casIp,           &DevDetailInfo::releaseVersion,
        &DevDetailInfo::belongSerial, &DevDetailInfo::encryptPwd,      &DevDetailInfo::vtmIp,
        &DevDetailInfo::ttsIp,        &DevDetailInfo::gbJtTtsIP,       &DevDetailInfo::supportExtShort,
        &DevDetailInfo::publicKey,    &DevDetailInfo::support_ecdh_v2,
    };
};

/// The numbers of a device's record, without those that belong to a fetch.
inline constexpr int32_t DevDetailInfo::*kDeviceNumbers[] = {
    &DevDetailInfo::devicePort,
    &DevDetailInfo::cmdPort,
    &DevDetailInfo::httpPort,
    &DevDetailInfo::streamPort,
    &DevDetailInfo::localDevicePort,
    &DevDetailInfo::localCmdPort,
    &DevDetailInfo::localHttpPort,
    &DevDetailInfo::localStreamPort,
    &DevDetailInfo::netType,
    &DevDetailInfo::ppvsPort,
    &DevDetailInfo::casPort,
    &DevDetailInfo::maskIp,
    &DevDetailInfo::upnp,
    &DevDetailInfo::cloudServiceStatus,
    &DevDetailInfo::belongNo,
    &DevDetailInfo::belongAdded,
    &DevDetailInfo::isEncrypt,
    &DevDetailInfo::belongState,
    &DevDetailInfo::vtmPort,
    &DevDetailInfo::ttsPort,
    &DevDetailInfo::deviceStatus,
    &DevDetailInfo::supportChannelNums,
    &DevDetailInfo::gbJtTtsPort,
    &DevDetailInfo::version,
    &DevDetailInfo::isOwner,
    &DevDetailInfo::iShareVerif,
    &DevDetailInfo::support_ptz,
    &DevDetailInfo::support_talk,
    &DevDetailInfo::ptz_left_right,
    &DevDetailInfo::ptz_top_bottom,
    &DevDetailInfo::ptz_preset,
    &DevDetailInfo::support_replay_download,
    &DevDetailInfo::support_device_video_cover,
    &DevDetailInfo::support_seek_playback,
    &DevDetailInfo::support_seek_v2,
    &DevDetailInfo::support_quickplay_way,
    &DevDetailInfo::support_device_playback_small_speed,
};

}  // namespace vantix
