#pragma once

#include <atomic>
#include <cstdint>
#include <string>

#include "base/Guarded.h"

namespace vantix {

/// Permission modes.
namespace permission_mode {
inline constexpr int kOrdinary = 0;
inline constexpr int kSmall = 1;
inline constexpr int kB2C = 2;
}  // namespace permission_mode

/// What the host sets. Nothing resets it; any thread may call any member at any time.
///
/// Texts without a rule are guarded values: the interface's getters return references to them, all other code copies.
/// A setting with a rule or a log line is a method, and its lines bear the core's tag.
class Settings {
public:
    /// The configuration that the platform may overwrite, except `OpenP2P`, which only the host changes.
    struct PlatformConfig {
        std::atomic<int32_t> VTDUType{1};
        std::atomic<int32_t> bEableDataCollect{2};
        std::atomic<int32_t> OpenP2P{1};
        std::atomic<int32_t> reserved{1};
    };

    PlatformConfig config;
    Guarded<std::string> AreaBDomain;
    Guarded<std::string> CDomain;
    Guarded<std::string> AuthAddr;
    Guarded<std::string> appID;
    Guarded<std::string> accessToken;
    Guarded<std::string> TokenExpireTime;
    Guarded<std::string> RefreshToken;
    Guarded<std::string> OpenID;
    Guarded<std::string> Scope;
    Guarded<std::string> State;
    std::atomic<int32_t> iCacheTime{86400};  ///< Seconds.
    std::atomic<int32_t> iCloseBlong{0};
    Guarded<int> permissionMode{permission_mode::kOrdinary};
    Guarded<std::string> globalTkToken;
    Guarded<std::string> sharedAccessToken;
    Guarded<std::string> sessionId;
    Guarded<std::string> refreshSessionId;

    /// An empty domain leaves the old one.
    void setDomain(const std::string& szBDomain, const std::string& szCDomain);
    void setAuthAddr(const std::string& addr);
    void setTokenExpireTime(const std::string& text);
    /// An empty token leaves the old one.
    void setGlobalTkToken(const std::string& token);
    void setPermissionMode(int mode);
    void setCloseP2P(int close);
    void setCacheTime(int minutes);
    void setLogLevel(int level);
    void setDataUtf8(int iDataUtf8);
    void setCloseBelongSerial(int close);
    bool isCloseBelongSerial() const { return iCloseBlong == 1; }

    /// Whether something stored at this time (seconds since the epoch) is older than the cache time. Never, when the
    /// clock fails.
    bool isExpired(int64_t storeTime) const;
};

}  // namespace vantix
