// Queries about one device or channel: tickets, information, alarms, permissions.

#include "core/queries/Queries.h"
#include "json/JsonText.h"
#include "platform/Account.h"
#include "platform/DeviceDetail.h"
#include "platform/Lists.h"
#include "platform/Server.h"
#include "platform/Tokens.h"
#include "vantix/ReturnCodes.h"

namespace vantix {

int Queries::getTicketInfo(const std::string& serial, int ch, std::string& ticket) {
    return Run(queries::kTicket, Subject::OfChannel(serial, ch), false,
               [&](const PlatformRoute& route) { return GetTicketInfoBySerial(route, serial, ch, ticket); });
}

int Queries::getCloudTicketInfo(const std::string& serial, int localIndex, int spaceId, std::string& ticket) {
    return Run(queries::kCloudTicket, Subject::OfChannel(serial, localIndex), false, [&](const PlatformRoute& route) {
        return GetCloudTicketInfoBySerial(route, serial, localIndex, spaceId, ticket);
    });
}

int Queries::getRelayTicket(const std::string& serial, int ch, std::string& ticket) {
    return Run(queries::kRelayTicket, Subject::OfChannel(serial, ch), false,
               [&](const PlatformRoute& route) { return GetRelayTicketInfoBySerial(route, serial, ch, ticket); });
}

int Queries::getDeviceDetailInfo(const std::string& serial, int ch, const std::string& bizType,
                                 const std::string& platFormId, DevChannelInfo& channelInfo, DevDetailInfo& detail,
                                 bool retried) {
    return Run(queries::kDeviceDetail, Subject::OfChannel(serial, ch), retried, [&](const PlatformRoute& route) {
        return GetDeviceDetailInfoFromPlatformBySerial(route, serial, ch, bizType, platFormId, channelInfo, detail);
    });
}

int Queries::getRelayServerInfo(const std::string& serial, int ch, std::string& json) {
    RelayServerInfo relay;
    const int result =
        Run(queries::kRelayServer, Subject::OfChannel(serial, ch), false,
            [&](const PlatformRoute& route) { return GetRelayServerInfoFromPlatform(route, serial, ch, relay); });
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

int Queries::getDeviceInfoBySerial(const std::string& serial, int ch, std::string& json, bool retried) {
    return Run(queries::kDeviceInfo, Subject::OfChannel(serial, ch), retried,
               [&](const PlatformRoute& route) { return GetDeviceInfoBySerialFromPlatform(route, serial, json); });
}

int Queries::getAlarmList(const std::string& serial, int ch, int pageStart, int pageSize, const std::string& startTime,
                          const std::string& endTime, int alarmType, int status, std::string& json, bool retried) {
    const AlarmQuery alarms{pageStart, pageSize, startTime, endTime, alarmType, status};
    return Run(queries::kAlarmList, Subject::OfChannel(serial, ch), retried,
               [&](const PlatformRoute& route) { return GetAlarmListFromPlatform(route, serial, ch, alarms, json); });
}

int Queries::getTransparentMsgDetail(const std::string& serial, const std::string& msgSeq, TransparentMsgDetail& detail,
                                     bool retried) {
    return Run(queries::kTransparentMsg, Subject::OfChannel(serial, kFirstChannel), retried,
               [&](const PlatformRoute& route) { return GetTransparentMsgDetailFromPlatform(route, msgSeq, detail); });
}

int Queries::setVideoDefinition(const std::string& serial, std::string& response, int ch, int videoLevel,
                                bool retried) {
    return Run(queries::kVideoDefinition, Subject::OfChannel(serial, ch), retried, [&](const PlatformRoute& route) {
        return SetVideoDefinitionOnPlatform(route, serial, ch, videoLevel, response);
    });
}

int Queries::getAuthInfo(const std::string& serial, int ch, bool playback) {
    const int result =
        Run(queries::kPermission, Subject::OfChannel(serial, ch), false,
            [&](const PlatformRoute& route) { return GetAuthInfoFromPlatform(route, serial, ch, playback); });
    // An expired token is not renewed here, and ends like any other failure.
    return result == VANTIX_ACCESS_TOKEN_EXPIRED ? VANTIX_ERROR : result;
}

}  // namespace vantix
