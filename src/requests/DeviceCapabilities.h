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
    const char* key = nullptr;
    int32_t DevDetailInfo::*field = nullptr;
    unsigned shortListNumber = 0;  ///< 0 when the short list does not have it.
};

inline constexpr Capability kCapabilities[] = {
    {.key = "support_ptz", .field = &DevDetailInfo::support_ptz},
    {.key = "support_talk", .field = &DevDetailInfo::support_talk},
    {.key = "ptz_left_right", .field = &DevDetailInfo::ptz_left_right},
    {.key = "ptz_top_bottom", .field = &DevDetailInfo::ptz_top_bottom},
    {.key = "ptz_preset", .field = &DevDetailInfo::ptz_preset},
    {.key = "support_replay_download", .field = &DevDetailInfo::support_replay_download},
    {.key = "support_device_video_cover", .field = &DevDetailInfo::support_device_video_cover},
    {.key = "support_seek_playback", .field = &DevDetailInfo::support_seek_playback, .shortListNumber = 257},
    {.key = "support_seek_v2", .field = &DevDetailInfo::support_seek_v2, .shortListNumber = 836},
    {.key = "support_quickplay_way", .field = &DevDetailInfo::support_quickplay_way, .shortListNumber = 149},
    {.key = "support_device_playback_small_speed",
     .field = &DevDetailInfo::support_device_playback_small_speed,
     .shortListNumber = 585},
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

/// Reads all of them, and the encryption's text.
template <class View>
void ReadCapabilities(const View& extension, DevDetailInfo& device) {
    for (const Capability& capability : kCapabilities) {
        ReadCapability(extension, capability, device);
    }
    extension.Member("support_ecdh_v2").Read(device.support_ecdh_v2);
}

}  // namespace vantix::capabilities
