// Queries about the account: device lists, names, configuration, messages.

#include "core/CVantixDataCenter.h"
#include "cserver/Lists.h"
#include "log/Logger.h"
#include "platform/Account.h"
#include "platform/Lists.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

int CVantixDataCenter::getDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return query(VANTIX_HERE, queries::kDevList, Subject::Account(), retried,
                 [&](const Caller& caller) { return GetDevListFromPlatform(caller, pageStart, pageSize, list); });
}

int CVantixDataCenter::getDeviceList(int pageStart, int pageSize, const std::string& bizType, DeviceList& list,
                                     bool retried) {
    return query(VANTIX_HERE, queries::kDeviceList, Subject::Account(), retried, [&](const Caller& caller) {
        return GetDeviceListFromPlatform(caller, pageStart, pageSize, bizType, list);
    });
}

int CVantixDataCenter::getShareDevList(int pageStart, int pageSize, DeviceList& list, bool retried) {
    return query(VANTIX_HERE, queries::kShareDevList, Subject::Account(), retried,
                 [&](const Caller& caller) { return GetShareDevListFromPlatform(caller, pageStart, pageSize, list); });
}

int CVantixDataCenter::getB2CSharedDevList(int offset, int limit, std::string& json) {
    const std::string session = m_settings.sessionId.Copy();
    if (!hasCredential(VANTIX_HERE, session)) {
        return VANTIX_ERROR;
    }
    const Caller caller = callerFor(m_settings.CDomain.Copy(), session);
    const int result = GetB2CSharedDevListFromPlatform(caller, offset, limit, json);
    if (result == VANTIX_ACCESS_TOKEN_EXPIRED) {
        VANTIX_LOG_ERROR(VANTIX_HERE, level::kError, "Token exception or expired iRet = %d", result);
    }
    return result;
}

int CVantixDataCenter::getUsername(std::string& userName) {
    return query(VANTIX_HERE, queries::kUsername, Subject::Account(), false,
                 [&](const Caller& caller) { return GetUsernameFromPlatform(caller, userName); });
}

int CVantixDataCenter::getUserId(std::string& userId) {
    return query(VANTIX_HERE, queries::kUserId, Subject::Account(), false,
                 [&](const Caller& caller) { return GetUserIdFromPlatform(caller, userId); });
}

int CVantixDataCenter::getPushSessionId(std::string& sessionId) {
    return query(VANTIX_HERE, queries::kPushSession, Subject::Account(), false,
                 [&](const Caller& caller) { return getPushSessionIdFromPlatform(caller, sessionId); });
}

int CVantixDataCenter::getBWCheckInfo(int type, const std::string& checkTime, int localIndex, BWCheckInfo& info) {
    return query(VANTIX_HERE, queries::kBandwidth, Subject::Account(), false, [&](const Caller& caller) {
        return getBWCheckInfoFromPlatform(caller, type, checkTime, localIndex, info);
    });
}

int CVantixDataCenter::setAlarmRead(const std::string& alarmId) {
    return query(VANTIX_HERE, queries::kAlarmRead, Subject::Account(), false,
                 [&](const Caller& caller) { return SetAlarmReadOnPlatform(caller, alarmId); });
}

int CVantixDataCenter::getConfigInfo(ConfigInfo& config) {
    // Carries no credential and needs none; the account's token only chooses the domain.
    const bool isShared = isServedByConsumer(m_settings.accessToken.Copy());
    const Caller caller = callerFor(domainInPlace(VANTIX_HERE, isShared), {});
    // What the answer does not tell stays as it is.
    ConfigInfo answer = config;
    answer.streamType = m_settings.config.VTDUType;
    answer.dataCollect = m_settings.config.bEableDataCollect;
    answer.openP2P = m_settings.config.OpenP2P;
    const int result = GetConfigInfoFromPlatform(caller, answer);
    if (result == VANTIX_NOERROR) {
        config = std::move(answer);
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "GetConfig, bEableDataCollect:%d, VTDUType:%d, OpenP2P:%d",
                        config.dataCollect, config.streamType, config.openP2P);
        m_settings.config.VTDUType = config.streamType;
        m_settings.config.bEableDataCollect = config.dataCollect;
    }
    return result;
}

}  // namespace vantix
