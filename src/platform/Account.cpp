#include "platform/Account.h"

#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/ClientInfo.h"
#include "requests/RequestCall.h"

namespace vantix {

namespace requests = platform_requests;

int GetConfigInfoFromPlatform(const PlatformRoute& route, ConfigInfo& config) {
    return RequestCall<requests::kConfigInfo>(VANTIX_HERE, route).Run([&](TextView body) {
        return ParseConfigInfoFromPlatform(body, config);
    });
}

int GetUsernameFromPlatform(const PlatformRoute& route, std::string& userName) {
    return RequestCall<requests::kUsername>(VANTIX_HERE, route).Run([&](TextView body) {
        return ParseUsernameFromPlatform(body, userName);
    });
}

int GetUserIdFromPlatform(const PlatformRoute& route, std::string& userId) {
    return RequestCall<requests::kUserId>(VANTIX_HERE, route, "sdkVersion"_key = ClientInfo().sdkVersion)
        .Run([&](TextView body) { return ParseUserIdFromPlatform(body, userId); });
}

int getPushSessionIdFromPlatform(const PlatformRoute& route, std::string& pushSessionId) {
    const ClientInfo client;
    return RequestCall<requests::kPushSessionId>(VANTIX_HERE, route, "featureCode"_key = client.featureCode,
                                                 "clientType"_key = client.clientType,
                                                 "clientVersion"_key = client.clientVersion)
        .Run([&](TextView body) { return ParsePushSessionIdFromPlatform(body, pushSessionId); });
}

int getBWCheckInfoFromPlatform(const PlatformRoute& route, int type, const std::string& checkTime, int localIndex,
                               BWCheckInfo& info) {
    return RequestCall<requests::kBWCheckInfo>(VANTIX_HERE, route, "type"_key = type, "checkTime"_key = checkTime,
                                               "localIndex"_key = localIndex)
        .Run([&](TextView body) { return ParseBWCheckInfoFromPlatform(body, info); });
}

int GetTransparentMsgDetailFromPlatform(const PlatformRoute& route, const std::string& msgSeq,
                                        TransparentMsgDetail& detail) {
    const ClientInfo client;
    return RequestCall<requests::kTransparentMsg>(VANTIX_HERE, route, "clientType"_key = client.clientType,
                                                  "featureCode"_key = client.featureCode,
                                                  "osVersion"_key = client.osVersion, "netType"_key = client.netType,
                                                  "sdkVersion"_key = client.sdkVersion, "msgSeq"_key = msgSeq)
        .Run([&](TextView body) { return ParseTransparentMsgDetailFromPlatform(body, detail); });
}

int SetVideoDefinitionOnPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                 int videoLevel, std::string& response) {
    return RequestCall<requests::kSetVideoDefinition>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                                      "cameraNo"_key = cameraNo, "videoLevel"_key = videoLevel)
        .Run(Keeping(CheckResponseInfoFromPlatform, response));
}

int SetAlarmReadOnPlatform(const PlatformRoute& route, const std::string& alarmId) {
    return RequestCall<requests::kSetAlarmRead>(VANTIX_HERE, route, "alarmId"_key = alarmId)
        .Run(CheckResponseInfoFromPlatform);
}

}  // namespace vantix
