// The media servers: "systemConfigInfo" and the fields that it fills, and the request for it.

#include "cserver/Server.h"

#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr char kServerTag[] = "ParseServerInfoFromCServer";

const RecordFields<ServerInfo>& ServerRows() {
    static const RecordFields<ServerInfo> rows = {
        {"/systemConfigInfo/stun1Addr", &ServerInfo::stun1Addr, "stun-1"},
        {"/systemConfigInfo/stun1Port", &ServerInfo::stun1Port, 2},
        {"/systemConfigInfo/stun2Addr", &ServerInfo::stun2Addr, "stun-3"},
        {"/systemConfigInfo/stun2Port", &ServerInfo::stun2Port, 4},
        {"/systemConfigInfo/ttsAddr", &ServerInfo::ttsAddr, "tts-5"},
        {"/systemConfigInfo/ttsPort", &ServerInfo::ttsPort, 6},
        {"/systemConfigInfo/vtmAddr", &ServerInfo::vtmAddr, "vtm-7"},
        {"/systemConfigInfo/vtmPort", &ServerInfo::vtmPort, 8},
        {"/systemConfigInfo/authAddr", &ServerInfo::authAddr, "auth-9"},
        {"/systemConfigInfo/nodeJsAddr", &ServerInfo::nodeJsAddr, "node-10"},
        {"/systemConfigInfo/nodeJsHttpPort", &ServerInfo::nodeJsHttpPort, 11},
        {"/systemConfigInfo/pushAddr", &ServerInfo::pushAddr, "push-12"},
        {"/systemConfigInfo/pushDasDomain", &ServerInfo::pushDasDomain, "das-13"},
        {"/systemConfigInfo/pushDasPort", &ServerInfo::pushDasPort, 14},
    };
    return rows;
}

Json WholeServer() {
    return Json::parse(R"({"meta":{"code":200},"systemConfigInfo":{
        "stun1Addr":"stun-1","stun1Port":2,"stun2Addr":"stun-3","stun2Port":4,"ttsAddr":"tts-5","ttsPort":6,
        "vtmAddr":"vtm-7","vtmPort":8,"authAddr":"auth-9","nodeJsAddr":"node-10","nodeJsHttpPort":11,
        "pushAddr":"push-12","pushDasDomain":"das-13","pushDasPort":14,
        "logAddr":"not read","microCloudMode":true,"vtmBackups":[{"addr":"not read","port":15}]}})");
}

ServerInfo ServerBefore() {
    ServerInfo info;
    for (const auto& row : ServerRows()) {
        row.Set(info, row.IsText() ? Json("before") : Json(-99));
    }
    info.logAddr = "before";
    info.microCloudMode = false;
    info.vtmBackups = {{"before", 1}};
    info.iRequestCost = 77;
    return info;
}

class ConsumerServers : public ConsumerResponse {
protected:
    int Parse(const std::string& body) {
        info = ServerBefore();
        m_log.Clear();
        return ParseServerInfoFromCServer(body, info);
    }
    int Fetch() {
        m_log.Clear();
        return GetServerInfoFromCServer(Route(), info);
    }
    void ExpectUntouched() const {
        for (const auto& row : ServerRows()) {
            EXPECT_EQ(row.Of(info), row.IsText() ? Json("before") : Json(-99)) << row.place;
        }
    }

    FakeClock clock;
    ScriptedTransport transport;
    ServerInfo info = ServerBefore();
};

TEST_F(ConsumerServers, EveryMemberFillsItsField) {
    EXPECT_EQ(Parse(WholeServer().dump()), 0);
    EXPECT_EQ(ValuesOf(ServerRows(), info), WholeValues(ServerRows()));
    EXPECT_TRUE(m_log.Lines().empty());
}

TEST_F(ConsumerServers, WhatThisFamilyDoesNotSendIsKept) {
    EXPECT_EQ(Parse(WholeServer().dump()), 0);
    EXPECT_EQ(info.logAddr, "before");
    EXPECT_FALSE(info.microCloudMode);
    ASSERT_EQ(info.vtmBackups.size(), 1U);
    EXPECT_EQ(info.vtmBackups[0].strVtmAddr, "before");
    EXPECT_EQ(info.iRequestCost, 77);
}

TEST_F(ConsumerServers, MembersAreReadOnlyWithTheirType) {
    ExpectEachFieldOnItsOwn(ServerRows(), WholeServer(), ServerBefore(), IntValues(), [this](const std::string& body) {
        EXPECT_EQ(Parse(body), 0);
        return info;
    });
}

TEST_F(ConsumerServers, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kServerTag, "platform response bad, szInfo = " + body)));
    }
    ExpectTruncationIsNoJson(WholeServer().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerServers, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        SCOPED_TRACE(row.meta);
        const std::string body = WithValue(WholeServer(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code);
        if (row.code != 0) {
            EXPECT_THAT(m_log.Lines(), ElementsAre(Line(3, "INFO ", kServerTag, row.line + body)));
            ExpectUntouched();
        }
    }
    EXPECT_EQ(Parse(Without(WholeServer(), "/meta")), 0) << "a response without an envelope";
    EXPECT_EQ(ValuesOf(ServerRows(), info), WholeValues(ServerRows()));
}

TEST_F(ConsumerServers, ConfigurationMustBeThere) {
    std::vector<std::string> bodies = {"{}",
                                       "[]",
                                       "5",
                                       "null",
                                       "\"x\"",
                                       Without(WholeServer(), "/systemConfigInfo"),
                                       R"({"data":{"systemConfigInfo":{}}})"};
    for (const MemberValue& value : NoObjects()) {
        bodies.push_back(WithValue(WholeServer(), "/systemConfigInfo", value.sent));
    }
    for (const std::string& body : bodies) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(),
                    ElementsAre(Line(5, "ERROR", kServerTag, "platform response invalid, szInfo = " + body)));
        ExpectUntouched();
    }
    EXPECT_EQ(Parse(R"({"systemConfigInfo":{}})"), 0) << "and nothing in it need be";
    ExpectUntouched();
}

TEST_F(ConsumerServers, RequestStoresItsCostWhateverTheOutcome) {
    clock.SetSteadyStep(4'999'999);
    transport.Respond(WholeServer().dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(info.iRequestCost, 4);
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", "GetServerInfoFromCServer",
                                             "v3/configurations/system/info CostTime: = 4 milliseconds"))
                                   .Times(1));
    clock.SetSteadyStep(6'000'000);
    transport.Fail(28);
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_EQ(info.iRequestCost, 6);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", "GetServerInfoFromCServer", "SyncRequest error:28")).Times(1));
    EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", "GetServerInfoFromCServer",
                                             "v3/configurations/system/info CostTime: = 6 milliseconds"))
                                   .Times(1));
}

TEST_F(ConsumerServers, RefusedResponseLeavesTheRecord) {
    for (const auto& [body, result] : {std::pair("", 300001), {"{}", 300002}, {R"({"meta":{"code":401}})", 300401}}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), result) << body;
        ExpectUntouched();
    }
}

}  // namespace
}  // namespace vantix::test
