#pragma once

#include <cstdint>
#include <string>

#include "BelongDevInfo.h"

namespace vantix {

/// One device's detail record: the device's own fields, capabilities derived from its nested members, and the
/// bookkeeping of the caches.
struct DevDetailInfo : BelongDevInfo {
    int32_t iShareVerif = 0;  ///< Whether a shared device requires verification.

    int32_t support_ptz = 0;
    int32_t support_talk = 0;
    int32_t ptz_left_right = 0;
    int32_t ptz_top_bottom = 0;
    int32_t ptz_preset = 0;
    std::string support_ecdh_v2;
    int32_t support_replay_download = 0;
    int32_t support_device_video_cover = 0;
    int32_t support_seek_playback = 0;
    int32_t support_seek_v2 = 0;
    int32_t support_quickplay_way = 0;                ///< Fast playback; any non-zero value means yes.
    int32_t support_device_playback_small_speed = 0;  ///< 1 means yes.

    int32_t iCloseBlong = 0;   ///< Set by the host: 1 = do not resolve this device through its parent.
    int32_t iRequestCost = 0;  ///< Milliseconds that the fetch took; 0 when served from a cache.
    int64_t tCacheTime = 0;    ///< Seconds since the epoch of the successful fetch; 0 in a fresh record.
    bool isUpdate = false;     ///< The cached copy is fetched again by the next `getDevDetailInfo`.
    bool isFromCache = true;   ///< False when the record was just fetched.
};

}  // namespace vantix
