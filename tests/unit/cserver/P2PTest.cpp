// One device's P2P information on the consumer servers, and the capability text inside it.

#include "cserver/P2P.h"

#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr char kP2PTag[] = "ParseP2PDevInfoFromCServer";
constexpr char kCapabilityTag[] = "ParseP2PQXDevCapFromCServer";

const RecordFields<P2PDevInfo>& CapabilityRows() {
    static const RecordFields<P2PDevInfo> rows = {
        {"/263", &P2PDevInfo::strV3, "v3"},
        {"/264", &P2PDevInfo::strV3Sec, "sec"},
        {"/267", &P2PDevInfo::strDirectPlayback_EndFlag, "end"},
        {"/289", &P2PDevInfo::strV3Download, "download"},
        {"/265", &P2PDevInfo::strV3Playback, "playback"},
        {"/266", &P2PDevInfo::strV3Talk, "talk"},
    };
    return rows;
}

Json Capability() {
    return Json::parse(R"({"263":"v3","264":"sec","267":"end","289":"download","265":"playback","266":"talk",
                           "V3":"not read","290":"not read"})");
}

Json WholeP2P() {
    Json response = Json::parse(R"({"meta":{"code":200},
        "p2pInfos":[{"ip":"p2p-1","port":2},{"ip":"p2p-3","port":4}],
        "deviceInfos":[{"deviceSerial":"X","kmsInfos":{"secretKey":"other","version":9}},
                       {"deviceSerial":"S","kmsInfos":{"secretKey":"key-5","version":6}}]})");
    response["deviceInfos"][1]["qxDeviceCapability"] = Capability().dump();
    return response;
}

class ConsumerP2PDevice : public ConsumerResponse {
protected:
    int Parse(const std::string& body) {
        info = P2PDevInfo();
        info.deviceSerial = "before";
        info.defaultKey = "before";
        info.defaultKeyVer = -99;
        info.strV3 = "before";
        m_log.Clear();
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
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(3, "INFO ", kP2PTag, "ParseDevDetailInfoFromCServer = " + body)).Times(1));
    }
    int Fetch() {
        m_log.Clear();
        return GetP2PDevInfoFromCServer(Route(), "S", info);
    }

    FakeClock clock;
    ScriptedTransport transport;
    P2PDevInfo info;
};

TEST_F(ConsumerP2PDevice, EveryMemberFillsItsField) {
    EXPECT_EQ(Parse(WholeP2P().dump()), 0);
    EXPECT_EQ(info.deviceSerial, "S");
    ASSERT_EQ(info.serverInfos.size(), 2U);
    EXPECT_EQ(info.serverInfos[0].ip, "p2p-1");
    EXPECT_EQ(info.serverInfos[0].port, 2);
    EXPECT_EQ(info.serverInfos[1].ip, "p2p-3");
    EXPECT_EQ(info.serverInfos[1].port, 4);
    EXPECT_EQ(info.defaultKey, "key-5");
    EXPECT_EQ(info.defaultKeyVer, 6);
    EXPECT_EQ(ValuesOf(CapabilityRows(), info), WholeValues(CapabilityRows()));
    EXPECT_FALSE(info.isUpdate);
    EXPECT_EQ(info.iRequestCost, 0);
    EXPECT_EQ(m_log.Lines().size(), 1U);
    ExpectEntryLine(WholeP2P().dump());
}

TEST_F(ConsumerP2PDevice, ListsInsideDataAreReadToo) {
    Json response = WholeP2P();
    response["data"] = {{"p2pInfos", response["p2pInfos"]}, {"deviceInfos", response["deviceInfos"]}};
    response.erase("p2pInfos");
    response.erase("deviceInfos");
    EXPECT_EQ(Parse(response.dump()), 0);
    EXPECT_EQ(info.serverInfos.size(), 2U);
    EXPECT_EQ(info.defaultKey, "key-5");
}

TEST_F(ConsumerP2PDevice, KeyVersionIsAnInteger) {
    for (const MemberValue& value : IntValues()) {
        EXPECT_EQ(Parse(WithValue(WholeP2P(), "/deviceInfos/1/kmsInfos/version", value.sent)), 0);
        EXPECT_EQ(Json(info.defaultKeyVer), value.taken == nullptr ? Json(-99) : Json::parse(value.taken))
            << value.sent;
        EXPECT_EQ(info.defaultKey, "key-5") << value.sent;
    }
}

TEST_F(ConsumerP2PDevice, MembersAreReadOnlyWithTheirType) {
    for (const MemberValue& value : TextValues()) {
        SCOPED_TRACE(value.sent);
        EXPECT_EQ(Parse(WithValue(WholeP2P(), "/deviceInfos/1/kmsInfos/secretKey", value.sent)), 0);
        EXPECT_EQ(Json(info.defaultKey), value.taken == nullptr ? Json("before") : Json::parse(value.taken));
        EXPECT_EQ(info.defaultKeyVer, 6);
        EXPECT_EQ(Parse(WithValue(WholeP2P(), "/p2pInfos/0/ip", value.sent)), 0);
        ASSERT_EQ(info.serverInfos.size(), 2U);
        EXPECT_EQ(Json(info.serverInfos[0].ip), value.taken == nullptr ? Json("") : Json::parse(value.taken));
        EXPECT_EQ(info.serverInfos[0].port, 2);
        EXPECT_EQ(info.serverInfos[1].ip, "p2p-3");
    }
    for (const MemberValue& value : IntValues()) {
        SCOPED_TRACE(value.sent);
        EXPECT_EQ(Parse(WithValue(WholeP2P(), "/p2pInfos/1/port", value.sent)), 0);
        ASSERT_EQ(info.serverInfos.size(), 2U);
        EXPECT_EQ(Json(info.serverInfos[1].port), value.taken == nullptr ? Json(0) : Json::parse(value.taken));
        EXPECT_EQ(info.serverInfos[1].ip, "p2p-3");
    }
    for (const MemberValue& value : NoObjects()) {
        EXPECT_EQ(Parse(WithValue(WholeP2P(), "/deviceInfos/1/kmsInfos", value.sent)), 0);
        EXPECT_EQ(info.defaultKey, "before");
        EXPECT_EQ(info.defaultKeyVer, -99);
        EXPECT_EQ(info.strV3, "v3");
    }
    for (const char* place : {"/deviceInfos/1/kmsInfos/secretKey", "/deviceInfos/1/kmsInfos/version",
                              "/deviceInfos/1/kmsInfos", "/deviceInfos/1/qxDeviceCapability", "/p2pInfos/0/ip"}) {
        EXPECT_EQ(Parse(Without(WholeP2P(), place)), 0) << place;
        EXPECT_EQ(info.deviceSerial, "S") << place;
    }
}

TEST_F(ConsumerP2PDevice, ResponseWithoutTheDeviceFillsItsServersOnly) {
    Json response = WholeP2P();
    response["deviceInfos"].erase(1);
    EXPECT_EQ(Parse(response.dump()), 0);
    EXPECT_EQ(info.serverInfos.size(), 2U);
    EXPECT_EQ(info.deviceSerial, "before");
    EXPECT_EQ(info.defaultKey, "before");
    EXPECT_EQ(info.strV3, "before");
}

TEST_F(ConsumerP2PDevice, OnlyEntryWithoutASerialIsTheDevices) {
    Json response = WholeP2P();
    response["deviceInfos"].erase(0);
    response["deviceInfos"][0].erase("deviceSerial");
    EXPECT_EQ(Parse(response.dump()), 0);
    EXPECT_EQ(info.defaultKey, "key-5");
    EXPECT_EQ(info.deviceSerial, "before");
}

TEST_F(ConsumerP2PDevice, ListsMustBeThere) {
    const struct {
        const char* place;
        const char* name;
    } rows[] = {{"/p2pInfos", "p2pInfos"}, {"/deviceInfos", "deviceInfos"}};
    for (const auto& row : rows) {
        std::vector<std::string> bodies = {Without(WholeP2P(), row.place)};
        for (const MemberValue& value : NoArrays()) {
            bodies.push_back(WithValue(WholeP2P(), row.place, value.sent));
        }
        for (const std::string& body : bodies) {
            EXPECT_EQ(Parse(body), 2) << body;
            EXPECT_EQ(m_log.Lines().size(), 2U);
            EXPECT_THAT(m_log.Lines(),
                        Contains(Line(5, "ERROR", kP2PTag,
                                      "platform response invalid, szInfo = " + body + ", " + row.name + " not exist!"))
                            .Times(1));
            ExpectEntryLine(body);
            ExpectUntouched();
        }
    }
    for (const char* body : {"{}", "[]", "5", "null", "\"x\""}) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(5, "ERROR", kP2PTag,
                                  std::string("platform response invalid, szInfo = ") + body + ", p2pInfos not exist!"))
                        .Times(1));
    }
    EXPECT_EQ(Parse(R"({"p2pInfos":[],"deviceInfos":[]})"), 0) << "and both may be empty";
    ExpectUntouched();
}

TEST_F(ConsumerP2PDevice, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        ExpectEntryLine(body);
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(5, "ERROR", kP2PTag, "platform response bad, szInfo = " + body)).Times(1));
    }
    EXPECT_EQ(Parse(TooDeep()), 1);
    ExpectTruncationIsNoJson(WholeP2P().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerP2PDevice, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(WholeP2P(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kP2PTag, row.line + body)).Times(1));
            ExpectUntouched();
        }
    }
    EXPECT_EQ(Parse(Without(WholeP2P(), "/meta")), 0);
}

// ---- The capability text

TEST_F(ConsumerP2PDevice, MalformedCapabilityTextIsLoggedAndSkipped) {
    Json response = WholeP2P();
    response["deviceInfos"][1]["qxDeviceCapability"] = "{\"263\":";
    EXPECT_EQ(Parse(response.dump()), 0);
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(5, "ERROR", kCapabilityTag, "platform response bad, szInfo = {\"263\":")).Times(1));
    EXPECT_EQ(info.strV3, "before");
    EXPECT_EQ(info.defaultKey, "key-5");
}

TEST_F(ConsumerP2PDevice, CapabilityThatIsNoTextIsSkipped) {
    for (const MemberValue& value : NoTexts()) {
        EXPECT_EQ(Parse(WithValue(WholeP2P(), "/deviceInfos/1/qxDeviceCapability", value.sent)), 0);
        EXPECT_EQ(m_log.Lines().size(), 1U) << value.sent;
        EXPECT_EQ(info.strV3, "before") << value.sent;
    }
}

TEST_F(ConsumerP2PDevice, NumbersOfCapabilitiesAreReadOnlyAsText) {
    ExpectEachFieldOnItsOwn(CapabilityRows(), Capability(), P2PDevInfo(), IntValues(), [](const std::string& text) {
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
        m_log.Clear();
        EXPECT_EQ(ParseP2PQXDevCapFromCServer(text, info), 1);
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kCapabilityTag, "platform response bad, szInfo = " + text)));
    }
    ExpectTruncationIsNoJson(Capability().dump(),
                             [this](const std::string& text) { return ParseP2PQXDevCapFromCServer(text, info); });
    for (const char* text : {"[]", "5", "null", "\"263\"", "true"}) {
        P2PDevInfo fresh;
        EXPECT_EQ(ParseP2PQXDevCapFromCServer(text, fresh), 0) << text;
        for (const auto& row : CapabilityRows()) {
            EXPECT_EQ(row.Of(fresh), "") << text;
        }
    }
}

// ---- The request

TEST_F(ConsumerP2PDevice, RequestOnlyLogsItsCost) {
    clock.SetSteadyStep(5'000'000);
    info.iRequestCost = 77;
    transport.Respond(WholeP2P().dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(info.iRequestCost, 77);
    EXPECT_EQ(info.defaultKey, "key-5");
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", "GetP2PDevInfoFromCServer",
                                             "/v3/userdevices/v1/devices/pagelist CostTime: = 5 milliseconds"))
                                   .Times(1));
}

TEST_F(ConsumerP2PDevice, RequestPassesFailuresOn) {
    for (const auto& [body, result] : {std::pair("x", 300001), {"{}", 300002}, {R"({"meta":{"code":401}})", 300401}}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), result) << body;
    }
    EXPECT_FALSE(m_log.Contains("the-session"));
}

}  // namespace
}  // namespace vantix::test
