// The device detail request: what it sends, what it marks, what it returns and logs.

#include "platform/DeviceDetail.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CleanSwitches.h"
#include "support/DetailResponse.h"
#include "support/FakeClock.h"
#include "support/LineMatcher.h"
#include "support/LogCapture.h"
#include "support/ScriptedTransport.h"
#include "support/TestRoutes.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {
namespace {

using testing::Contains;

constexpr char kDetailTag[] = "GetDevDetailInfoFromPlatformBySerial";

class DetailRequest : public testing::Test {
protected:
    int Fetch(const std::string& serial = "C1", int cameraNo = 3) {
        m_log.Clear();
        return GetDevDetailInfoFromPlatformBySerial(PlatformRouteTo("https://b.example", "the-token", "the-app"),
                                                    serial, cameraNo, channel, device, parent);
    }
    CleanSwitches m_switches;
    FakeClock clock;
    ScriptedTransport transport;
    LogCapture m_log;
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
};

TEST_F(DetailRequest, SerialIsSentAsItIs) {
    for (const std::string& serial :
         {std::string(), std::string("a b+c%41#"), std::string("\xE8\xAE\xBE"), std::string(1'000'000, 's')}) {
        transport.Respond(DetailResponse("C1", 3).dump());
        EXPECT_EQ(Fetch(serial, -1), 0);
        EXPECT_EQ(transport.Sent().back().Param("deviceSerial"), serial);
        EXPECT_EQ(transport.Sent().back().Param("cameraNo"), "-1");
    }
}

TEST_F(DetailRequest, SuccessIsMarkedAsFetchedAndItsCostLogged) {
    clock.SetSteadyStep(12'999'999);
    device.isUpdate = true;
    device.iCloseBlong = 4;
    transport.Respond(WholeDetailText());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(device.tCacheTime, clock.Wall());
    EXPECT_FALSE(device.isFromCache);
    EXPECT_FALSE(device.isUpdate);
    EXPECT_EQ(device.iRequestCost, 12) << "truncated milliseconds";
    EXPECT_EQ(device.iCloseBlong, 4);
    EXPECT_EQ(device.deviceIP, "10.0.0.102");
    EXPECT_EQ(channel.cameraId, "camera-id-1");
    EXPECT_EQ(parent->deviceSerial, "P-serial-201");
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kDetailTag, "/api/device/detail CostTime: = 12 milliseconds")).Times(1));
}

TEST_F(DetailRequest, FailedTransferIsLoggedAndItsResponseNotParsed) {
    clock.SetSteadyStep(5'000'000);
    device.deviceIP = "mine";
    transport.Make([](const SentRequest&) { return ScriptedResponse{28, WholeDetailText()}; });
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kDetailTag, "SyncRequest error:28")).Times(1));
    EXPECT_THAT(m_log.Lines(),
                Contains(Line(3, "INFO ", kDetailTag, "/api/device/detail CostTime: = 5 milliseconds")).Times(1));
    EXPECT_EQ(device.iRequestCost, 5);
    EXPECT_EQ(device.deviceIP, "mine");
    EXPECT_EQ(device.tCacheTime, 0);
    EXPECT_TRUE(device.isFromCache);
    EXPECT_FALSE(parent.has_value());
    EXPECT_FALSE(m_log.Contains("ParseDevDetailInfoFromPlatform"));
}

TEST_F(DetailRequest, RefusedResponseIsLoggedWithBodyAndCode) {
    const struct {
        const char* body;
        int result;
        const char* line;
    } rows[] = {
        {"", 300001, "ParseDevDetailInfoFromPlatform: error:1"},
        {"<html>%s%n</html>", 300001, "ParseDevDetailInfoFromPlatform:<html>%s%n</html> error:1"},
        {"[]", 300002, "ParseDevDetailInfoFromPlatform:[] error:2"},
        {R"({"result":{"code":200}})", 300002, R"(ParseDevDetailInfoFromPlatform:{"result":{"code":200}} error:2)"},
        {R"({"code":"10002"})", 310002, R"(ParseDevDetailInfoFromPlatform:{"code":"10002"} error:10002)"},
        {R"({"code":"49999"})", 349999, R"(ParseDevDetailInfoFromPlatform:{"code":"49999"} error:49999)"},
        // Codes that no platform means count as malformed.
        {R"({"code":"-5"})", 300002, R"(ParseDevDetailInfoFromPlatform:{"code":"-5"} error:-5)"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        device.deviceIP = "mine";
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), row.result);
        EXPECT_THAT(m_log.Lines(), Contains(Line(5, "ERROR", kDetailTag, row.line)).Times(1));
        EXPECT_EQ(device.deviceIP, "mine");
        EXPECT_EQ(device.tCacheTime, 0);
    }
}

TEST_F(DetailRequest, CodeOf200IsASuccessEverywhereInTheEnvelope) {
    for (const char* body : {R"({"resultCode":"200","result":{"data":{}}})", R"({"code":"200","result":{"data":{}}})",
                             R"({"result":{"code":"200","data":{}}})", R"({"result":{"code":200,"data":{}}})"}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 0) << body;
    }
}

TEST_F(DetailRequest, CredentialsDoNotReachTheLog) {
    transport.Respond(CodeResponse("10002"));
    Fetch();
    EXPECT_FALSE(m_log.Contains("the-token"));
    EXPECT_FALSE(m_log.Contains("the-app"));
}

TEST_F(DetailRequest, CostIsZeroBeforeAMillisecondHasPassed) {
    clock.SetSteadyStep(999'999);
    device.iRequestCost = 77;
    transport.Respond(DetailResponse("C1", 1).dump());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(device.iRequestCost, 0);
}

}  // namespace
}  // namespace vantix::test
