// Requests about servers and P2P.

#include <gtest/gtest.h>

#include "PlatformCase.h"
#include "platform/P2P.h"
#include "platform/Server.h"

namespace vantix::test {
namespace {

Json ToJson(const ServerInfo& info) {
    Json json = {{"stun1Addr", info.stun1Addr},
                 {"stun1Port", info.stun1Port},
                 {"stun2Addr", info.stun2Addr},
                 {"stun2Port", info.stun2Port},
                 {"ttsAddr", info.ttsAddr},
                 {"ttsPort", info.ttsPort},
                 {"vtmAddr", info.vtmAddr},
                 {"vtmPort", info.vtmPort},
                 {"authAddr", info.authAddr},
                 {"nodeJsAddr", info.nodeJsAddr},
                 {"nodeJsHttpPort", info.nodeJsHttpPort},
                 {"logAddr", info.logAddr},
                 {"pushAddr", info.pushAddr},
                 {"microCloudMode", info.microCloudMode},
                 {"pushDasDomain", info.pushDasDomain},
                 {"pushDasPort", info.pushDasPort},
                 {"iRequestCost", info.iRequestCost}};
    json["vtmBackups"] = Json::array();
    for (const VtmAddr& backup : info.vtmBackups) {
        json["vtmBackups"].push_back({{"addr", backup.strVtmAddr}, {"port", backup.iVtmPort}});
    }
    return json;
}

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

Json ToJson(const P2PUserInfo& info) {
    return {{"userId", info.userId},
            {"data", info.data},
            {"version", info.version},
            {"saltIndex", info.saltIndex},
            {"iRequestCost", info.iRequestCost}};
}

Json ToJson(const P2PDevInfo& info) {
    Json json = {{"defaultKey", info.defaultKey},
                 {"defaultKeyVer", std::to_string(info.defaultKeyVer)},
                 {"iRequestCost", info.iRequestCost},
                 {"capability",
                  {{"V3", info.strV3},
                   {"V3Sec", info.strV3Sec},
                   {"DirectPlayback_EndFlag", info.strDirectPlayback_EndFlag},
                   {"V3Download", info.strV3Download},
                   {"V3Playback", info.strV3Playback},
                   {"V3Talk", info.strV3Talk}}}};
    json["serverInfos"] = Json::array();
    for (const P2PServerAddr& server : info.serverInfos) {
        json["serverInfos"].push_back({{"ip", server.ip}, {"port", server.port}});
    }
    return json;
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
                    output = {{"domain", relay.domain},
                              {"port", relay.port},
                              {"publicKey", {{"key", relay.publicKey}, {"version", relay.version}}}};
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
