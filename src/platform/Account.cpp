#include "platform/Account.h"

#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/ClientInfo.h"

namespace vantix {

namespace requests = platform_requests;

int GetConfigInfoFromPlatform(const Caller& caller, ConfigInfo& config) {
    return RequestCall(VANTIX_HERE, requests::kConfigInfo, caller).Run([&](const std::string& body) {
        return ParseConfigInfoFromPlatform(body, config);
    });
}

int GetUsernameFromPlatform(const Caller& caller, std::string& userName) {
    return RequestCall(VANTIX_HERE, requests::kUsername, caller).Run([&](const std::string& body) {
        return ParseUsernameFromPlatform(body, userName);
    });
}

int GetUserIdFromPlatform(const Caller& caller, std::string& userId) {
    return RequestCall(VANTIX_HERE, requests::kUserId, caller)
        .With(ClientInfo().sdkVersion)
        .Run([&](const std::string& body) { return ParseUserIdFromPlatform(body, userId); });
}

int getPushSessionIdFromPlatform(const Caller& caller, std::string& pushSessionId) {
    const ClientInfo client;
    return RequestCall(VANTIX_HERE, requests::kPushSessionId, caller)
        .With(client.featureCode, client.clientType, client.clientVersion)
        .Run([&](const std::string& body) { return ParsePushSessionIdFromPlatform(body, pushSessionId); });
}

int getBWCheckInfoFromPlatform(const Caller& caller, int type, const std::string& checkTime, int localIndex,
                               BWCheckInfo& info) {
    return RequestCall(VANTIX_HERE, requests::kBWCheckInfo, caller)
        .With(type, checkTime, localIndex)
        .Run([&](const std::string& body) { return ParseBWCheckInfoFromPlatform(body, info); });
}

int GetTransparentMsgDetailFromPlatform(const Caller& caller, const std::string& msgSeq, TransparentMsgDetail& detail) {
    const ClientInfo client;
    return RequestCall(VANTIX_HERE, requests::kTransparentMsg, caller)
        .With(client.clientType, client.featureCode, client.osVersion, client.netType, client.sdkVersion, msgSeq)
        .Run([&](const std::string& body) { return ParseTransparentMsgDetailFromPlatform(body, detail); });
}

int SetVideoDefinitionOnPlatform(const Caller& caller, const std::string& deviceSerial, int cameraNo, int videoLevel,
                                 std::string& answer) {
    return RequestCall(VANTIX_HERE, requests::kSetVideoDefinition, caller)
        .With(deviceSerial, cameraNo, videoLevel)
        .Run(Keeping(CheckResponseInfoFromPlatform, answer));
}

int SetAlarmReadOnPlatform(const Caller& caller, const std::string& alarmId) {
    return RequestCall(VANTIX_HERE, requests::kSetAlarmRead, caller).With(alarmId).Run(CheckResponseInfoFromPlatform);
}

}  // namespace vantix
