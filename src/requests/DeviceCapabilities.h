#pragma once

/// @file
/// The capabilities of a device's extension object: decimal numbers as texts, by name.

#include <cstdint>
#include <string>

#include "base/NumberText.h"
#include "requests/CapabilityByNumber.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::capabilities {

/// A capability. Those with a number in the short list take their default from it, and only a value that is not zero
/// replaces the default.
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
/// Kept as the text that it is.
inline constexpr char kEncryption[] = "support_ecdh_v2";
inline constexpr Capability kReplayDownload{"support_replay_download", &DevDetailInfo::support_replay_download, 0};
inline constexpr Capability kVideoCover{"support_device_video_cover", &DevDetailInfo::support_device_video_cover, 0};
inline constexpr Capability kSeekPlayback{"support_seek_playback", &DevDetailInfo::support_seek_playback, 257};
inline constexpr Capability kSeekV2{"support_seek_v2", &DevDetailInfo::support_seek_v2, 836};
inline constexpr Capability kSpeeds[] = {
    {"support_quickplay_way", &DevDetailInfo::support_quickplay_way, 149},
    {"support_device_playback_small_speed", &DevDetailInfo::support_device_playback_small_speed, 585},
};

/// Reads one capability; the device's short list must have been read before. A value that is no text is not read.
template <class View>
void ReadCapability(const View& extension, const Capability& capability, DevDetailInfo& device) {
    int32_t& field = device.*capability.field;
    if (capability.shortListNumber != 0) {
        field = CapabilityByNumber(device.supportExtShort, capability.shortListNumber);
    }
    std::string text;
    if (extension.Member(capability.key).Read(text)) {
        if (const int32_t value = DecimalPrefix(text); value != 0) {
            field = value;
        }
    }
}

}  // namespace vantix::capabilities
