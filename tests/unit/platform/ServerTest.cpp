// The responses about media servers and relay servers.

#include "platform/Server.h"

#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

Json Relay(const std::string& address, int port) { return {{"addr", address}, {"port", port}}; }

/// The whole response's servers.
const Json kServers = {{"stun1Addr", "stun1.example"},
                       {"stun1Port", 3478},
                       {"stun2Addr", "stun2.example"},
                       {"stun2Port", 3479},
                       {"ttsAddr", "tts.example"},
                       {"ttsPort", 8664},
                       {"vtmAddr", "vtm.example"},
                       {"vtmPort", 8554},
                       {"authAddr", "auth.example"},
                       {"nodeJsAddr", "node.example"},
                       {"nodeJsHttpPort", 8080},
                       {"logAddr", "log.example"},
                       {"pushAddr", "push.example"},
                       {"microCloudMode", false},
                       {"pushDasDomain", "das.example"},
                       {"pushDasPort", 8666},
                       {"vtmBackups", {Relay("192.0.2.1", 8555), Relay("192.0.2.2", 8556)}}};

ServerInfo ServersBefore() {
    ServerInfo before;
    before.stun1Addr = "stun1 before";
    before.stun1Port = 11;
    before.authAddr = "auth before";
    before.microCloudMode = true;
    before.pushDasPort = 12;
    before.vtmBackups = {{"relay before", 13}};
    before.iRequestCost = 14;
    return before;
}

/// Relays come behind the one that the record had before.
std::vector<ResponseMember> RelayMembers() {
    const std::string relays = "/serverResp/vtmBackups";
    std::vector<ResponseMember> members;
    for (const auto& [element, field] :
         {std::pair<std::string, std::string>("/0/", "/vtmBackups/1/"), {"/1/", "/vtmBackups/2/"}}) {
        for (const ResponseMember& member :
             MembersOf(relays + element, field, {{"addr", TextValues}, {"port", IntValues}})) {
            members.push_back(member);
        }
    }
    members.push_back({.place = relays, .values = NoArrays, .fields = {"/vtmBackups"}});
    members.back().otherwise = Json::array({Relay("relay before", 13)});
    members.push_back({.place = relays + "/0", .values = NoObjects, .fields = {"/vtmBackups"}});
    members.back().otherwise = Json::array({Relay("relay before", 13), Relay("192.0.2.2", 8556)});
    return members;
}

ParserCase Servers() {
    ParserCase row = CaseOf("ParseServerInfoFromPlatform", ParseServerInfoFromPlatform, ServersBefore());
    row.payload = {{"serverResp", kServers}};
    row.after = kServers;
    row.after["vtmBackups"] = {Relay("relay before", 13), Relay("192.0.2.1", 8555), Relay("192.0.2.2", 8556)};
    row.after["iRequestCost"] = 14;
    row.defaults["vtmBackups"] = {Relay("relay before", 13), Relay("", 0), Relay("", 0)};
    row.lines = {"stVtmAddr.strVtmAddr = 192.0.2.1", "stVtmAddr.iVtmPort  = 8555", "stVtmAddr.strVtmAddr = 192.0.2.2",
                 "stVtmAddr.iVtmPort  = 8556"};
    row.linesWord = "ERROR";
    row.members = MembersOf("/serverResp/", "/",
                            {{"stun1Addr", TextValues},
                             {"stun1Port", IntValues},
                             {"stun2Addr", TextValues},
                             {"stun2Port", IntValues},
                             {"ttsAddr", TextValues},
                             {"ttsPort", IntValues},
                             {"vtmAddr", TextValues},
                             {"vtmPort", IntValues},
                             {"authAddr", TextValues},
                             {"nodeJsAddr", TextValues},
                             {"nodeJsHttpPort", IntValues},
                             {"logAddr", TextValues},
                             {"pushAddr", TextValues},
                             {"microCloudMode", FlagValues},
                             {"pushDasDomain", TextValues},
                             {"pushDasPort", IntValues}});
    const std::vector<ResponseMember> relays = RelayMembers();
    row.members.insert(row.members.end(), relays.begin(), relays.end());
    return row;
}

ParserCase RelayServer() {
    ParserCase row = CaseOf("ParseRealyInfoFromPlatform", ParseRealyInfoFromPlatform,
                            RelayServerInfo{.domain = "before", .port = 1, .publicKey = "key before", .version = 2});
    row.envelope = EnvelopeRuleKind::Meta;
    const Json data = {{"domain", "relay.example"}, {"port", 6800}, {"publicKey", {{"key", "04ab"}, {"version", 3}}}};
    row.payload = {{"data", data}};
    row.after = data;
    row.members = MembersOf("/data/", "/", {{"domain", TextValues}, {"port", IntValues}});
    const auto key = MembersOf("/data/publicKey/", "/publicKey/", {{"key", TextValues}, {"version", IntValues}});
    row.members.insert(row.members.end(), key.begin(), key.end());
    row.members.push_back(
        {.place = "/data/publicKey", .values = NoObjects, .fields = {"/publicKey/key", "/publicKey/version"}});
    row.members.push_back({.place = "/data",
                           .values = NoObjects,
                           .isRequired = true,
                           .line = "platform response invalid, szInfo = $body"});
    row.acceptedLine = "Platform Response, Resp:$body";
    return row;
}

INSTANTIATE_TEST_SUITE_P(Server, PlatformParser, ::testing::Values(Servers(), RelayServer()),
                         [](const auto& row) { return row.param.name; });

class ServerResponse : public testing::Test {
protected:
    CleanSwitches m_switches;
    LogCapture m_log;
};

TEST_F(ServerResponse, WithoutServersLeavesTheRecordAsItWas) {
    for (const char* body : {R"({"resultCode":"200"})", R"({"code":"0","serverResp":null})",
                             R"({"code":"0","serverResp":[{"stun1Port":1}]})", R"({"code":"0","serverResp":"{}"})"}) {
        ServerInfo info;
        info.stun1Port = 7;
        info.vtmBackups = {{"before", 1}};
        const Json before = ToJson(info);
        EXPECT_EQ(ParseServerInfoFromPlatform(body, info), 0) << body;
        EXPECT_EQ(ToJson(info), before) << body;
    }
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(ServerResponse, PortInTextAndNumberForAFlagAreIgnored) {
    ServerInfo info;
    EXPECT_EQ(ParseServerInfoFromPlatform(
                  R"({"code":"0","serverResp":{"stun1Port":"3478","microCloudMode":1,"stun2Port":3479}})", info),
              0);
    EXPECT_EQ(info.stun1Port, 0);
    EXPECT_FALSE(info.microCloudMode);
    EXPECT_EQ(info.stun2Port, 3479);
}

TEST_F(ServerResponse, RelaysThatAreNoObjectsAreSkippedAndTheOthersKeepTheirOrder) {
    ServerInfo info;
    EXPECT_EQ(ParseServerInfoFromPlatform(R"({"code":"0","serverResp":{"vtmBackups":)"
                                          R"([{"addr":"192.0.2.1","port":1},"192.0.2.9",{"port":2}]}})",
                                          info),
              0);
    ASSERT_EQ(info.vtmBackups.size(), 2U);
    EXPECT_EQ(info.vtmBackups[0].strVtmAddr, "192.0.2.1");
    EXPECT_EQ(info.vtmBackups[0].iVtmPort, 1);
    EXPECT_EQ(info.vtmBackups[1].strVtmAddr, "");
    EXPECT_EQ(info.vtmBackups[1].iVtmPort, 2);
    const std::vector<std::string> expected = {"stVtmAddr.strVtmAddr = 192.0.2.1", "stVtmAddr.iVtmPort  = 1",
                                               "stVtmAddr.strVtmAddr = ", "stVtmAddr.iVtmPort  = 2"};
    EXPECT_EQ(m_log.Messages(), expected);
}

}  // namespace
}  // namespace vantix::test
