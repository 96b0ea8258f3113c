// Queries about one device or channel: tickets, information, alarms, permissions.

#include "core/CVantixDataCenter.h"
#include "json/JsonText.h"
#include "log/Logger.h"
#include "platform/Account.h"
#include "platform/DeviceDetail.h"
#include "platform/Lists.h"
#include "platform/Server.h"
#include "platform/Tokens.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

int CVantixDataCenter::getTicketInfo(const std::string& serial, int ch, std::string& ticket) {
    return query(VANTIX_HERE, queries::kTicket, {serial, ch}, false,
                 [&](const Caller& caller) { return GetTicketInfoBySerial(caller, serial, ch, ticket); });
}

int CVantixDataCenter::getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket) {
    return query(VANTIX_HERE, queries::kCloudTicket, {serial, localIndex}, false, [&](const Caller& caller) {
        return GetCloudTicketInfoBySerial(caller, serial, localIndex, spaceId, ticket);
    });
}

int CVantixDataCenter::getRelayTicket(const std::string& serial, int ch, std::string& ticket) {
    return query(VANTIX_HERE, queries::kRelayTicket, {serial, ch}, false,
                 [&](const Caller& caller) { return GetRelayTicketInfoBySerial(caller, serial, ch, ticket); });
}

int CVantixDataCenter::getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                                           const std::string& platFormId, DevChannelInfo& channelInfo,
                                           DevDetailInfo& detail, bool retried) {
    return query(VANTIX_HERE, queries::kDeviceDetail, {serial, ch}, retried, [&](const Caller& caller) {
        return GetDeviceDetailInfoFromPlatformBySerial(caller, serial, ch, bizType, platFormId, channelInfo, detail);
    });
}

int CVantixDataCenter::getRelayServerInfo(const std::string& serial, int ch, std::string& json) {
    RelayServerInfo relay;
    const int result = query(VANTIX_HERE, queries::kRelayServer, {serial, ch}, false, [&](const Caller& caller) {
        return GetRelayServerInfoFromPlatform(caller, serial, ch, relay);
    });
    if (result == VANTIX_NOERROR) {
        json = json::JsonBuilder::Object()
                   .Set("domain", relay.domain)
                   .Set("port", relay.port)
                   .Set("publicKey", relay.publicKey)
                   .Set("version", relay.version)
                   .Compact();
    }
    return result;
}

int CVantixDataCenter::getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json, bool retried) {
    return query(VANTIX_HERE, queries::kDeviceInfo, {serial, ch}, retried,
                 [&](const Caller& caller) { return GetDeviceInfoBySerialFromPlatform(caller, serial, json); });
}

int CVantixDataCenter::getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize,
                                    const std::string& startTime, const std::string& endTime, int alarmType, int status,
                                    std::string& json, bool retried) {
    const AlarmQuery alarms{pageStart, pageSize, startTime, endTime, alarmType, status};
    return query(VANTIX_HERE, queries::kAlarmList, {serial, ch}, retried,
                 [&](const Caller& caller) { return GetAlarmListFromPlatform(caller, serial, ch, alarms, json); });
}

int CVantixDataCenter::getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq,
                                               TransparentMsgDetail& detail, bool retried) {
    return query(VANTIX_HERE, queries::kTransparentMsg, {serial, kFirstChannel}, retried,
                 [&](const Caller& caller) { return GetTransparentMsgDetailFromPlatform(caller, msgSeq, detail); });
}

int CVantixDataCenter::setVideoDefinition(const std::string& serial, std::string& answer, int ch, int videoLevel,
                                          bool retried) {
    return query(VANTIX_HERE, queries::kVideoDefinition, {serial, ch}, retried, [&](const Caller& caller) {
        return SetVideoDefinitionOnPlatform(caller, serial, ch, videoLevel, answer);
    });
}

int CVantixDataCenter::getAuthInfo(const std::string& serial, int ch, bool playback) {
    const int result = query(VANTIX_HERE, queries::kPermission, {serial, ch}, false, [&](const Caller& caller) {
        return GetAuthInfoFromPlatform(caller, serial, ch, playback);
    });
    // An expired token is not renewed here, and not told from other failures.
    return result == VANTIX_ACCESS_TOKEN_EXPIRED ? VANTIX_ERROR : result;
}

}  // namespace vantix
