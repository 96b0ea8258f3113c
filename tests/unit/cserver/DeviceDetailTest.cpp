// The device's response: its envelope and its lists, and the request that hands out one channel of it.

#include "cserver/DeviceDetail.h"

#include "support/FakeClock.h"
#include "support/ScriptedTransport.h"
#include "unit/cserver/ConsumerResponse.h"
#include "unit/cserver/DeviceResponse.h"

namespace vantix::test {
namespace {

using testing::Contains;

constexpr char kTag[] = "ParseDevDetailInfoFromCServer";
constexpr char kRequest[] = "GetDevDetailInfoFromCServerBySerial";

class ConsumerDetail : public ConsumerResponse {
protected:
    int Parse(const std::string& body) {
        channels.clear();
        m_log.Clear();
        return ParseDevDetailInfoFromCServer(body, kSerial, channels);
    }
    int Fetch(int channelNo = 1) {
        channel = DevChannelInfo();
        channel.cameraId = "before";
        device = DevDetailInfo();
        device.deviceIP = "before";
        device.iCloseBlong = 4;
        device.iRequestCost = 77;
        device.isUpdate = true;
        m_log.Clear();
        return GetDevDetailInfoFromCServerBySerial(Route(), kSerial, channelNo, channel, device);
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
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(3, "INFO ", kTag, "ParseDevDetailInfoFromCServer = " + body)).Times(1));
    }

    FakeClock clock;
    ScriptedTransport transport;
    std::vector<ConsumerChannel> channels;
    DevChannelInfo channel;
    DevDetailInfo device;
};

// ---- The parser

TEST_F(ConsumerDetail, BodyIsLoggedAndNothingElse) {
    const std::string body = WholeDevice().dump();
    EXPECT_EQ(Parse(body), 0);
    EXPECT_EQ(m_log.Lines().size(), 1U);
    ExpectEntryLine(body);
}

TEST_F(ConsumerDetail, ListsMustBeThere) {
    for (const char* name : {"cameraInfos", "deviceInfos"}) {
        const std::string place = std::string("/") + name;
        std::vector<std::string> bodies = {Without(WholeDevice(), place)};
        for (const MemberValue& value : NoArrays()) {
            bodies.push_back(WithValue(WholeDevice(), place, value.sent));
        }
        for (const std::string& body : bodies) {
            EXPECT_EQ(Parse(body), 2) << body;
            EXPECT_EQ(m_log.Lines().size(), 2U);
            ExpectEntryLine(body);
            EXPECT_THAT(m_log.Lines(),
                        Contains(Line(5, "ERROR", kTag,
                                      "platform response invalid, szInfo = " + body + ", " + name + " not exist!"))
                            .Times(1));
            EXPECT_TRUE(channels.empty());
        }
    }
    for (const char* body : {"{}", "[]", "5", "null", "\"x\""}) {
        EXPECT_EQ(Parse(body), 2) << body;
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kTag,
                                                 std::string("platform response invalid, szInfo = ") + body +
                                                     ", cameraInfos not exist!"))
                                       .Times(1));
    }
    EXPECT_EQ(Parse(R"({"cameraInfos":[],"deviceInfos":[]})"), 0) << "and both may be empty";
    EXPECT_TRUE(channels.empty());
}

TEST_F(ConsumerDetail, TextThatIsNoJsonGivesOne) {
    for (const std::string& body : NoJson()) {
        EXPECT_EQ(Parse(body), 1);
        EXPECT_TRUE(channels.empty());
        ExpectEntryLine(body);
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(5, "ERROR", kTag, "platform response bad, szInfo = " + body)).Times(1));
    }
    EXPECT_EQ(Parse(TooDeep()), 1);
    ExpectTruncationIsNoJson(WholeDevice().dump(), [this](const std::string& body) { return Parse(body); });
}

TEST_F(ConsumerDetail, CodeOfTheEnvelopeIsReturned) {
    for (const MetaRow& row : MetaRows()) {
        const std::string body = WithValue(WholeDevice(), "/meta", row.meta);
        EXPECT_EQ(Parse(body), row.code) << row.meta;
        if (row.code != 0) {
            EXPECT_THAT(m_log.Lines(), Contains(Line(3, "INFO ", kTag, row.line + body)).Times(1));
            EXPECT_TRUE(channels.empty());
        }
    }
    EXPECT_EQ(Parse(Without(WholeDevice(), "/meta")), 0);
    EXPECT_EQ(channels.size(), 2U);
}

// ---- The request

TEST_F(ConsumerDetail, RequestHandsOutTheChannelThatWasAskedFor) {
    clock.SetSteadyStep(12'999'999);
    transport.Respond(WholeDevice().dump(), 2);
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
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kRequest, "/v3/userdevices/v1/devices/pagelist CostTime: = 12 milliseconds"))
                    .Times(1));
}

TEST_F(ConsumerDetail, ResponseWithoutTheChannelIsMalformed) {
    for (const int absent : {0, 2, -1, 999}) {
        const std::string body = WholeDevice().dump();
        transport.Respond(body);
        EXPECT_EQ(Fetch(absent), 300002) << absent;
        EXPECT_THAT(m_log.Lines(),
                    Contains(Line(5, "ERROR", kRequest, "platform response invalid, szInfo = " + body)).Times(1));
        EXPECT_THAT(
            m_log.Lines(),
            Contains(Line(5, "ERROR", kRequest, "ParseDevDetailInfoFromPlatform:" + body + " error:2")).Times(1));
        ExpectUntouched();
    }
}

TEST_F(ConsumerDetail, ChannelOfAnotherDeviceIsNotHandedOut) {
    Json response = WholeDevice();
    response["cameraInfos"].erase(0);  // the other device's channel 1 comes first now
    transport.Respond(response.dump());
    EXPECT_EQ(Fetch(1), 300002);
    ExpectUntouched();
}

TEST_F(ConsumerDetail, RefusedResponseLeavesTheRecords) {
    for (const auto& [body, result] : {std::pair("", 300001),
                                       {"{}", 300002},
                                       {R"({"meta":{"code":401}})", 300401},
                                       {R"({"meta":{"code":-401}})", 300002}}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), result) << body;
        ExpectUntouched();
    }
    EXPECT_FALSE(m_log.Contains("the-session"));
}

TEST_F(ConsumerDetail, FailedTransferLeavesOnlyItsCost) {
    clock.SetSteadyStep(5'000'000);
    transport.Make([](const SentRequest&) { return ScriptedResponse{28, WholeDevice().dump()}; });
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kRequest, "SyncRequestHeader error:28")).Times(1));
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kRequest, "/v3/userdevices/v1/devices/pagelist CostTime: = 5 milliseconds"))
                    .Times(1));
    EXPECT_EQ(device.iRequestCost, 5);
    EXPECT_FALSE(m_log.Contains(kTag));
    ExpectUntouched();
}

}  // namespace
}  // namespace vantix::test
