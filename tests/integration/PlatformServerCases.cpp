// Requests about servers and P2P.

#include <gtest/gtest.h>

#include <string>

#include "PlatformCase.h"
#include "platform/P2P.h"
#include "platform/Server.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

ServerInfo ServersBefore() {
    ServerInfo info;
    info.stun1Addr = "before";
    info.microCloudMode = true;
    info.vtmBackups.push_back({"before", 1});
    return info;
}

void ExpectServers(const Json& output, Json servers) {
    servers["iRequestCost"] = kCost;
    // Relays are appended to those that the record had.
    const Json before = {{"addr", "before"}, {"port", 1}};
    servers["vtmBackups"].insert(servers["vtmBackups"].begin(), before);
    EXPECT_EQ(output, servers);
}

PlatformCase ServersOfTheAccount() {
    return {.name = "Servers",
            .function = "GetServerInfoFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/service/media/server/info",
            .parameters = WithClient({{"appKey", "$key"}, {"version", "2.0"}}),
            .call =
                [](const Caller& caller, Json& output) {
                    ServerInfo info = ServersBefore();
                    const int result = GetServerInfoFromPlatform(caller, info);
                    output = ToJson(info);
                    return result;
                },
            .expect = [](const Json& output,
                         const SimulatorClient& cloud) { ExpectServers(output, cloud.Get("/account").at("servers")); },
            .parser = "ParseServerInfoFromPlatform",
            .label = "ParseServerInfoFromPlatform",
            .cost = "/api/service/media/server/info"};
}

PlatformCase ServersOfADevice() {
    PlatformCase row = ServersOfTheAccount();
    row.name = "ServersOfADevice";
    row.transport = "SyncRequestHeaderPost";
    row.parameters.emplace_back("deviceSerial", "R20000016");
    row.parameters.emplace_back("localIndex", "4");
    row.transportFailure = "SyncRequestHeader error:";
    row.call = [](const Caller& caller, Json& output) {
        ServerInfo info = ServersBefore();
        const int result = GetServerInfoFromPlatform(caller, "R20000016", 4, info);
        output = ToJson(info);
        return result;
    };
    return row;
}

PlatformCase RelayServer() {
    return {.name = "RelayServer",
            .function = "GetRelayServerInfoFromPlatform",
            .transport = "SyncRequestHeader",
            .path = "/api/service/media/streaming/relay/server",
            .parameters = {{"deviceSerial", "R20000016"}, {"channelNo", "2"}, {"accessToken", "$token"}},
            .call =
                [](const Caller& caller, Json& output) {
                    RelayServerInfo relay;
                    relay.domain = "before";
                    const int result = GetRelayServerInfoFromPlatform(caller, "R20000016", 2, relay);
                    output = ToJson(relay);
                    return result;
                },
            .expect = [](const Json& output,
                         const SimulatorClient& cloud) { EXPECT_EQ(output, cloud.Get("/account").at("relayServer")); },
            .parser = "ParseRealyInfoFromPlatform",
            .label = "ParseRealyInfoFromPlatform",
            .transportFailure = "SyncRequestHeader error:"};
}

PlatformCase P2PUser() {
    return {.name = "P2PUser",
            .function = "GetP2PUserInfoFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/sdk/p2p/user/info/get",
            .parameters = WithClient({}),
            .call =
                [](const Caller& caller, Json& output) {
                    P2PUserInfo info;
                    info.userId = "before";
                    const int result = GetP2PUserInfoFromPlatform(caller, info);
                    output = ToJson(info);
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    const Json account = cloud.Get("/account");
                    Json user = account.at("p2pUser");
                    user["userId"] = account.at("userId");
                    user["iRequestCost"] = kCost;
                    EXPECT_EQ(output, user);
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "CheckResponseInfoFromPlatform",
            .cost = "//api/sdk/p2p/user/info/get",
            .parserLogsCode = false};
}

PlatformCase P2PDevice() {
    return {.name = "P2PDevice",
            .function = "GetP2PDevInfoFromPlatform",
            .transport = "SyncRequest",
            .path = "/api/sdk/p2p/dev/info/get",
            .parameters = WithClient({{"deviceSerial", "C10000001"}}),
            .call =
                [](const Caller& caller, Json& output) {
                    P2PDevInfo info;
                    info.defaultKey = "before";
                    const int result = GetP2PDevInfoFromPlatform(caller, "C10000001", info);
                    output = ToJson(info);
                    return result;
                },
            .expect =
                [](const Json& output, const SimulatorClient& cloud) {
                    Json p2p = cloud.Device("C10000001").at("p2p");
                    p2p.erase("secretKey");
                    p2p.erase("keyVersion");
                    p2p["defaultKeyVer"] = std::stoi(p2p.at("defaultKeyVer").get<std::string>());
                    p2p["iRequestCost"] = kCost;
                    EXPECT_EQ(output, p2p);
                },
            .parser = "CheckResponseInfoFromPlatform",
            .label = "CheckResponseInfoFromPlatform",
            .cost = "/api/sdk/p2p/dev/info/get",
            .parserLogsCode = false};
}

}  // namespace

std::vector<PlatformCase> ServerCases() {
    return {ServersOfTheAccount(), ServersOfADevice(), RelayServer(), P2PUser(), P2PDevice()};
}

}  // namespace vantix::test
