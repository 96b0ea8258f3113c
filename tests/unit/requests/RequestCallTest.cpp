#include "requests/RequestCall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <vector>

#include "requests/EndpointTable.h"
#include "requests/FeatureCode.h"
#include "support/CleanSwitches.h"
#include "support/FakeClock.h"
#include "support/LogCapture.h"
#include "unit/transport/CurlSpy.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

int NoSerial(char* /*serial*/, char* /*second*/) { return -1; }
int NoAddress(char* /*mac*/) { return -1; }
int FixedDigest(const void* /*data*/, unsigned /*length*/, char* digestText, unsigned* digestLength) {
    *digestLength = static_cast<unsigned>(std::snprintf(digestText, 64, "f-code"));
    return 0;
}

const PlatformRoute kCaller = Caller{"https://cloud.test", "the-credential", "the-app"};

/// A row with one own parameter and every text.
RequestRow Row(Way way = Way::Form, unsigned carried = 0) {
    RequestRow row{"GetSomething", way, endpoint::kUserName, carried};
    row.own[0] = "deviceSerial";
    row.transportFailure = "SyncRequest error:%d";
    row.checkFailure = "CheckIt:%s error:%d";
    row.parserFailure = "ParseIt:%s error:%d";
    row.cost = "/api CostTime: = %ld milliseconds";
    return row;
}

class Requests : public testing::Test {
public:
    Requests() {
        ForgetFeatureCode();
        PublicGetHDSign({NoSerial, NoAddress, FixedDigest});
        m_log.Clear();
        m_clock.SetSteadyStep(12'999'999);
        m_spy.Answer(CURLE_OK, {"the body"});
    }
    ~Requests() override { ForgetFeatureCode(); }
    Requests(const Requests&) = delete;
    Requests& operator=(const Requests&) = delete;

protected:
    RequestCall::Reader Says(int code) {
        return [this, code](const std::string& body) {
            m_read.push_back(body);
            return code;
        };
    }
    /// The lines of the request itself, without those of the transport below it.
    std::vector<std::string> OwnLines() const {
        std::vector<std::string> lines;
        for (const LogLine& line : m_log.Lines()) {
            if (line.Tag() == "GetSomething") {
                lines.push_back(line.Word() + std::to_string(line.level) + " " + line.Message());
            }
        }
        return lines;
    }

    const CallSite m_site{"int vantix::GetSomething(int)", 5};
    CleanSwitches m_switches;
    FakeClock m_clock;
    LogCapture m_log;
    CurlSpy m_spy;
    std::vector<std::string> m_read;
};

TEST_F(Requests, EveryWayHasItsFunction) {
    struct WayRow {
        Way way;
        const char* tag;
        const char* method;
        const char* path;
    };
    constexpr WayRow kWays[] = {
        {Way::Form, "SyncRequest", "POST", "/api/user/getUserName"},
        {Way::Json, "SyncRequestjson", "POST", "/api/v3/open/cloud/v3/clouds/videoDetails"},
        {Way::Ticket, "SyncRequest_v2", "GET", "/api/route/userdevicetob/v3/cameras/ticketInfo"},
        {Way::Get, "SyncRequestHeader", "GET", "/api/user/getUserName"},
        {Way::BodylessPost, "SyncRequestHeaderPost", "POST", "/api/user/getUserName"},
        {Way::Put, "SyncPutRequestHeader", "PUT", "/v3/apigateway/login"},
    };
    for (const WayRow& row : kWays) {
        SCOPED_TRACE(row.tag);
        m_log.Clear();
        const RequestRow request = Row(row.way);
        std::string body;
        EXPECT_EQ(RequestCall(m_site, request, kCaller).With("D1").Fetch(body), 0);
        EXPECT_EQ(body, "the body");
        EXPECT_EQ(m_log.Lines().front().Tag(), row.tag);
        EXPECT_EQ(m_spy.Method(), row.method);
        EXPECT_EQ(m_spy.Url().find(std::string("https://cloud.test") + row.path), 0U) << m_spy.Url();
    }
}

TEST_F(Requests, CarryWhatTheirRowSays) {
    struct CarryRow {
        unsigned carried;
        const char* parameters;
    };
    const CarryRow rows[] = {
        {0, "deviceSerial=D1"},
        {carries::kAccessToken, "accessToken=the-credential&deviceSerial=D1"},
        {carries::kAppKey, "appKey=the-app&deviceSerial=D1"},
        {carries::kClientSet,
         "clientType=19&clientVersion=v5.25.0&deviceSerial=D1&featureCode=f-code&netType=UNKNOWN&osVersion=wins"
         "&sdkVersion=v5.25.0.20260515"},
        {carries::kAccessToken | carries::kAppKey, "accessToken=the-credential&appKey=the-app&deviceSerial=D1"},
        {carries::kHeadersA | carries::kHeadersB | carries::kSessionHeader | carries::kFormHeader, "deviceSerial=D1"},
    };
    for (const CarryRow& row : rows) {
        SCOPED_TRACE(row.carried);
        const RequestRow request = Row(Way::Form, row.carried);
        EXPECT_EQ(RequestCall(m_site, request, kCaller).With("D1").Run(Says(0)), 0);
        EXPECT_EQ(m_spy.Body(), row.parameters);
    }
}

TEST_F(Requests, CarryTheHeadersThatTheirRowSays) {
    const std::vector<std::string> none;
    const std::vector<std::string> setA = {"clientNo: 100002", "clientType: 19",  "clientVersion: v5.25.0",
                                           "netType: UNKNOWN", "osVersion: wins", "sessionId: the-credential"};
    const std::vector<std::string> setB = {
        "clientType: 19", "clientVersion: v5.25.0", "customno: 100002",         "featureCode: f-code",
        "lang: EN",       "netType: UNKNOWN",       "sessionId: the-credential"};
    std::vector<std::string> setBWithForm = setB;
    setBWithForm.insert(setBWithForm.begin(), "Content-Type: application/x-www-form-urlencoded");
    const std::pair<unsigned, std::vector<std::string>> rows[] = {
        {0, none},
        {carries::kAccessToken | carries::kClientSet | carries::kAppKey, none},
        {carries::kSessionHeader, {"sessionId: the-credential"}},
        {carries::kFormHeader, {"Content-Type: application/x-www-form-urlencoded"}},
        {carries::kHeadersA, setA},
        {carries::kHeadersB, setB},
        {carries::kHeadersB | carries::kFormHeader, setBWithForm},
    };
    for (const auto& [carried, headers] : rows) {
        SCOPED_TRACE(carried);
        m_spy.Clear();
        const RequestRow request = Row(Way::Get, carried);
        EXPECT_EQ(RequestCall(m_site, request, kCaller).With("D1").Run(Says(0)), 0);
        EXPECT_EQ(m_spy.Headers(), headers);
    }
}

TEST_F(Requests, HeadersTellOfTheComputerThatIsHandedIn) {
    ClientInfo client;
    client.featureCode = "another code";
    client.clientVersion = "v1";
    for (const unsigned carried : {carries::kHeadersA, carries::kHeadersB}) {
        m_spy.Clear();
        const RequestRow request = Row(Way::Get, carried);
        EXPECT_EQ(RequestCall(m_site, request, kCaller, &client).With("D1").Run(Says(0)), 0);
        EXPECT_THAT(m_spy.Headers(), testing::Contains("clientVersion: v1"));
        EXPECT_EQ(carried == carries::kHeadersB,
                  testing::Value(m_spy.Headers(), testing::Contains("featureCode: another code")));
    }
}

TEST_F(Requests, FixedOwnAndOptionalParametersAllTravel) {
    RequestRow row = Row();
    row.own[1] = "cameraNo";
    row.fixed[0] = {"version", "4.0"};
    row.fixed[1] = {"isNewVersion", "true"};
    EXPECT_EQ(RequestCall(m_site, row, kCaller)
                  .With(std::string("D1"), 16)
                  .WithOptional("bizType", "b")
                  .WithOptional("localIndex", -1)
                  .Run(Says(0)),
              0);
    EXPECT_EQ(m_spy.Body(), "bizType=b&cameraNo=16&deviceSerial=D1&isNewVersion=true&localIndex=-1&version=4.0");
}

TEST_F(Requests, AJsonPostSendsItsText) {
    const RequestRow row = Row(Way::Json);
    EXPECT_EQ(RequestCall(m_site, row, kCaller).Body(R"({"a":1})").Run(Says(0)), 0);
    EXPECT_EQ(m_spy.Body(), R"({"a":1})");
    EXPECT_THAT(m_spy.Headers(), ElementsAre("Content-Type:application/json"));
}

TEST_F(Requests, ASuccessIsZeroAndReadOnce) {
    const RequestRow row = Row();
    int32_t cost = -1;
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").CostInto(cost).Run(Says(0)), 0);
    EXPECT_THAT(m_read, ElementsAre("the body"));
    EXPECT_EQ(cost, 12) << "whole milliseconds, truncated";
    EXPECT_THAT(OwnLines(), ElementsAre("INFO 3 /api CostTime: = 12 milliseconds"));
}

TEST_F(Requests, ATransferFailureIsComposedAndNothingIsRead) {
    for (const int code : {1, 6, 7, 28, 35, 60}) {
        SCOPED_TRACE(code);
        m_log.Clear();
        m_spy.Answer(static_cast<CURLcode>(code), {R"({"code":"200"})"});
        const RequestRow row = Row();
        int32_t cost = -1;
        EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").CostInto(cost).Run(Says(0), Says(0)), 100000 + code);
        EXPECT_THAT(m_read, IsEmpty());
        EXPECT_EQ(cost, 12) << "stored whatever the outcome";
        EXPECT_THAT(OwnLines(), ElementsAre("INFO 3 /api CostTime: = 12 milliseconds",
                                            "ERROR5 SyncRequest error:" + std::to_string(code)));
    }
}

TEST_F(Requests, AFetchThatFailsLeavesTheBody) {
    m_spy.Answer(CURLE_COULDNT_CONNECT, {"part"});
    const RequestRow row = Row();
    std::string body = "as before";
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Fetch(body), 100007);
    EXPECT_EQ(body, "as before");
}

TEST_F(Requests, AParsersCodeIsComposedAndLoggedWithTheBody) {
    for (const int code : {1, 2, 10002, 49999}) {
        SCOPED_TRACE(code);
        m_log.Clear();
        const RequestRow row = Row();
        EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(code)), 300000 + code);
        EXPECT_THAT(OwnLines(), ElementsAre("INFO 3 /api CostTime: = 12 milliseconds",
                                            "ERROR5 ParseIt:the body error:" + std::to_string(code)));
    }
}

TEST_F(Requests, ACodeThatNoServerCanMeanCountsAsMalformedAndIsLoggedAsItCame) {
    constexpr int kLargest = std::numeric_limits<int>::max();
    for (const int code : {-6, -300000, kLargest - 299999, kLargest}) {
        SCOPED_TRACE(code);
        m_log.Clear();
        const RequestRow row = Row();
        EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(code)), 300002);
        EXPECT_EQ(OwnLines().back(), "ERROR5 ParseIt:the body error:" + std::to_string(code));
    }
    const RequestRow row = Row();
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(kLargest - 300000)), kLargest);
}

TEST_F(Requests, ACheckComesBeforeTheParser) {
    const RequestRow row = Row();
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(10002), Says(2)), 310002);
    EXPECT_EQ(m_read.size(), 1U) << "the parser is not asked";
    EXPECT_EQ(OwnLines().back(), "ERROR5 CheckIt:the body error:10002");
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(0), Says(2)), 300002);
    EXPECT_EQ(m_read.size(), 3U);
    EXPECT_EQ(OwnLines().back(), "ERROR5 ParseIt:the body error:2");
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(0), Says(0)), 0);
}

TEST_F(Requests, WithoutACostTextTheTimeIsStoredButNotLogged) {
    RequestRow row = Row();
    row.cost = {};
    int32_t cost = -1;
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").CostInto(cost).Run(Says(0)), 0);
    EXPECT_EQ(cost, 12);
    EXPECT_THAT(OwnLines(), IsEmpty());
}

TEST_F(Requests, ABodyWithZerosReachesTheReaderWhole) {
    const std::string body("a\0b", 3);
    m_spy.Answer(CURLE_OK, {body});
    const RequestRow row = Row();
    EXPECT_EQ(RequestCall(m_site, row, kCaller).With("D1").Run(Says(0)), 0);
    EXPECT_THAT(m_read, ElementsAre(body));
}

TEST_F(Requests, AnEmptyCallerStillSends) {
    const RequestRow row = Row(Way::Form, carries::kAccessToken | carries::kAppKey);
    EXPECT_EQ(RequestCall(m_site, row, PlatformRoute(Caller())).With("").Run(Says(0)), 0);
    EXPECT_EQ(m_spy.Url(), "/api/user/getUserName");
    EXPECT_EQ(m_spy.Body(), "accessToken=&appKey=&deviceSerial=");
}

}  // namespace
}  // namespace vantix::test
