#pragma once

/// @file
/// The capabilities of a device's extension object: decimal numbers as texts, by name.

#include <cstdint>
#include <string>

#include "base/NumberText.h"
#include "json/Fields.h"
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
    // In the order of their numbers: one walk through the list finds them all.
    {.key = "support_quickplay_way", .field = &DevDetailInfo::support_quickplay_way, .shortListNumber = 149},
    {.key = "support_seek_playback", .field = &DevDetailInfo::support_seek_playback, .shortListNumber = 257},
    {.key = "support_device_playback_small_speed",
     .field = &DevDetailInfo::support_device_playback_small_speed,
     .shortListNumber = 585},
    {.key = "support_seek_v2", .field = &DevDetailInfo::support_seek_v2, .shortListNumber = 836},
};

/// Reads the capabilities of a table; the device's short list must have been read before. A value that is no text is
/// not read.
template <const auto& Rows, class View>
void ReadRows(const View& extension, DevDetailInfo& device) {
    ShortList list(device.supportExtShort);
    for (const Capability& capability : Rows) {
        if (capability.shortListNumber != 0) {
            device.*capability.field = list.Value(capability.shortListNumber);
        }
    }
    json::VisitRows<Rows>(extension, [&](const Capability& capability, const View& member) {
        std::string text;
        if (const int32_t value = member.Read(text) ? DecimalPrefix(text) : 0; value != 0) {
            device.*capability.field = value;
        }
    });
}

/// Reads all of them, and the encryption's text.
template <class View>
void ReadCapabilities(const View& extension, DevDetailInfo& device) {
    ReadRows<kCapabilities>(extension, device);
    extension.Member("support_ecdh_v2").Read(device.support_ecdh_v2);
}

}  // namespace vantix::capabilities
