#include "core/settings/Settings.h"

#include <utility>

#include "base/Clock.h"
#include "base/ProcessSwitches.h"
#include "core/CoreSite.h"

namespace vantix {

namespace {

/// An address is stored as given; libcurl uses HTTP for one without a scheme.
void WarnOfClearText(const CallSite& site, const std::string& address) {
    constexpr std::string_view kEncrypted = "https://";
    if (!address.empty() && address.compare(0, kEncrypted.size(), kEncrypted) != 0) {
        VANTIX_LOG_ERROR(site, level::kError, "%s does not begin with https://, credentials are sent in clear text",
                         address.c_str());
    }
}

}  // namespace

void Settings::setDomain(const std::string& szBDomain, const std::string& szCDomain) {
    const CallSite site = VANTIX_CORE_HERE("setDomain");
    VANTIX_LOG_INFO(site, level::kInfo, "SetDomain OldAreaBDomain:%s, szBDomain:%s, szCDomain:%s",
                    AreaBDomain.Copy().c_str(), szBDomain.c_str(), szCDomain.c_str());
    WarnOfClearText(site, szBDomain);
    WarnOfClearText(site, szCDomain);
    std::string platform = szBDomain;  // both copies first: without memory for one of them neither is set
    std::string consumer = szCDomain;
    if (!platform.empty()) {
        AreaBDomain.Assign(std::move(platform));
    }
    if (!consumer.empty()) {
        CDomain.Assign(std::move(consumer));
    }
}

void Settings::setAuthAddr(const std::string& addr) {
    const CallSite site = VANTIX_CORE_HERE("setAuthAddr");
    VANTIX_LOG_INFO(site, level::kInfo, "SetAuthAddr OldAuth:%s, NewAuth:%s", AuthAddr.Copy().c_str(), addr.c_str());
    WarnOfClearText(site, addr);
    AuthAddr.Assign(addr);
}

void Settings::setTokenExpireTime(const std::string& text) {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("setTokenExpireTime"), level::kInfo, "Set TokenExpireTime:%s", text.c_str());
    TokenExpireTime.Assign(text);
}

void Settings::setGlobalTkToken(const std::string& token) {
    if (!token.empty()) {
        globalTkToken.Assign(token);
    }
}

void Settings::setPermissionMode(int mode) {
    permissionMode.With([&](int& current) {
        current = mode;
        bB2CMode = mode == permission_mode::kB2C;
    });
}

void Settings::setCloseP2P(int close) {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("setCloseP2P"), level::kInfo, "Judge OldOpenP2P:%d, NewCloseP2P:%d",
                    config.OpenP2P.load(), close);
    config.OpenP2P = close == 1 ? 0 : 1;
}

void Settings::setCacheTime(int minutes) {
    constexpr int64_t kSecondsPerMinute = 60;
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("setCacheTime"), level::kInfo, "Set iCacheTime = %d", minutes);
    iCacheTime.exchange(static_cast<int32_t>(minutes * kSecondsPerMinute));
}

void Settings::setLogLevel(int level) {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("setLogLevel"), level::kInfo, "Set LogLevel, OldLogLevel:%d, iLogLevel:%d",
                    iLogLevel.load(), level);
    iLogLevel = level;
}

void Settings::setDataUtf8(int iDataUtf8) {
    bUtf8 = iDataUtf8 == 1;
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("setDataUtf8"), level::kInfo, "Judge iDataUtf8:%d, bUtf8:%d", iDataUtf8,
                    bUtf8 ? 1 : 0);
}

void Settings::setCloseBelongSerial(int close) {
    VANTIX_LOG_INFO(VANTIX_CORE_HERE("setCloseBelongSerial"), level::kInfo, "Set OldCloseBlong:[%d],NewCloseBlong:%d",
                    iCloseBlong.load(), close);
    iCloseBlong = close;
}

bool Settings::isExpired(int64_t storeTime) const {
    const CallSite site = VANTIX_CORE_HERE("isExpired");
    const int64_t now = WallSeconds();
    if (now == -1) {
        VANTIX_LOG_ERROR(site, level::kError, "time(NULL) is error ");
        return false;
    }
    if (now - storeTime > iCacheTime) {
        VANTIX_LOG_INFO(site, level::kInfo, "Cache timeout ");
        return true;
    }
    return false;
}

}  // namespace vantix
