#pragma once

/// @file
/// Every fetch that either server family may respond to, as rows: the same rules hold for all of them.

#include <future>
#include <initializer_list>
#include <string>
#include <vector>

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace fetches {

inline int Wait(int result, std::future<int32_t>& future) { return future.valid() ? future.get() : result; }

/// Shared and own devices are asked for with their tokens.
inline std::string DeviceOf(const std::string& token) { return token.rfind("shared", 0) == 0 ? "SHARED" : "OWN"; }

inline int ServersInBackground(CVantixDataCenter& core, const std::string& token, bool retried) {
    ServerInfo servers;
    std::future<int32_t> future;
    const int result = core.getServerInfo(token, servers, future, retried);
    return Wait(result, future);
}

inline int Servers(CVantixDataCenter& core, const std::string& token, bool retried) {
    ServerInfo servers;
    return core.getServerInfo(token, servers, retried);
}

inline int UserInBackground(CVantixDataCenter& core, const std::string& token, bool retried) {
    P2PUserInfo user;
    std::future<int32_t> future;
    const int result = core.getP2PUserInfo(user, token, future, retried);
    return Wait(result, future);
}

inline int User(CVantixDataCenter& core, const std::string& token, bool retried) {
    P2PUserInfo user;
    return core.getP2PUserInfo(token, user, retried);
}

inline int DeviceInBackground(CVantixDataCenter& core, const std::string& token, bool) {
    P2PDevInfo device;
    std::future<int32_t> future;
    const int result = core.getP2PDevInfo(device, token, DeviceOf(token), future);
    return Wait(result, future);
}

inline int DeviceBySerial(CVantixDataCenter& core, const std::string& token, bool retried) {
    P2PDevInfo device;
    return core.getP2PDevInfo(device, token, DeviceOf(token), retried);
}

inline int DeviceByChannel(CVantixDataCenter& core, const std::string& token, bool retried) {
    P2PDevInfo device;
    return core.getP2PDevInfo(DeviceOf(token), 1, token, device, retried);
}

inline int StreamTokens(CVantixDataCenter& core, const std::string& token, bool retried) {
    std::string response;
    return core.getStreamTokens(token, 10, response, retried);
}

inline constexpr char kServerPath[] = "/api/service/media/server/info";
inline constexpr char kUserPath[] = "/api/sdk/p2p/user/info/get";
inline constexpr char kDevicePath[] = "/api/sdk/p2p/dev/info/get";
inline constexpr char kConsumerServerPath[] = "/v3/configurations/system/info";
inline constexpr char kConsumerUserPath[] = "/v3/users/info";
inline constexpr char kConsumerDevicePath[] = "/v3/userdevices/v1/devices/pagelist";

}  // namespace fetches

/// One fetch that either family may respond to, as a row.
struct Fetch {
    const char* name;
    int (*call)(CVantixDataCenter& core, const std::string& token, bool retried);
    const char* platformPath;
    const char* platformBody;
    const char* consumerPath;
    std::vector<const char*> consumerBodies;
    bool isInBackground = false;
    bool hasDomainByToken = true;
    bool sendsGivenToken = false;
    bool seesSessionEnd = true;
    bool takesRetried = true;
};

inline std::vector<Fetch> AllFetches() {
    Fetch servers{.name = "ServerInfoSync",
                  .call = fetches::Servers,
                  .platformPath = fetches::kServerPath,
                  .platformBody = kPlatformServers,
                  .consumerPath = fetches::kConsumerServerPath,
                  .consumerBodies = {kConsumerServers}};
    Fetch serversInBackground = servers;
    serversInBackground.name = "ServerInfoAsync";
    serversInBackground.call = fetches::ServersInBackground;
    serversInBackground.isInBackground = true;
    Fetch user{.name = "P2PUserByToken",
               .call = fetches::User,
               .platformPath = fetches::kUserPath,
               .platformBody = kPlatformUser,
               .consumerPath = fetches::kConsumerUserPath,
               .consumerBodies = {kConsumerUser, kConsumerSecret},
               .seesSessionEnd = false};
    Fetch userInBackground = user;
    userInBackground.name = "P2PUserAsync";
    userInBackground.call = fetches::UserInBackground;
    userInBackground.isInBackground = true;
    Fetch device{.name = "P2PDeviceBySerial",
                 .call = fetches::DeviceBySerial,
                 .platformPath = fetches::kDevicePath,
                 .platformBody = kPlatformDevice,
                 .consumerPath = fetches::kConsumerDevicePath,
                 .consumerBodies = {kConsumerDevice},
                 .hasDomainByToken = false};
    Fetch deviceByChannel = device;
    deviceByChannel.name = "P2PDeviceByChannel";
    deviceByChannel.call = fetches::DeviceByChannel;
    Fetch deviceInBackground = device;
    deviceInBackground.name = "P2PDeviceAsync";
    deviceInBackground.call = fetches::DeviceInBackground;
    deviceInBackground.isInBackground = true;
    deviceInBackground.takesRetried = false;
    Fetch tokens{.name = "StreamTokens",
                 .call = fetches::StreamTokens,
                 .platformPath = "/api/user/token",
                 .platformBody = kTokenBatch,
                 .consumerPath = "/api/user/token/get",
                 .consumerBodies = {"anything"},
                 .sendsGivenToken = true,
                 .seesSessionEnd = false};
    return {servers, serversInBackground, user, userInBackground, device, deviceByChannel, deviceInBackground, tokens};
}

/// Those that have all of these properties.
inline std::vector<Fetch> FetchesWith(std::initializer_list<bool Fetch::*> properties) {
    std::vector<Fetch> rows = AllFetches();
    for (bool Fetch::*property : properties) {
        std::erase_if(rows, [&](const Fetch& fetch) { return !(fetch.*property); });
    }
    return rows;
}

/// A case that holds for each fetch of a table.
class FetchRowTest : public FetchTest, public testing::WithParamInterface<Fetch> {
protected:
    int Call(const std::string& token, bool retried = false) { return GetParam().call(core, token, retried); }
    void RespondByConsumer() {
        for (const char* response : GetParam().consumerBodies) {
            transport.Respond(response);
        }
    }
    std::string AtPlatform() const { return "https://b.example" + std::string(GetParam().platformPath); }
    std::string AtConsumer() const { return "https://c.example" + std::string(GetParam().consumerPath); }
    std::string SentToken(const std::string& given) const {
        return GetParam().sendsGivenToken ? given : "access-token";
    }
    void EnterB2C() {
        core.setPermissionMode(2);
        core.setSharedAccessToken("shared-by-token");
    }
};

inline std::string NameOfFetch(const testing::TestParamInfo<Fetch>& row) { return row.param.name; }

}  // namespace vantix::test
