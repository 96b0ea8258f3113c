// Queries about the account: device lists, names, configuration, messages.

#include "core/queries/Queries.h"
#include "core/settings/Settings.h"
#include "cserver/Lists.h"
#include "platform/Account.h"
#include "platform/Lists.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

int Queries::getDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return Run(queries::kDevList, Subject::OfAccount(), retried,
               [&](const PlatformRoute& route) { return GetDevListFromPlatform(route, pageStart, pageSize, list); });
}

int Queries::getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list, bool retried) {
    return Run(queries::kDeviceList, Subject::OfAccount(), retried, [&](const PlatformRoute& route) {
        return GetDeviceListFromPlatform(route, pageStart, pageSize, bizType, list);
    });
}

int Queries::getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return Run(queries::kShareDevList, Subject::OfAccount(), retried, [&](const PlatformRoute& route) {
        return GetShareDevListFromPlatform(route, pageStart, pageSize, list);
    });
}

int Queries::getB2CSharedDevList(int offset, int limit, std::string& json) {
    const CallSite site = VANTIX_CORE_HERE("getB2CSharedDevList");
    const AnyRoute route = m_routes.OfSession();
    if (!std::holds_alternative<ConsumerRoute>(route)) {
        return RefuseWithoutCredential(site);
    }
    const int result = GetB2CSharedDevListFromPlatform(std::get<ConsumerRoute>(route), offset, limit, json);
    if (result == VANTIX_ACCESS_TOKEN_EXPIRED) {
        VANTIX_LOG_ERROR(site, level::kError, "Token exception or expired iRet = %d", result);
    }
    return result;
}

int Queries::getUsername(std::string& userName) {
    return Run(queries::kUsername, Subject::OfAccount(), false,
               [&](const PlatformRoute& route) { return GetUsernameFromPlatform(route, userName); });
}

int Queries::getUserId(std::string& userId) {
    return Run(queries::kUserId, Subject::OfAccount(), false,
               [&](const PlatformRoute& route) { return GetUserIdFromPlatform(route, userId); });
}

int Queries::getPushSessionId(std::string& sessionId) {
    return Run(queries::kPushSession, Subject::OfAccount(), false,
               [&](const PlatformRoute& route) { return getPushSessionIdFromPlatform(route, sessionId); });
}

int Queries::getBWCheckInfo(int type, const std::string& checkTime, int localIndex, BWCheckInfo& info) {
    return Run(queries::kBandwidth, Subject::OfAccount(), false, [&](const PlatformRoute& route) {
        return getBWCheckInfoFromPlatform(route, type, checkTime, localIndex, info);
    });
}

int Queries::setAlarmRead(const std::string& alarmId) {
    return Run(queries::kAlarmRead, Subject::OfAccount(), false,
               [&](const PlatformRoute& route) { return SetAlarmReadOnPlatform(route, alarmId); });
}

int Queries::getConfigInfo(ConfigInfo& config) {
    // What the response does not name stays as it is.
    ConfigInfo fresh = config;
    fresh.streamType = m_settings.config.VTDUType;
    fresh.dataCollect = m_settings.config.bEableDataCollect;
    fresh.openP2P = m_settings.config.OpenP2P;
    const int result = Run(queries::kConfigInfo, Subject::OfAccount(), false,
                           [&](const PlatformRoute& route) { return GetConfigInfoFromPlatform(route, fresh); });
    if (result == VANTIX_NOERROR) {
        config = std::move(fresh);
        VANTIX_LOG_INFO(queries::kConfigInfo.site, level::kInfo,
                        "GetConfig, bEableDataCollect:%d, VTDUType:%d, OpenP2P:%d", config.dataCollect,
                        config.streamType, config.openP2P);
        m_settings.config.VTDUType = config.streamType;
        m_settings.config.bEableDataCollect = config.dataCollect;
    }
    return result;
}

}  // namespace vantix
