// P2P as the consumer servers tell it: the device's page, and the capability text inside it.

#include "cserver/P2P.h"

#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseP2PDevInfoFromCServer";
constexpr char kCapabilityTag[] = "ParseP2PQXDevCapFromCServer";

const std::vector<Member<P2PDevInfo>>& CapabilityRows() {
    static const std::vector<Member<P2PDevInfo>> rows = {
        {"/263", &P2PDevInfo::strV3},
        {"/264", &P2PDevInfo::strV3Sec},
        {"/267", &P2PDevInfo::strDirectPlayback_EndFlag},
        {"/289", &P2PDevInfo::strV3Download},
        {"/265", &P2PDevInfo::strV3Playback},
        {"/266", &P2PDevInfo::strV3Talk},
    };
    return rows;
}

Json Capability() {
    return Json::parse(R"({"263":"v3","264":"sec","267":"end","289":"download","265":"playback","266":"talk",
                           "V3":"not read","290":"not read"})");
}

Json Golden() {
    Json answer = Json::parse(R"({"meta":{"code":200},
        "p2pInfos":[{"ip":"p2p-1","port":2},{"ip":"p2p-3","port":4}],
        "deviceInfos":[{"deviceSerial":"X","kmsInfos":{"secretKey":"other","version":9}},
                       {"deviceSerial":"S","kmsInfos":{"secretKey":"key-5","version":6}}]})");
    answer["deviceInfos"][1]["qxDeviceCapability"] = Capability().dump();
    return answer;
}

class ConsumerP2PDevice : public ConsumerAnswer {
protected:
    int Parse(const std::string& body) {
        info = P2PDevInfo();
        info.deviceSerial = "before";
        info.defaultKey = "before";
        info.defaultKeyVer = -99;
        info.strV3 = "before";
        lines.Clear();
        return ParseP2PDevInfoFromCServer(body, "S", info);
    }
    void ExpectUntouched() const {
        EXPECT_EQ(info.deviceSerial, "before");
        EXPECT_EQ(info.defaultKey, "before");
        EXPECT_EQ(info.defaultKeyVer, -99);
        EXPECT_EQ(info.strV3, "before");
        EXPECT_TRUE(info.serverInfos.empty());
    }
    /// The line on entry, which says the detail parser's name.
    void ExpectEntryLine(const std::string& body) const {
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "ParseDevDetailInfoFromCServer = " + body));
    }
    int Fetch() {
        lines.Clear();
        return GetP2PDevInfoFromCServer({"https://c.example", "the-session", "the-app"}, "S", info);
    }

    FakeClock clock;
    ScriptedTransport transport;
    P2PDevInfo info;
};

TEST_F(ConsumerP2PDevice, EveryMemberFillsItsField) {
    EXPECT_EQ(Parse(Golden().dump()), 0);
    EXPECT_EQ(info.deviceSerial, "S");
    ASSERT_EQ(info.serverInfos.size(), 2U);
    EXPECT_EQ(info.serverInfos[0].ip, "p2p-1");
    EXPECT_EQ(info.serverInfos[0].port, 2);
    EXPECT_EQ(info.serverInfos[1].ip, "p2p-3");
    EXPECT_EQ(info.serverInfos[1].port, 4);
    EXPECT_EQ(info.defaultKey, "key-5");
    EXPECT_EQ(info.defaultKeyVer, 6);
    ExpectFilled(CapabilityRows(), Capability(), info);
    EXPECT_FALSE(info.isUpdate);
    EXPECT_EQ(info.iRequestCost, 0);
    EXPECT_EQ(lines.Lines().size(), 1U);
    ExpectEntryLine(Golden().dump());
}

TEST_F(ConsumerP2PDevice, ListsInsideDataAreReadToo) {
    Json answer = Golden();
    answer["data"] = {{"p2pInfos", answer["p2pInfos"]}, {"deviceInfos", answer["deviceInfos"]}};
    answer.erase("p2pInfos");
    answer.erase("deviceInfos");
    EXPECT_EQ(Parse(answer.dump()), 0);
    EXPECT_EQ(info.serverInfos.size(), 2U);
    EXPECT_EQ(info.defaultKey, "key-5");
}

TEST_F(ConsumerP2PDevice, KeyVersionIsANumberOrATextThatHoldsOne) {
    for (const std::string& value : OddValues()) {
        const bool isText = value[0] == '"';
        const Json before = isText ? Json(value == "\"-1\"" ? -1 : 0) : AfterReading(false, value, -99);
        EXPECT_EQ(Parse(WithValue(Golden(), "/deviceInfos/1/kmsInfos/version", value)), 0);
        EXPECT_EQ(info.defaultKeyVer, before) << value;
        EXPECT_EQ(info.defaultKey, "key-5") << value;
    }
}

TEST_F(ConsumerP2PDevice, MembersAreReadOnlyWithTheirType) {
    for (const std::string& value : OddValues()) {
        SCOPED_TRACE(value);
        EXPECT_EQ(Parse(WithValue(Golden(), "/deviceInfos/1/kmsInfos/secretKey", value)), 0);
        EXPECT_EQ(info.defaultKey, AfterReading(true, value, "before"));
        EXPECT_EQ(info.defaultKeyVer, 6);
        EXPECT_EQ(Parse(WithValue(Golden(), "/p2pInfos/0/ip", value)), 0);
        ASSERT_EQ(info.serverInfos.size(), 2U);
        EXPECT_EQ(info.serverInfos[0].ip, AfterReading(true, value, ""));
        EXPECT_EQ(info.serverInfos[0].port, 2);
        EXPECT_EQ(info.serverInfos[1].ip, "p2p-3");
        EXPECT_EQ(Parse(WithValue(Golden(), "/p2pInfos/1/port", value)), 0);
        ASSERT_EQ(info.serverInfos.size(), 2U);
        EXPECT_EQ(info.serverInfos[1].port, AfterReading(false, value, 0));
        EXPECT_EQ(info.serverInfos[1].ip, "p2p-3");
        EXPECT_EQ(Parse(WithValue(Golden(), "/deviceInfos/1/kmsInfos", value)), 0);
        EXPECT_EQ(info.defaultKey, "before");
        EXPECT_EQ(info.strV3, "v3");
    }
    for (const char* place : {"/deviceInfos/1/kmsInfos/secretKey", "/deviceInfos/1/kmsInfos/version",
                              "/deviceInfos/1/kmsInfos", "/deviceInfos/1/qxDeviceCapability", "/p2pInfos/0/ip"}) {
        EXPECT_EQ(Parse(Without(Golden(), place)), 0) << place;
        EXPECT_EQ(info.deviceSerial, "S") << place;
    }
}

TEST_F(ConsumerP2PDevice, PageWithoutTheDeviceFillsItsServersOnly) {
    Json answer = Golden();
    answer["deviceInfos"].erase(1);
    EXPECT_EQ(Parse(answer.dump()), 0);
    EXPECT_EQ(info.serverInfos.size(), 2U);
    EXPECT_EQ(info.deviceSerial, "before");
    EXPECT_EQ(info.defaultKey, "before");
    EXPECT_EQ(info.strV3, "before");
}

TEST_F(ConsumerP2PDevice, OnlyEntryWithoutASerialIsTheDevices) {
    Json answer = Golden();
    answer["deviceInfos"].erase(0);
    answer["deviceInfos"][0].erase("deviceSerial");
    EXPECT_EQ(Parse(answer.dump()), 0);
    EXPECT_EQ(info.defaultKey, "key-5");
    EXPECT_EQ(info.deviceSerial, "before");
}

TEST_F(ConsumerP2PDevice, ListsMustBeThere) {
    const struct {
        const char* place;
        const char* name;
    } rows[] = {{"/p2pInfos", "p2pInfos"}, {"/deviceInfos", "deviceInfos"}};
    for (const auto& row : rows) {
        std::vector<std::string> bodies = {Without(Golden(), row.place)};
        for (const std::string& value : OddValues()) {
            if (value[0] != '[') {
                bodies.push_back(WithValue(Golden(), row.place, value));
            }
        }
        for (const std::string& body : bodies) {
            EXPECT_EQ(Parse(body), 2) << body;
            EXPECT_EQ(lines.Lines().size(), 2U);
            EXPECT_THAT(lines.Lines(),
                        HasLine(5, "ERROR", kTag,
                                "platform response invalid, szInfo = " + body + ", " + row.name + " not exist!"));
            ExpectEntryLine(body);
            ExpectUntouched();
        }
    }
    for (const char* body : {"{}", "[]", "5", "null", "\"x\""}) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", kTag,
                            std::string("platform response invalid, szInfo = ") + body + ", p2pInfos not exist!"));
    }
    EXPECT_EQ(Parse(R"({"p2pInfos":[],"deviceInfos":[]})"), 0) << "and both may be empty";
    ExpectUntouched();
}

TEST_F(ConsumerP2PDevice, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        if (body.size() < 1000) {
            ExpectEntryLine(body);
            EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kTag, "platform response bad, szInfo = " + body));
        }
    }
    ExpectTruncationIsNoJson(Golden().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerP2PDevice, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(Golden(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(
                lines.Lines(),
                HasLine(3, "INFO ", kTag, "Platform Response Error:" + std::to_string(row.code) + ", Resp:" + body));
            ExpectUntouched();
        }
    }
    EXPECT_EQ(Parse(Without(Golden(), "/meta")), 0);
}

// ---- The capability text

TEST_F(ConsumerP2PDevice, MalformedCapabilityTextIsLoggedAndSkipped) {
    Json answer = Golden();
    answer["deviceInfos"][1]["qxDeviceCapability"] = "{\"263\":";
    EXPECT_EQ(Parse(answer.dump()), 0);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kCapabilityTag, "platform response bad, szInfo = {\"263\":"));
    EXPECT_EQ(info.strV3, "before");
    EXPECT_EQ(info.defaultKey, "key-5");
}

TEST_F(ConsumerP2PDevice, CapabilityThatIsNoTextIsSkipped) {
    for (const std::string& value : OddValues()) {
        if (value[0] != '"') {
            EXPECT_EQ(Parse(WithValue(Golden(), "/deviceInfos/1/qxDeviceCapability", value)), 0);
            EXPECT_EQ(lines.Lines().size(), 1U) << value;
            EXPECT_EQ(info.strV3, "before") << value;
        }
    }
}

TEST_F(ConsumerP2PDevice, NumbersOfCapabilitiesAreReadOnlyAsText) {
    ExpectEveryMemberOnItsOwn(CapabilityRows(), Capability(), P2PDevInfo(), [](const std::string& text) {
        P2PDevInfo fresh;
        EXPECT_EQ(ParseP2PQXDevCapFromCServer(text, fresh), 0);
        return fresh;
    });
    P2PDevInfo fresh;
    EXPECT_EQ(ParseP2PQXDevCapFromCServer(R"({"263":1})", fresh), 0);
    EXPECT_EQ(fresh.strV3, "") << "a number is no text";
}

TEST_F(ConsumerP2PDevice, CapabilityTextThatIsNoJsonGivesOne) {
    for (const std::string& text : NoJson()) {
        lines.Clear();
        EXPECT_EQ(ParseP2PQXDevCapFromCServer(text, info), 1);
        if (text.size() < 1000) {
            EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(5, "ERROR", kCapabilityTag,
                                                                 "platform response bad, szInfo = " + text)));
        }
    }
    ExpectTruncationIsNoJson(Capability().dump(),
                             [this](const std::string& text) { return ParseP2PQXDevCapFromCServer(text, info); });
    for (const char* text : {"[]", "5", "null", "\"263\"", "true"}) {
        P2PDevInfo fresh;
        EXPECT_EQ(ParseP2PQXDevCapFromCServer(text, fresh), 0) << text;
        EXPECT_EQ(Values(CapabilityRows(), fresh), Values(CapabilityRows(), P2PDevInfo())) << text;
    }
}

// ---- The request

TEST_F(ConsumerP2PDevice, RequestOnlyLogsItsCost) {
    clock.SetSteadyStep(5'000'000);
    info.iRequestCost = 77;
    transport.Respond(Golden().dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(info.iRequestCost, 77);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "GetP2PDevInfoFromCServer",
                                       "/v3/userdevices/v1/devices/pagelist CostTime: = 5 milliseconds"));
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].url,
              "https://c.example/v3/userdevices/v1/devices/pagelist?deviceSerial=S&filter=P2P,KMS");
}

TEST_F(ConsumerP2PDevice, RequestPassesFailuresOn) {
    transport.Fail(35);
    EXPECT_EQ(Fetch(), 100035);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "GetP2PDevInfoFromCServer",
                                       "ZQR TEST QX_API_B2C_GET_DEVICE_DETAIL SyncRequestHeader error:35"));
    EXPECT_FALSE(lines.Contains(kTag));
    const struct {
        const char* body;
        int code;
    } rows[] = {{"x", 1}, {"{}", 2}, {R"({"meta":{"code":401}})", 401}};
    for (const auto& row : rows) {
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), 300000 + row.code);
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "GetP2PDevInfoFromCServer",
                                           std::string("ParseDevDetailInfoFromPlatform:") + row.body +
                                               " error:" + std::to_string(row.code)));
    }
    EXPECT_FALSE(lines.Contains("the-session"));
}

}  // namespace
}  // namespace vantix::test
