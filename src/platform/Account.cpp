#include "platform/Account.h"

#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/ClientInfo.h"

namespace vantix {

namespace requests = platform_requests;

int GetConfigInfoFromPlatform(const PlatformRoute& route, ConfigInfo& config) {
    return RequestCall(VANTIX_HERE, requests::kConfigInfo, route).Run([&](const std::string& body) {
        return ParseConfigInfoFromPlatform(body, config);
    });
}

int GetUsernameFromPlatform(const PlatformRoute& route, std::string& userName) {
    return RequestCall(VANTIX_HERE, requests::kUsername, route).Run([&](const std::string& body) {
        return ParseUsernameFromPlatform(body, userName);
    });
}

int GetUserIdFromPlatform(const PlatformRoute& route, std::string& userId) {
    return RequestCall(VANTIX_HERE, requests::kUserId, route)
        .With(ClientInfo().sdkVersion)
        .Run([&](const std::string& body) { return ParseUserIdFromPlatform(body, userId); });
}

int getPushSessionIdFromPlatform(const PlatformRoute& route, std::string& pushSessionId) {
    const ClientInfo client;
    return RequestCall(VANTIX_HERE, requests::kPushSessionId, route)
        .With(client.featureCode, client.clientType, client.clientVersion)
        .Run([&](const std::string& body) { return ParsePushSessionIdFromPlatform(body, pushSessionId); });
}

int getBWCheckInfoFromPlatform(const PlatformRoute& route, int type, const std::string& checkTime, int localIndex,
                               BWCheckInfo& info) {
    return RequestCall(VANTIX_HERE, requests::kBWCheckInfo, route)
        .With(type, checkTime, localIndex)
        .Run([&](const std::string& body) { return ParseBWCheckInfoFromPlatform(body, info); });
}

int GetTransparentMsgDetailFromPlatform(const PlatformRoute& route, const std::string& msgSeq,
                                        TransparentMsgDetail& detail) {
    const ClientInfo client;
    return RequestCall(VANTIX_HERE, requests::kTransparentMsg, route)
        .With(client.clientType, client.featureCode, client.osVersion, client.netType, client.sdkVersion, msgSeq)
        .Run([&](const std::string& body) { return ParseTransparentMsgDetailFromPlatform(body, detail); });
}

int SetVideoDefinitionOnPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                 int videoLevel, std::string& answer) {
    return RequestCall(VANTIX_HERE, requests::kSetVideoDefinition, route)
        .With(deviceSerial, cameraNo, videoLevel)
        .Run(Keeping(CheckResponseInfoFromPlatform, answer));
}

int SetAlarmReadOnPlatform(const PlatformRoute& route, const std::string& alarmId) {
    return RequestCall(VANTIX_HERE, requests::kSetAlarmRead, route).With(alarmId).Run(CheckResponseInfoFromPlatform);
}

}  // namespace vantix
