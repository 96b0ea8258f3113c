// How every request runs, for made-up rows of each kind.

#include "requests/RequestCall.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "requests/EndpointTable.h"
#include "support/CleanSwitches.h"
#include "support/FakeClock.h"
#include "support/FixedFeatureCode.h"
#include "support/LogCapture.h"
#include "support/TestRoutes.h"
#include "unit/transport/CurlSpy.h"

namespace vantix::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr RequestRow kForm{.endpoint = endpoint::kUserName, .keys = {"deviceSerial"}};
constexpr RequestRow kJson{.kind = RequestKind::JsonPost};
constexpr RequestRow kTicket{.kind = RequestKind::TicketGet, .keys = {"deviceSerial"}};
constexpr RequestRow kGet{.kind = RequestKind::Get, .endpoint = endpoint::kUserName, .keys = {"deviceSerial"}};
constexpr RequestRow kBodylessPost{
    .kind = RequestKind::BodylessPost, .endpoint = endpoint::kUserName, .keys = {"deviceSerial"}};
constexpr RequestRow kPut{.family = RequestFamily::Consumer,
                          .kind = RequestKind::Put,
                          .headers = {.set = HeaderSet::SessionOnly},
                          .keys = {"deviceSerial"}};
/// With every text.
constexpr RequestRow kWorded{
    .endpoint = endpoint::kUserName,
    .transportFailure = "NotSent error:%d",
    .checkFailure = "CheckIt:%s error:%d",
    .parserFailure = "ParseIt:%s error:%d",
    .cost = "/api CostTime: = %ld milliseconds",
};
constexpr RequestRow kUntimed{.endpoint = endpoint::kUserName, .parserFailure = "ParseIt:%s error:%d"};

const PlatformRoute kRoute = PlatformRouteTo("https://cloud.test", "the-token", "the-app");
const ConsumerRoute kSession = ConsumerRouteTo("https://cloud.test", "the-session");

class Requests : public testing::Test {
public:
    Requests() {
        m_log.Clear();
        m_clock.SetSteadyStep(12'999'999);
        m_spy.Respond(CURLE_OK, {"the body"});
    }

protected:
    auto Says(int code) {
        return [this, code](TextView body) {
            m_read.emplace_back(body);
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
    void ExpectSent(PreparedRequest&& request, const char* tag, const char* method, const char* url) {
        SCOPED_TRACE(tag);
        m_log.Clear();
        std::string body;
        EXPECT_EQ(request.FetchText(body), 0);
        EXPECT_EQ(body, "the body");
        EXPECT_EQ(m_log.Lines().front().Tag(), tag);
        EXPECT_EQ(m_spy.Method(), method);
        EXPECT_EQ(m_spy.Url(), url);
    }
    /// Sends a request whose response is good.
    int Send(PreparedRequest&& request) { return request.Run(Says(0)); }
    /// The parameters that a platform row sends.
    template <const RequestRow& Row>
    std::string ParametersOf() {
        EXPECT_EQ(Send(RequestCall<Row>(m_site, kRoute)), 0);
        return m_spy.Body();
    }
    /// The headers that a request sends.
    std::vector<std::string> HeadersOf(PreparedRequest&& request) {
        m_spy.Clear();
        EXPECT_EQ(request.Run(Says(0)), 0);
        return m_spy.Headers();
    }

    const CallSite m_site{"int vantix::GetSomething(int)", 5};
    CleanSwitches m_switches;
    FixedFeatureCode m_featureCode;
    FakeClock m_clock;
    LogCapture m_log;
    CurlSpy m_spy;
    std::vector<std::string> m_read;
};

TEST_F(Requests, EveryKindHasItsFunction) {
    ExpectSent(RequestCall<kForm>(m_site, kRoute, "deviceSerial"_key = "D1"), "SyncRequest", "POST",
               "https://cloud.test/api/user/getUserName");
    ExpectSent(RequestCall<kJson>(m_site, kRoute, JsonBody{"{}"}), "SyncRequestjson", "POST",
               "https://cloud.test/api/v3/open/cloud/v3/clouds/videoDetails");
    ExpectSent(RequestCall<kTicket>(m_site, kRoute, "deviceSerial"_key = "D1"), "SyncRequest_v2", "GET",
               "https://cloud.test/api/route/userdevicetob/v3/cameras/ticketInfo?deviceSerial=D1");
    ExpectSent(RequestCall<kGet>(m_site, kRoute, "deviceSerial"_key = "D1"), "SyncRequestHeader", "GET",
               "https://cloud.test/api/user/getUserName?deviceSerial=D1");
    ExpectSent(RequestCall<kBodylessPost>(m_site, kRoute, "deviceSerial"_key = "D1"), "SyncRequestHeaderPost", "POST",
               "https://cloud.test/api/user/getUserName?deviceSerial=D1");
    ExpectSent(RequestCall<kPut>(m_site, kSession, "deviceSerial"_key = "D1"), "SyncPutRequestHeader", "PUT",
               "https://cloud.test/v3/apigateway/login?deviceSerial=D1");
}

constexpr RequestRow kNothing{.endpoint = endpoint::kUserName};
constexpr RequestRow kToken{.endpoint = endpoint::kUserName, .common = {.accessToken = true}};
constexpr RequestRow kClient{.endpoint = endpoint::kUserName, .common = {.clientSet = true}};
constexpr RequestRow kKey{.endpoint = endpoint::kUserName, .common = {.appKey = true}};
constexpr RequestRow kTokenAndKey{.endpoint = endpoint::kUserName, .common = {.accessToken = true, .appKey = true}};
constexpr RequestRow kFixed{.endpoint = endpoint::kUserName, .fixed = {{"version", "4.0"}, {"isNewVersion", "true"}}};
constexpr RequestRow kRenewal{
    .family = RequestFamily::Authorization, .endpoint = endpoint::kRefreshToken, .common = {.appKey = true}};

TEST_F(Requests, IncludeTheCommonParametersThatTheirRowSays) {
    EXPECT_EQ(ParametersOf<kNothing>(), "");
    EXPECT_EQ(ParametersOf<kToken>(), "accessToken=the-token");
    EXPECT_EQ(ParametersOf<kKey>(), "appKey=the-app");
    EXPECT_EQ(ParametersOf<kTokenAndKey>(), "accessToken=the-token&appKey=the-app");
    EXPECT_EQ(ParametersOf<kClient>(),
              "clientType=19&clientVersion=v5.25.0&featureCode=f-code&netType=UNKNOWN&osVersion=wins"
              "&sdkVersion=v5.25.0.20260515");
    EXPECT_EQ(ParametersOf<kFixed>(), "isNewVersion=true&version=4.0");
    EXPECT_EQ(Send(RequestCall<kRenewal>(m_site, AuthorizationRouteTo("https://auth.test", "the-app"))), 0);
    EXPECT_EQ(m_spy.Url(), "https://auth.test/oauth/token/refreshToken");
    EXPECT_EQ(m_spy.Body(), "appKey=the-app");
}

template <HeaderSet Set, bool IsForm>
constexpr RequestRow kSessionRow{.family = RequestFamily::Consumer,
                                 .kind = RequestKind::Get,
                                 .endpoint = endpoint::kConsumerRecords,
                                 .headers = {.set = Set, .formContentType = IsForm}};
constexpr RequestRow kFormGet{
    .kind = RequestKind::Get, .endpoint = endpoint::kUserName, .headers = {.formContentType = true}};
constexpr RequestRow kPlainGet{.kind = RequestKind::Get, .endpoint = endpoint::kUserName, .common = {.appKey = true}};

TEST_F(Requests, SendTheHeadersThatTheirRowSays) {
    EXPECT_THAT(HeadersOf(RequestCall<kPlainGet>(m_site, kRoute)), IsEmpty());
    EXPECT_THAT(HeadersOf(RequestCall<kFormGet>(m_site, kRoute)),
                ElementsAre("Content-Type: application/x-www-form-urlencoded"));
    EXPECT_THAT(HeadersOf(RequestCall<kSessionRow<HeaderSet::SessionOnly, false>>(m_site, kSession)),
                ElementsAre("sessionId: the-session"));
    EXPECT_THAT(HeadersOf(RequestCall<kSessionRow<HeaderSet::A, false>>(m_site, kSession)),
                ElementsAre("clientNo: 100002", "clientType: 19", "clientVersion: v5.25.0", "netType: UNKNOWN",
                            "osVersion: wins", "sessionId: the-session"));
    EXPECT_THAT(HeadersOf(RequestCall<kSessionRow<HeaderSet::B, true>>(m_site, kSession)),
                ElementsAre("Content-Type: application/x-www-form-urlencoded", "clientType: 19",
                            "clientVersion: v5.25.0", "customno: 100002", "featureCode: f-code", "lang: EN",
                            "netType: UNKNOWN", "sessionId: the-session"));
}

TEST_F(Requests, HeadersDescribeTheComputerThatIsHandedIn) {
    ClientInfo client;
    client.featureCode = "another code";
    client.clientVersion = "v1";
    EXPECT_THAT(HeadersOf(RequestCall<kSessionRow<HeaderSet::A, false>>(m_site, kSession, client)),
                ElementsAre("clientNo: 100002", "clientType: 19", "clientVersion: v1", "netType: UNKNOWN",
                            "osVersion: wins", "sessionId: the-session"));
    EXPECT_THAT(HeadersOf(RequestCall<kSessionRow<HeaderSet::B, false>>(m_site, kSession, client)),
                ElementsAre("clientType: 19", "clientVersion: v1", "customno: 100002", "featureCode: another code",
                            "lang: EN", "netType: UNKNOWN", "sessionId: the-session"));
}

TEST_F(Requests, AskForTheFeatureCodeOnlyWhenTheySendIt) {
    ForgetFeatureCode();
    HeadersOf(RequestCall<kSessionRow<HeaderSet::SessionOnly, true>>(m_site, kSession));
    EXPECT_FALSE(m_log.Contains("HDSign"));
    HeadersOf(RequestCall<kSessionRow<HeaderSet::B, false>>(m_site, kSession));
    EXPECT_TRUE(m_log.Contains("HDSign"));
}

constexpr RequestRow kMixed{.endpoint = endpoint::kUserName,
                            .common = {.accessToken = true},
                            .keys = {"deviceSerial", "cameraNo", "bizType"},
                            .optionalKeys = {"location", "recordType"},
                            .fixed = {{"version", "4.0"}}};

TEST_F(Requests, SendTheValuesThatTheyAreGiven) {
    const std::optional<int32_t> noNumber;
    EXPECT_EQ(
        Send(RequestCall<kMixed>(m_site, kRoute, "deviceSerial"_key = std::string("D1"), "cameraNo"_key = 16,
                                 "bizType"_key = "b", "location"_key = std::optional(-1), "recordType"_key = noNumber)),
        0);
    EXPECT_EQ(m_spy.Body(), "accessToken=the-token&bizType=b&cameraNo=16&deviceSerial=D1&location=-1&version=4.0");
    const std::optional<std::string> text = "t";
    EXPECT_EQ(Send(RequestCall<kMixed>(m_site, kRoute, "recordType"_key = text, "location"_key = noNumber,
                                       "bizType"_key = "", "cameraNo"_key = 0, "deviceSerial"_key = std::string())),
              0);
    EXPECT_EQ(m_spy.Body(), "accessToken=the-token&bizType=&cameraNo=0&deviceSerial=&recordType=t&version=4.0");
}

TEST_F(Requests, AJsonPostSendsItsText) {
    EXPECT_EQ(Send(RequestCall<kJson>(m_site, kRoute, JsonBody{R"({"a":1})"})), 0);
    EXPECT_EQ(m_spy.Body(), R"({"a":1})");
    EXPECT_THAT(m_spy.Headers(), ElementsAre("Content-Type:application/json"));
}

TEST_F(Requests, ASuccessIsZeroAndReadOnce) {
    int32_t cost = -1;
    EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).CostInto(cost).Run(Says(0)), 0);
    EXPECT_THAT(m_read, ElementsAre("the body"));
    EXPECT_EQ(cost, 12) << "whole milliseconds, truncated";
    EXPECT_THAT(OwnLines(), ElementsAre("INFO 3 /api CostTime: = 12 milliseconds"));
}

TEST_F(Requests, ATransferFailureIsComposedAndNothingIsRead) {
    const struct {
        CURLcode code;
        int result;
        const char* line;
    } rows[] = {{CURLE_UNSUPPORTED_PROTOCOL, 100001, "ERROR5 NotSent error:1"},
                {CURLE_COULDNT_RESOLVE_HOST, 100006, "ERROR5 NotSent error:6"},
                {CURLE_OPERATION_TIMEDOUT, 100028, "ERROR5 NotSent error:28"},
                {CURLE_PEER_FAILED_VERIFICATION, 100060, "ERROR5 NotSent error:60"}};
    for (const auto& row : rows) {
        m_log.Clear();
        m_spy.Respond(row.code, {R"({"code":"200"})"});
        int32_t cost = -1;
        EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).CostInto(cost).Run(Says(0), Says(0)), row.result);
        EXPECT_THAT(m_read, IsEmpty());
        EXPECT_EQ(cost, 12) << "stored whatever the outcome";
        EXPECT_THAT(OwnLines(), ElementsAre("INFO 3 /api CostTime: = 12 milliseconds", row.line));
    }
}

TEST_F(Requests, ATransferFailureIsWordedByTheKind) {
    m_spy.Respond(CURLE_COULDNT_CONNECT);
    EXPECT_EQ(Send(RequestCall<kForm>(m_site, kRoute, "deviceSerial"_key = "D1")), 100007);
    EXPECT_EQ(Send(RequestCall<kGet>(m_site, kRoute, "deviceSerial"_key = "D1")), 100007);
    EXPECT_THAT(OwnLines(), ElementsAre("ERROR5 SyncRequest error:7", "ERROR5 SyncRequestHeader error:7"));
}

TEST_F(Requests, AFetchThatFailsLeavesTheBody) {
    m_spy.Respond(CURLE_COULDNT_CONNECT, {"part"});
    std::string body = "as before";
    EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).FetchText(body), 100007);
    EXPECT_EQ(body, "as before");
}

TEST_F(Requests, AParsersCodeIsComposedAndLoggedWithTheBody) {
    const struct {
        int code;
        int result;
        const char* line;
    } rows[] = {{1, 300001, "ERROR5 ParseIt:the body error:1"},
                {2, 300002, "ERROR5 ParseIt:the body error:2"},
                {10002, 310002, "ERROR5 ParseIt:the body error:10002"},
                {2147183647, 2147483647, "ERROR5 ParseIt:the body error:2147183647"},
                // Codes that no server can mean count as malformed, and are logged as they came.
                {2147183648, 300002, "ERROR5 ParseIt:the body error:2147183648"},
                {2147483647, 300002, "ERROR5 ParseIt:the body error:2147483647"},
                {-6, 300002, "ERROR5 ParseIt:the body error:-6"},
                {-300000, 300002, "ERROR5 ParseIt:the body error:-300000"}};
    for (const auto& row : rows) {
        m_log.Clear();
        EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).Run(Says(row.code)), row.result);
        EXPECT_THAT(OwnLines(), ElementsAre("INFO 3 /api CostTime: = 12 milliseconds", row.line));
    }
}

TEST_F(Requests, ACheckComesBeforeTheParser) {
    EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).Run(Says(10002), Says(2)), 310002);
    EXPECT_EQ(m_read.size(), 1U) << "the parser is not asked";
    EXPECT_EQ(OwnLines().back(), "ERROR5 CheckIt:the body error:10002");
    EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).Run(Says(0), Says(2)), 300002);
    EXPECT_EQ(m_read.size(), 3U);
    EXPECT_EQ(OwnLines().back(), "ERROR5 ParseIt:the body error:2");
    EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).Run(Says(0), Says(0)), 0);
}

TEST_F(Requests, WithoutACostTextTheTimeIsStoredButNotLogged) {
    int32_t cost = -1;
    EXPECT_EQ(RequestCall<kUntimed>(m_site, kRoute).CostInto(cost).Run(Says(0)), 0);
    EXPECT_EQ(cost, 12);
    EXPECT_THAT(OwnLines(), IsEmpty());
}

TEST_F(Requests, ABodyWithZerosReachesTheReaderWhole) {
    const std::string body("a\0b", 3);
    m_spy.Respond(CURLE_OK, {body});
    EXPECT_EQ(RequestCall<kWorded>(m_site, kRoute).Run(Says(0)), 0);
    EXPECT_THAT(m_read, ElementsAre(body));
}

TEST_F(Requests, AZeroByteInWhatIsSentIsRefused) {
    const std::string zero("a\0b", 3);
    const std::string clean = "{}";
    EXPECT_EQ(Send(RequestCall<kForm>(m_site, kRoute, "deviceSerial"_key = zero)), -1);
    EXPECT_EQ(Send(RequestCall<kGet>(m_site, kRoute, "deviceSerial"_key = zero)), -1);
    EXPECT_EQ(Send(RequestCall<kJson>(m_site, kRoute, JsonBody{zero})), -1);
    EXPECT_EQ(Send(RequestCall<kTokenAndKey>(m_site, PlatformRouteTo("https://a", zero, "k"))), -1);
    EXPECT_EQ(Send(RequestCall<kTokenAndKey>(m_site, PlatformRouteTo(zero, "t", "k"))), -1);
    EXPECT_EQ(Send(RequestCall<kPut>(m_site, ConsumerRouteTo("https://a", zero), "deviceSerial"_key = clean)), -1);
    EXPECT_THAT(OwnLines(), testing::Contains("ERROR5 a parameter has a zero byte, nothing is sent").Times(6));
    EXPECT_THAT(m_read, IsEmpty());
    EXPECT_EQ(m_spy.Url(), "");
}

TEST_F(Requests, AnEmptyRouteStillSends) {
    EXPECT_EQ(Send(RequestCall<kTokenAndKey>(m_site, PlatformRouteTo("", "", ""))), 0);
    EXPECT_EQ(m_spy.Url(), "/api/user/getUserName");
    EXPECT_EQ(m_spy.Body(), "accessToken=&appKey=");
}

TEST_F(Requests, ARefusalIsLoggedUnderItsLabelAndComposed) {
    EXPECT_EQ(LogRefusal(m_site, "Label:%s error:%d", "%s", 10002), 310002);
    EXPECT_THAT(OwnLines(), ElementsAre("ERROR5 Label:%s error:10002"));
    EXPECT_EQ(LogRefusal(m_site, "Label:%s error:%d", "body", 0), 0);
    EXPECT_EQ(OwnLines().size(), 1U) << "a success is no refusal";
}

}  // namespace
}  // namespace vantix::test
