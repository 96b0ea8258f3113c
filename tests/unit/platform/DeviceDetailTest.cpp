// The device detail request: what it sends, what it stamps, what it returns and logs.

#include "platform/DeviceDetail.h"

#include <gtest/gtest.h>

#include "support/CleanSwitches.h"
#include "support/DetailResponse.h"
#include "support/FakeClock.h"
#include "support/LineMatcher.h"
#include "support/ScriptedTransport.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {
namespace {

class DetailRequest : public testing::Test {
protected:
    int Fetch(const std::string& serial = "C1", int cameraNo = 3) {
        lines.Clear();
        return GetDevDetailInfoFromPlatformBySerial({"https://b.example", "the-token", "the-app"}, serial, cameraNo,
                                                    channel, device, parent);
    }

    CleanSwitches clean;
    FakeClock clock;
    ScriptedTransport transport;
    LogCapture lines;
    DevChannelInfo channel;
    DevDetailInfo device;
    std::optional<BelongDevInfo> parent;
};

TEST_F(DetailRequest, IsAFormWithItsParametersInTheOrderOfTheirKeys) {
    transport.Respond(DetailResponse("C1", 3).dump());
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    const SentRequest sent = transport.Sent()[0];
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.url, "https://b.example/api/device/detail");
    EXPECT_EQ(sent.Keys(), (std::vector<std::string>{"accessToken", "appKey", "cameraNo", "clientType", "clientVersion",
                                                     "deviceSerial", "featureCode", "isNewVersion", "netType",
                                                     "osVersion", "sdkVersion", "version"}));
    EXPECT_EQ(sent.Param("accessToken"), "the-token");
    EXPECT_EQ(sent.Param("appKey"), "the-app");
    EXPECT_EQ(sent.Param("cameraNo"), "3");
    EXPECT_EQ(sent.Param("deviceSerial"), "C1");
    EXPECT_EQ(sent.Param("version"), "4.0");
    EXPECT_EQ(sent.Param("isNewVersion"), "true");
}

TEST_F(DetailRequest, SerialTravelsAsItIs) {
    for (const std::string& serial :
         {std::string(), std::string("a b+c%41#"), std::string("\xE8\xAE\xBE"), std::string(1'000'000, 's')}) {
        transport.Respond(DetailResponse("C1", 3).dump());
        EXPECT_EQ(Fetch(serial, -1), 0);
        EXPECT_EQ(transport.Sent().back().Param("deviceSerial"), serial);
        EXPECT_EQ(transport.Sent().back().Param("cameraNo"), "-1");
    }
}

TEST_F(DetailRequest, SuccessIsStampedAndItsCostLogged) {
    clock.SetSteadyStep(12'999'999);
    device.isUpdate = true;
    device.iCloseBlong = 4;
    transport.Respond(GoldenDetailText());
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(device.tCacheTime, clock.Wall());
    EXPECT_FALSE(device.isFromCache);
    EXPECT_FALSE(device.isUpdate);
    EXPECT_EQ(device.iRequestCost, 12) << "truncated milliseconds";
    EXPECT_EQ(device.iCloseBlong, 4);
    EXPECT_EQ(device.deviceIP, "10.0.0.102");
    EXPECT_EQ(channel.cameraId, "camera-id-1");
    EXPECT_EQ(parent->deviceSerial, "P-serial-201");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "GetDevDetailInfoFromPlatformBySerial",
                                       "/api/device/detail CostTime: = 12 milliseconds"));
}

TEST_F(DetailRequest, FailedTransferIsLoggedAndItsAnswerNotParsed) {
    clock.SetSteadyStep(5'000'000);
    device.deviceIP = "mine";
    transport.Make([](const SentRequest&) { return ScriptedResponse{28, GoldenDetailText()}; });
    EXPECT_EQ(Fetch(), 100028);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "GetDevDetailInfoFromPlatformBySerial", "SyncRequest error:28"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "GetDevDetailInfoFromPlatformBySerial",
                                       "/api/device/detail CostTime: = 5 milliseconds"));
    EXPECT_EQ(device.iRequestCost, 5);
    EXPECT_EQ(device.deviceIP, "mine");
    EXPECT_EQ(device.tCacheTime, 0);
    EXPECT_TRUE(device.isFromCache);
    EXPECT_FALSE(parent.has_value());
    EXPECT_FALSE(lines.Contains("ParseDevDetailInfoFromPlatform"));
}

TEST_F(DetailRequest, RefusedAnswerIsLoggedWithBodyAndCode) {
    const struct {
        std::string body;
        int parsed;
        int result;
    } rows[] = {{"", 1, 300001},
                {"<html>%s%n</html>", 1, 300001},
                {"[]", 2, 300002},
                {R"({"result":{"code":200}})", 2, 300002},
                {CodeResponse("10002"), 10002, 310002},
                {CodeResponse("49999"), 49999, 349999},
                {CodeResponse("2147183647"), 2147183647, 2147483647},
                // Codes that no platform means count as malformed.
                {CodeResponse("2147183648"), 2147183648, 300002},
                {CodeResponse("-5"), -5, 300002},
                {CodeResponse("-300000"), -300000, 300002}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        device.deviceIP = "mine";
        transport.Respond(row.body);
        EXPECT_EQ(Fetch(), row.result);
        EXPECT_THAT(lines.Lines(),
                    HasLine(5, "ERROR", "GetDevDetailInfoFromPlatformBySerial",
                            "ParseDevDetailInfoFromPlatform:" + row.body + " error:" + std::to_string(row.parsed)));
        EXPECT_EQ(device.deviceIP, "mine");
        EXPECT_EQ(device.tCacheTime, 0);
    }
}

TEST_F(DetailRequest, AnswerOf200IsASuccessEverywhereInTheEnvelope) {
    for (const char* body : {R"({"resultCode":"200","result":{"data":{}}})", R"({"code":"200","result":{"data":{}}})",
                             R"({"result":{"code":"200","data":{}}})", R"({"result":{"code":200,"data":{}}})"}) {
        transport.Respond(body);
        EXPECT_EQ(Fetch(), 0) << body;
    }
}

TEST_F(DetailRequest, CredentialsDoNotReachTheLog) {
    transport.Respond(CodeResponse("10002"));
    Fetch();
    EXPECT_FALSE(lines.Contains("the-token"));
    EXPECT_FALSE(lines.Contains("the-app"));
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
