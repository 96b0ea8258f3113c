// Modes and switches of the core.

#include "base/Clock.h"
#include "base/ProcessSwitches.h"
#include "core/CVantixDataCenter.h"
#include "log/Logger.h"

namespace vantix {

void CVantixDataCenter::setPermissionMode(const int& mode) {
    m_settings.permissionMode.With([&](int& current) {
        current = mode;
        bB2CMode = mode == permission_mode::kB2C;
    });
}

const int* CVantixDataCenter::getPermissionMode() { return &m_settings.permissionMode.Live(); }

void CVantixDataCenter::setCloseP2P(int close) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Judge OldOpenP2P:%d, NewCloseP2P:%d", m_settings.config.OpenP2P.load(),
                    close);
    m_settings.config.OpenP2P = close == 1 ? 0 : 1;
}

bool CVantixDataCenter::isOpenP2P() { return m_settings.config.OpenP2P != 0; }

bool CVantixDataCenter::isVTDUType1() { return m_settings.config.VTDUType == 1; }

void CVantixDataCenter::setCacheTime(int minutes) {
    constexpr int64_t kSecondsPerMinute = 60;
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Set iCacheTime = %d", minutes);
    m_settings.iCacheTime.exchange(static_cast<int32_t>(minutes * kSecondsPerMinute));
}

int CVantixDataCenter::getCacheTime() { return m_settings.iCacheTime; }

void CVantixDataCenter::setLogLevel(int newLevel) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Set LogLevel, OldLogLevel:%d, iLogLevel:%d", iLogLevel.load(),
                    newLevel);
    iLogLevel = newLevel;
}

int CVantixDataCenter::getLogLevel() { return iLogLevel; }

void CVantixDataCenter::setDataUtf8(int iDataUtf8) {
    bUtf8 = iDataUtf8 == 1;
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Judge iDataUtf8:%d, bUtf8:%d", iDataUtf8, bUtf8 ? 1 : 0);
}

bool CVantixDataCenter::isDataUtf8() { return bUtf8; }

void CVantixDataCenter::setCloseBelongSerial(int close) {
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Set OldCloseBlong:[%d],NewCloseBlong:%d", m_settings.iCloseBlong.load(),
                    close);
    m_settings.iCloseBlong = close;
}

bool CVantixDataCenter::isCloseBelongSerial() { return m_settings.iCloseBlong == 1; }

bool CVantixDataCenter::isExpired(int64_t storeTime) {
    const int64_t now = WallSeconds();
    if (now == -1) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "time(NULL) is error ");
        return false;
    }
    if (now - storeTime > m_settings.iCacheTime) {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "Cache timeout ");
        return true;
    }
    return false;
}

}  // namespace vantix
