// The responses about P2P: the user's identity, and one device's.

#include "platform/P2P.h"

#include "support/LineMatcher.h"
#include "support/PlatformRecords.h"
#include "unit/platform/ParserCase.h"

namespace vantix::test {
namespace {

constexpr char kInvalidP2P[] = "platform response invalid, szInfo = $body";

/// The objects that both responses need. The code stands in "result", so a response without that has no code either.
void NeedsResultAndData(ParserCase& row) {
    row.members.push_back({.place = "/result/data", .values = NoObjects, .isRequired = true, .line = kInvalidP2P});
    row.members.push_back({.place = "/result",
                           .values = NoObjects,
                           .isRequired = true,
                           .line = "Platform Response Error:$code, Resp:$body",
                           .word = "INFO "});
}

ParserCase User() {
    ParserCase row = CaseOf(
        "ParseP2PUserInfo", ParseP2PUserInfo,
        P2PUserInfo{.userId = "before", .data = "secret before", .version = 1, .saltIndex = 2, .iRequestCost = 3});
    const Json data = {{"userId", "u-1"}, {"data", "secret"}, {"version", 4}, {"saltIndex", 5}};
    row.payload = {{"result", {{"data", data}}}};
    row.after = data;
    row.after["iRequestCost"] = 3;
    row.members =
        MembersOf("/result/data/", "/",
                  {{"userId", TextValues}, {"data", TextValues}, {"version", IntValues}, {"saltIndex", IntValues}});
    NeedsResultAndData(row);
    return row;
}

const Json kCapabilities = {{"V3", "1"},         {"V3Sec", "2"},      {"DirectPlayback_EndFlag", "3"},
                            {"V3Download", "4"}, {"V3Playback", "5"}, {"V3Talk", "6"}};

P2PDevInfo DeviceBefore() {
    P2PDevInfo info;
    info.serverInfos = {{"ip before", 1}};
    info.defaultKey = "key before";
    info.defaultKeyVer = 2;
    info.strV3 = "v3 before";
    info.strV3Talk = "talk before";
    return info;
}

Json Server(const std::string& ip, int port) { return {{"ip", ip}, {"port", port}}; }

ParserCase Device() {
    ParserCase row = CaseOf("ParseP2PDevInfo", ParseP2PDevInfo, DeviceBefore());
    row.payload = {{"result",
                    {{"data",
                      {{"serverInfos", {Server("192.0.2.1", 10), Server("192.0.2.2", 20)}},
                       {"defaultKey", "key"},
                       {"defaultKeyVer", "7"},
                       {"qxDeviceCapability", kCapabilities.dump()}}}}}};
    row.after = {{"serverInfos", {Server("ip before", 1), Server("192.0.2.1", 10), Server("192.0.2.2", 20)}},
                 {"defaultKey", "key"},
                 {"defaultKeyVer", 7},
                 {"capability", kCapabilities},
                 {"iRequestCost", 0}};
    row.defaults["serverInfos"] = {Server("ip before", 1), Server("", 0), Server("", 0)};
    row.members = MembersOf("/result/data/", "/", {{"defaultKey", TextValues}, {"defaultKeyVer", DecimalTextValues}});
    for (const std::string at : {"0", "1"}) {
        const std::string field = "/serverInfos/" + std::to_string(std::stoi(at) + 1);
        row.members.push_back({.place = "/result/data/serverInfos/" + at + "/ip", .fields = {field + "/ip"}});
        row.members.push_back(
            {.place = "/result/data/serverInfos/" + at + "/port", .values = IntValues, .fields = {field + "/port"}});
        // One of another kind has neither.
        row.members.push_back({.place = "/result/data/serverInfos/" + at,
                               .values = NoObjects,
                               .fields = {field + "/ip", field + "/port"}});
    }
    row.members.push_back({.place = "/result/data/serverInfos", .values = NoArrays, .fields = {"/serverInfos"}});
    row.members.back().otherwise = Json::array({Server("ip before", 1)});
    row.members.push_back({.place = "/result/data/qxDeviceCapability", .values = NoTexts});
    for (const auto& [key, value] : kCapabilities.items()) {
        row.members.back().fields.push_back("/capability/" + key);
    }
    NeedsResultAndData(row);
    return row;
}

ParserCase Capabilities() {
    ParserCase row = CaseOf("ParseP2PQXDevCap", ParseP2PQXDevCap, DeviceBefore());
    row.envelope = EnvelopeRuleKind::None;
    row.payload = kCapabilities;
    row.after = row.before;
    row.after["capability"] = kCapabilities;
    for (const auto& [key, value] : kCapabilities.items()) {
        row.members.push_back({.place = "/" + key, .fields = {"/capability/" + key}});
    }
    return row;
}

INSTANTIATE_TEST_SUITE_P(P2P, PlatformParser, ::testing::Values(User(), Device(), Capabilities()),
                         [](const auto& row) { return row.param.name; });

class P2PResponse : public testing::Test {
protected:
    /// Reads a device with these members.
    int Read(const Json& data) {
        info = DeviceBefore();
        m_log.Clear();
        return ParseP2PDevInfo(Json{{"resultCode", "200"}, {"result", {{"data", data}}}}.dump(), info);
    }

    CleanSwitches m_switches;
    LogCapture m_log;
    P2PDevInfo info;
};

TEST_F(P2PResponse, ResultAndDataMustBeObjectsWhereverTheCodeStands) {
    P2PUserInfo user;
    for (const char* body : {R"({"code":"200"})", R"({"code":"200","result":null})", R"({"code":"200","result":"x"})",
                             R"({"code":"200","result":[]})", R"({"code":"200","result":{}})",
                             R"({"code":"200","result":{"data":null}})", R"({"code":"200","result":{"data":"{}"}})",
                             R"({"code":"200","result":{"data":[]}})", R"({"code":"200","data":{}})"}) {
        SCOPED_TRACE(body);
        m_log.Clear();
        EXPECT_EQ(ParseP2PUserInfo(body, user), 2);
        EXPECT_EQ(ParseP2PDevInfo(body, info), 2);
        EXPECT_EQ(m_log.Count(std::string("platform response invalid, szInfo = ") + body), 2U);
    }
}

TEST_F(P2PResponse, VersionOfTheKeyIsTheNumberInItsText) {
    for (const auto& [text, number] : {std::pair("abc", 0),
                                       {"", 0},
                                       {" 12 or so", 12},
                                       {"-3", -3},
                                       {"99999999999", 2147483647},
                                       {"-99999999999", -2147483647 - 1}}) {
        EXPECT_EQ(Read({{"defaultKeyVer", text}}), 0);
        EXPECT_EQ(info.defaultKeyVer, number) << text;
    }
    EXPECT_EQ(Read({{"defaultKeyVer", 5}}), 0);
    EXPECT_EQ(info.defaultKeyVer, 2) << "a number is no text";
}

TEST_F(P2PResponse, CapabilitiesThatAreNoJsonAreLoggedAndTheRestIsKept) {
    EXPECT_EQ(Read({{"defaultKey", "key"}, {"qxDeviceCapability", "{\"V3\":"}}), 0);
    EXPECT_EQ(info.defaultKey, "key");
    EXPECT_EQ(info.strV3, "v3 before");
    EXPECT_THAT(m_log.Lines(),
                testing::ElementsAre(Line(5, "ERROR", "ParseP2PQXDevCap", "platform response bad, szInfo = {\"V3\":")));
}

TEST_F(P2PResponse, CapabilitiesComeAsTextAlone) {
    EXPECT_EQ(Read({{"qxDeviceCapability", {{"V3", "1"}}}}), 0);
    EXPECT_EQ(info.strV3, "v3 before");
    EXPECT_EQ(Read({{"qxDeviceCapability", R"({"V3":"1","V3Talk":6})"}}), 0);
    EXPECT_EQ(info.strV3, "1");
    EXPECT_EQ(info.strV3Talk, "talk before");
    EXPECT_TRUE(m_log.Lines().empty());
}

}  // namespace
}  // namespace vantix::test
