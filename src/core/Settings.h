#pragma once

/// @file
/// What the host hands in. Settings live as long as the core.

#include <atomic>
#include <cstdint>
#include <string>

#include "base/Guarded.h"

namespace vantix {

using GuardedText = Guarded<std::string>;

/// The configuration that the platform may overwrite, except `OpenP2P`, which only the host changes.
struct PlatformConfig {
    std::atomic<int32_t> VTDUType{1};
    std::atomic<int32_t> bEableDataCollect{2};
    std::atomic<int32_t> OpenP2P{1};
    std::atomic<int32_t> reserved{1};
};

/// Permission modes.
namespace permission_mode {
inline constexpr int kOrdinary = 0;
inline constexpr int kSmall = 1;
inline constexpr int kB2C = 2;
}  // namespace permission_mode

struct Settings {
    PlatformConfig config;

    GuardedText AreaBDomain;
    GuardedText CDomain;
    GuardedText AuthAddr;
    GuardedText appID;
    GuardedText accessToken;
    GuardedText TokenExpireTime;

    GuardedText RefreshToken;
    GuardedText OpenID;
    GuardedText Scope;
    GuardedText State;

    std::atomic<int32_t> iCacheTime{86400};  ///< Seconds.
    std::atomic<int32_t> iCloseBlong{0};
    Guarded<int> permissionMode{permission_mode::kOrdinary};

    GuardedText globalTkToken;
    GuardedText sharedAccessToken;
    GuardedText sessionId;
    GuardedText refreshSessionId;
};

}  // namespace vantix
