// The media servers: "systemConfigInfo" and the fields that it fills, and the request for it.

#include "cserver/Server.h"

#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseServerInfoFromCServer";

const std::vector<Member<ServerInfo>>& Rows() {
    static const std::vector<Member<ServerInfo>> rows = {
        {"/systemConfigInfo/stun1Addr", &ServerInfo::stun1Addr},
        {"/systemConfigInfo/stun1Port", &ServerInfo::stun1Port},
        {"/systemConfigInfo/stun2Addr", &ServerInfo::stun2Addr},
        {"/systemConfigInfo/stun2Port", &ServerInfo::stun2Port},
        {"/systemConfigInfo/ttsAddr", &ServerInfo::ttsAddr},
        {"/systemConfigInfo/ttsPort", &ServerInfo::ttsPort},
        {"/systemConfigInfo/vtmAddr", &ServerInfo::vtmAddr},
        {"/systemConfigInfo/vtmPort", &ServerInfo::vtmPort},
        {"/systemConfigInfo/authAddr", &ServerInfo::authAddr},
        {"/systemConfigInfo/nodeJsAddr", &ServerInfo::nodeJsAddr},
        {"/systemConfigInfo/nodeJsHttpPort", &ServerInfo::nodeJsHttpPort},
        {"/systemConfigInfo/pushAddr", &ServerInfo::pushAddr},
        {"/systemConfigInfo/pushDasDomain", &ServerInfo::pushDasDomain},
        {"/systemConfigInfo/pushDasPort", &ServerInfo::pushDasPort},
    };
    return rows;
}

Json Golden() {
    return Json::parse(R"({"meta":{"code":200},"systemConfigInfo":{
        "stun1Addr":"stun-1","stun1Port":2,"stun2Addr":"stun-3","stun2Port":4,"ttsAddr":"tts-5","ttsPort":6,
        "vtmAddr":"vtm-7","vtmPort":8,"authAddr":"auth-9","nodeJsAddr":"node-10","nodeJsHttpPort":11,
        "pushAddr":"push-12","pushDasDomain":"das-13","pushDasPort":14,
        "logAddr":"not read","microCloudMode":true,"vtmBackups":[{"addr":"not read","port":15}]}})");
}

ServerInfo Before() {
    ServerInfo info;
    for (const auto& row : Rows()) {
        row.Set(info, row.IsText() ? Json("before") : Json(-99));
    }
    info.logAddr = "before";
    info.microCloudMode = false;
    info.vtmBackups = {{"before", 1}};
    info.iRequestCost = 77;
    return info;
}

class ConsumerServers : public ConsumerAnswer {
protected:
    int Parse(const std::string& body) {
        info = Before();
        lines.Clear();
        return ParseServerInfoFromCServer(body, info);
    }
    int Fetch() {
        lines.Clear();
        return GetServerInfoFromCServer({"https://c.example", "the-session", "the-app"}, info);
    }
    void ExpectUntouched() const { EXPECT_EQ(Values(Rows(), info), Values(Rows(), Before())); }

    FakeClock clock;
    ScriptedTransport transport;
    ServerInfo info = Before();
};

TEST_F(ConsumerServers, EveryMemberFillsItsField) {
    EXPECT_EQ(Parse(Golden().dump()), 0);
    ExpectFilled(Rows(), Golden(), info);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ConsumerServers, WhatThisFamilyDoesNotTellIsKept) {
    EXPECT_EQ(Parse(Golden().dump()), 0);
    EXPECT_EQ(info.logAddr, "before");
    EXPECT_FALSE(info.microCloudMode);
    ASSERT_EQ(info.vtmBackups.size(), 1U);
    EXPECT_EQ(info.vtmBackups[0].strVtmAddr, "before");
    EXPECT_EQ(info.iRequestCost, 77);
}

TEST_F(ConsumerServers, MembersAreReadOnlyWithTheirType) {
    ExpectEveryMemberOnItsOwn(Rows(), Golden(), Before(), [this](const std::string& body) {
        EXPECT_EQ(Parse(body), 0);
        return info;
    });
}

TEST_F(ConsumerServers, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        ExpectUntouched();
        if (body.size() < 1000) {
            EXPECT_THAT(lines.Lines(),
                        testing::ElementsAre(Line(5, "ERROR", kTag, "platform response bad, szInfo = " + body)));
        }
    }
    ExpectTruncationIsNoJson(Golden().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerServers, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        SCOPED_TRACE(row.meta);
        const std::string body = WithValue(Golden(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code);
        if (row.code != 0) {
            EXPECT_THAT(lines.Lines(), testing::ElementsAre(Line(
                                           3, "INFO ", kTag,
                                           "Platform Response Error:" + std::to_string(row.code) + ", Resp:" + body)));
            ExpectUntouched();
        }
    }
    EXPECT_EQ(Parse(Without(Golden(), "/meta")), 0) << "an answer without an envelope";
    ExpectFilled(Rows(), Golden(), info);
}

TEST_F(ConsumerServers, ConfigurationMustBeThere) {
    std::vector<std::string> bodies = {"{}",
                                       "[]",
                                       "5",
                                       "null",
                                       "\"x\"",
                                       Without(Golden(), "/systemConfigInfo"),
                                       R"({"data":{"systemConfigInfo":{}}})"};
    for (const std::string& value : OddValues()) {
        if (value[0] != '{') {
            bodies.push_back(WithValue(Golden(), "/systemConfigInfo", value));
        }
    }
    for (const std::string& body : bodies) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(),
                    testing::ElementsAre(Line(5, "ERROR", kTag, "platform response invalid, szInfo = " + body)));
        ExpectUntouched();
    }
    EXPECT_EQ(Parse(R"({"systemConfigInfo":{}})"), 0) << "and nothing in it need be";
    ExpectUntouched();
}

TEST_F(ConsumerServers, RequestStoresItsCostWhateverTheOutcome) {
    clock.SetSteadyStep(4'999'999);
    transport.Respond(Golden().dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(info.iRequestCost, 4);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "GetServerInfoFromCServer",
                                       "v3/configurations/system/info CostTime: = 4 milliseconds"));
    clock.SetSteadyStep(6'000'000);
    transport.Fail(28);
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_EQ(info.iRequestCost, 6);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "GetServerInfoFromCServer", "SyncRequest error:28"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "GetServerInfoFromCServer",
                                       "v3/configurations/system/info CostTime: = 6 milliseconds"));
}

TEST_F(ConsumerServers, RefusedAnswerIsLoggedUnderThePlatformsLabel) {
    const struct {
        const char* body;
        int code;
        int result;
    } rows[] = {{"", 1, 300001},
                {"<html>%s</html>", 1, 300001},
                {"{}", 2, 300002},
                {R"({"meta":{"code":401}})", 401, 300401},
                {R"({"meta":{"code":10002}})", 10002, 310002},
                {R"({"meta":{"code":-1}})", -1, 300002},
                {R"({"meta":{"code":2147483647}})", 2147483647, 300002}};
    for (const auto& row : rows) {
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), row.result) << row.body;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "GetServerInfoFromCServer",
                                           std::string("ParseServerInfoFromPlatform:") + row.body +
                                               " error:" + std::to_string(row.code)));
        ExpectUntouched();
    }
}

}  // namespace
}  // namespace vantix::test
