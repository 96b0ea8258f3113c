// The device page: its envelope and its lists, and the request that hands out one channel of it.

#include "cserver/DeviceDetail.h"

#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerAnswer.h"
#include "unit/cserver/ConsumerPage.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "ParseDevDetailInfoFromCServer";
constexpr char kRequest[] = "GetDevDetailInfoFromCServerBySerial";

class ConsumerDetail : public ConsumerAnswer {
protected:
    int Parse(const std::string& body) {
        channels.clear();
        lines.Clear();
        return ParseDevDetailInfoFromCServer(body, kPageSerial, channels);
    }
    int Fetch(int channelNo = 1) {
        channel = DevChannelInfo();
        channel.cameraId = "before";
        device = DevDetailInfo();
        device.deviceIP = "before";
        device.iCloseBlong = 4;
        device.iRequestCost = 77;
        device.isUpdate = true;
        lines.Clear();
        return GetDevDetailInfoFromCServerBySerial({"https://c.example", "the-session", "the-app"}, kPageSerial,
                                                   channelNo, channel, device);
    }
    void ExpectUntouched() const {
        EXPECT_EQ(channel.cameraId, "before");
        EXPECT_EQ(device.deviceIP, "before");
        EXPECT_EQ(device.iCloseBlong, 4);
        EXPECT_EQ(device.tCacheTime, 0);
        EXPECT_TRUE(device.isUpdate);
        EXPECT_TRUE(device.isFromCache);
    }
    void ExpectEntryLine(const std::string& body) const {
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "ParseDevDetailInfoFromCServer = " + body));
    }

    FakeClock clock;
    ScriptedTransport transport;
    std::vector<ConsumerChannel> channels;
    DevChannelInfo channel;
    DevDetailInfo device;
};

// ---- The parser

TEST_F(ConsumerDetail, BodyIsLoggedAndNothingElse) {
    const std::string body = GoldenPage().dump();
    EXPECT_EQ(Parse(body), 0);
    EXPECT_EQ(lines.Lines().size(), 1U);
    ExpectEntryLine(body);
}

TEST_F(ConsumerDetail, ListsMustBeThere) {
    for (const char* name : {"cameraInfos", "deviceInfos"}) {
        const std::string place = std::string("/") + name;
        std::vector<std::string> bodies = {Without(GoldenPage(), place)};
        for (const std::string& value : OddValues()) {
            if (value[0] != '[') {
                bodies.push_back(WithValue(GoldenPage(), place, value));
            }
        }
        for (const std::string& body : bodies) {
            EXPECT_EQ(Parse(body), 2) << body;
            EXPECT_EQ(lines.Lines().size(), 2U);
            ExpectEntryLine(body);
            EXPECT_THAT(
                lines.Lines(),
                HasLine(5, "ERROR", kTag, "platform response invalid, szInfo = " + body + ", " + name + " not exist!"));
            EXPECT_TRUE(channels.empty());
        }
    }
    for (const char* body : {"{}", "[]", "5", "null", "\"x\""}) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", kTag,
                            std::string("platform response invalid, szInfo = ") + body + ", cameraInfos not exist!"));
    }
    EXPECT_EQ(Parse(R"({"cameraInfos":[],"deviceInfos":[]})"), 0) << "and both may be empty";
    EXPECT_TRUE(channels.empty());
}

TEST_F(ConsumerDetail, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        EXPECT_TRUE(channels.empty());
        if (body.size() < 1000) {
            ExpectEntryLine(body);
            EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kTag, "platform response bad, szInfo = " + body));
        }
    }
    ExpectTruncationIsNoJson(GoldenPage().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerDetail, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(GoldenPage(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(
                lines.Lines(),
                HasLine(3, "INFO ", kTag, "Platform Response Error:" + std::to_string(row.code) + ", Resp:" + body));
            EXPECT_TRUE(channels.empty());
        }
    }
    EXPECT_EQ(Parse(Without(GoldenPage(), "/meta")), 0);
    EXPECT_EQ(channels.size(), 2U);
}

// ---- The request

TEST_F(ConsumerDetail, RequestNamesTheDeviceAndWhatItWantsToKnow) {
    transport.Respond(GoldenPage().dump());
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "GET");
    EXPECT_EQ(sent.url,
              "https://c.example/v3/userdevices/v1/devices/pagelist"
              "?deviceSerial=S&filter=CONNECTION,WIFI,KMS,STATUS,HIDDNS,TTS,P2P");
    EXPECT_EQ(sent.headers,
              (std::vector<std::string>{"clientNo: 100002", "clientType: 19", "clientVersion: v5.25.0",
                                        "netType: UNKNOWN", "osVersion: wins", "sessionId: the-session"}));
}

TEST_F(ConsumerDetail, RequestHandsOutTheChannelThatWasAskedFor) {
    clock.SetSteadyStep(12'999'999);
    transport.Respond(GoldenPage().dump(), 2);
    EXPECT_EQ(Fetch(15), 0);
    EXPECT_EQ(channel.cameraId, "camera-16");
    EXPECT_EQ(device.vtmIp, "vtm-18");
    EXPECT_EQ(Fetch(1), 0);
    EXPECT_EQ(channel.cameraId, "camera-2");
    EXPECT_EQ(device.deviceIP, "net-22");
    EXPECT_EQ(device.tCacheTime, clock.Wall());
    EXPECT_FALSE(device.isFromCache);
    EXPECT_FALSE(device.isUpdate);
    EXPECT_EQ(device.iRequestCost, 12) << "truncated milliseconds";
    EXPECT_EQ(device.iCloseBlong, 4) << "the host's flag";
    EXPECT_EQ(device.releaseVersion, "") << "so that it is never served from a cache";
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kRequest, "/v3/userdevices/v1/devices/pagelist CostTime: = 12 milliseconds"));
}

TEST_F(ConsumerDetail, PageWithoutTheChannelIsMalformed) {
    for (const int absent : {0, 2, -1, 999}) {
        const std::string body = GoldenPage().dump();
        transport.Respond(body);
        EXPECT_EQ(Fetch(absent), 300002) << absent;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest, "platform response invalid, szInfo = " + body));
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", kRequest, "ParseDevDetailInfoFromPlatform:" + body + " error:2"));
        ExpectUntouched();
    }
}

TEST_F(ConsumerDetail, ChannelOfAnotherDeviceIsNotHandedOut) {
    Json page = GoldenPage();
    page["cameraInfos"].erase(0);  // the other device's channel 1 comes first now
    transport.Respond(page.dump());
    EXPECT_EQ(Fetch(1), 300002);
    ExpectUntouched();
}

TEST_F(ConsumerDetail, RefusedAnswerIsLoggedUnderThePlatformsLabel) {
    const struct {
        const char* body;
        int code;
        int result;
    } rows[] = {{"", 1, 300001},
                {"<html>%s%n</html>", 1, 300001},
                {"{}", 2, 300002},
                {R"({"meta":{"code":401}})", 401, 300401},
                {R"({"meta":{"code":10002}})", 10002, 310002},
                {R"({"meta":{"code":49999}})", 49999, 349999},
                {R"({"meta":{"code":-401}})", -401, 300002},
                {R"({"meta":{"code":2147183647}})", 2147183647, 2147483647},
                {R"({"meta":{"code":2147483647}})", 2147483647, 300002}};
    for (const auto& row : rows) {
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), row.result) << row.body;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest,
                                           std::string("ParseDevDetailInfoFromPlatform:") + row.body +
                                               " error:" + std::to_string(row.code)));
        ExpectUntouched();
    }
    EXPECT_FALSE(lines.Contains("the-session"));
}

TEST_F(ConsumerDetail, FailedTransferLeavesOnlyItsCost) {
    clock.SetSteadyStep(5'000'000);
    transport.Make([](const SentRequest&) { return ScriptedResponse{28, GoldenPage().dump()}; });
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kRequest, "SyncRequestHeader error:28"));
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", kRequest, "/v3/userdevices/v1/devices/pagelist CostTime: = 5 milliseconds"));
    EXPECT_EQ(device.iRequestCost, 5);
    EXPECT_FALSE(lines.Contains(kTag));
    ExpectUntouched();
}

}  // namespace
}  // namespace vantix::test
