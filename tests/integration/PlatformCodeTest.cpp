// What a refused or unreadable response becomes, how often it is asked again, and that a failure loses nothing.

#include <gmock/gmock.h>

#include "DetailFixture.h"
#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

/// A response that the cloud gives to every detail request, what becomes of it, and how many requests that takes.
struct CodeRow {
    const char* name;
    Json response;
    int result;
    size_t requests;
};

void PrintTo(const CodeRow& row, std::ostream* out) { *out << row.name; }

class PlatformResponseTest : public DetailFixture, public ::testing::WithParamInterface<CodeRow> {
protected:
    /// All detail requests get this response from now on.
    void RespondAlways(Json response) const {
        response["path"] = kDetailPath;
        response["times"] = 0;
        Cloud().Script(response);
    }
};

TEST_P(PlatformResponseTest, BecomesTheReturnCodeOfEveryForm) {
    RespondAlways(GetParam().response);
    Detail detail;
    EXPECT_EQ(Fetch(kCamera, 1, detail), GetParam().result);
    EXPECT_EQ(DetailRequests(), GetParam().requests);
    EXPECT_EQ(ReadOrFetch(kCamera, 1, detail), GetParam().result);
    const Asked asked = Ask(kCamera, 1);
    EXPECT_EQ(asked.returned, -1);
    EXPECT_EQ(asked.fetched, GetParam().result);
    EXPECT_EQ(Center().getDevDetailInfoByRelation(kCamera, 1, detail.channel, detail.device), GetParam().result);
    EXPECT_EQ(DetailRequests(), 4 * GetParam().requests);
    EXPECT_EQ(Cloud().RequestCount(), DetailRequests());
    Cloud().ForgetScript();
    EXPECT_EQ(Fetch(kCamera, 1), 0);
}

TEST_P(PlatformResponseTest, KeepsAllCaches) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    ASSERT_EQ(Fetch(kRecorder, 2), 0);
    const Json camera = Cached(kCamera, 1);
    const Json recorder = Cached(kRecorder, 2);
    RespondAlways(GetParam().response);
    EXPECT_EQ(Fetch(kCamera, 1), GetParam().result);
    EXPECT_EQ(Cached(kCamera, 1), camera);
    EXPECT_EQ(Cached(kRecorder, 2), recorder);
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 1);
    Detail detail;
    EXPECT_EQ(ReadOrFetch(kCamera, 1, detail), 0);
}

// No refresh credentials are set here, so an expired token stays expired and nothing is repeated.
const CodeRow kCodeRows[] = {
    {"NoSuchDevice", {{"code", "20002"}}, 320002, 1},
    {"ExpiredToken", {{"code", "10002"}}, 310002, 1},
    {"CodeOne", {{"code", "1"}}, 300001, 1},
    {"Inconsistent", {{"code", "49999"}}, 349999, 3},
    {"ServerFailed", {{"code", "50000"}}, 350000, 3},
    {"NumericCode", {{"json", {{"result", {{"code", 20002}}}}}}, 320002, 1},
    {"TopLevelCode", {{"json", {{"code", "20002"}}}}, 320002, 1},
    {"ResultCode", {{"json", {{"resultCode", " 20002 or so"}}}}, 320002, 1},
    {"ResultCodeGoesFirst", {{"json", {{"resultCode", "20007"}, {"code", "20002"}}}}, 320007, 1},
    {"NumericCodeAtTheTopIsNotRead", {{"json", {{"code", 20002}}}}, 300002, 1},
    {"CodeOfAnotherType", {{"json", {{"result", {{"code", true}}}}}}, 300002, 1},
    {"Malformed", {{"malformed", true}}, 300001, 1},
    {"NotJson", {{"body", "<html>Bad gateway</html>"}, {"status", 502}}, 300001, 1},
    {"Empty", {{"body", ""}}, 300001, 1},
    {"NoEnvelope", {{"json", Json::object()}}, 300002, 1},
    {"NoData", {{"json", {{"result", {{"code", "200"}}}}}}, 300002, 1},
    {"DataIsAnArray", {{"json", {{"result", {{"code", "200"}, {"data", Json::array()}}}}}}, 300002, 1},
};

INSTANTIATE_TEST_SUITE_P(Responses, PlatformResponseTest, ::testing::ValuesIn(kCodeRows),
                         [](const auto& row) { return row.param.name; });

class PlatformCodeTest : public DetailFixture {};

TEST_F(PlatformCodeTest, TransientFailureIsAskedAgainUntilItPasses) {
    Cloud().Script({{"path", kDetailPath}, {"code", "49999"}});
    Cloud().Script({{"path", kDetailPath}, {"code", "50000"}});
    Detail detail;
    EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
    ExpectStored(Cloud(), kCamera, 1, detail);
    EXPECT_EQ(DetailRequests(), 3U);
}

TEST_F(PlatformCodeTest, AnotherFailureEndsTheAttempts) {
    Cloud().Script({{"path", kDetailPath}, {"code", "50000"}});
    Cloud().Script({{"path", kDetailPath}, {"code", "20007"}});
    EXPECT_EQ(Fetch(kCamera, 1), 320007);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(PlatformCodeTest, ExpiredTokenWithoutRefreshCredentialsSendsNothingElse) {
    Cloud().Post("/expire", {{"what", "accessToken"}});
    EXPECT_EQ(Fetch(kCamera, 1), 310002);
    EXPECT_EQ(Ask(kCamera, 1).fetched, 310002);
    EXPECT_EQ(Cloud().RequestCount(), 2U);
}

TEST_F(PlatformCodeTest, UnknownDeviceAndChannelGiveThePlatformsCodes) {
    EXPECT_EQ(Fetch(kUnknown, 1), 320002);
    EXPECT_EQ(Fetch(kCamera, 2), 320032);
    EXPECT_EQ(Fetch(kCamera, -1), 320032);
}

TEST_F(PlatformCodeTest, FailureLineNamesTheParserTheBodyAndTheCode) {
    const LogCapture log;
    Cloud().Script({{"path", kDetailPath}, {"body", "no json"}});
    EXPECT_EQ(Fetch(kCamera, 1), 300001);
    EXPECT_THAT(log.Lines(),
                HasLine(5, "ERROR", "ParseDevDetailInfoFromPlatform", "platform response bad, szInfo = no json"));
    EXPECT_THAT(log.Lines(), HasLine(5, "ERROR", "GetDevDetailInfoFromPlatformBySerial",
                                     "ParseDevDetailInfoFromPlatform:no json error:1"));
}

TEST_F(PlatformCodeTest, RefusalLineShowsTheCodeAndTheResponse) {
    const LogCapture log;
    const std::string body = R"({"result":{"code":"20002","msg":"100%s %n"}})";
    Cloud().Script({{"path", kDetailPath}, {"body", body}});
    EXPECT_EQ(Fetch(kCamera, 1), 320002);
    EXPECT_THAT(log.Lines(),
                HasLine(3, "INFO ", "ParseDevDetailInfoFromPlatform", "Platform Response Error:20002, Resp:" + body));
    EXPECT_THAT(log.Lines(), HasLine(5, "ERROR", "GetDevDetailInfoFromPlatformBySerial",
                                     "ParseDevDetailInfoFromPlatform:" + body + " error:20002"));
}

TEST_F(PlatformCodeTest, TransportFailureLineShowsTheCode) {
    const LogCapture log;
    Center().setDomain(Cloud().ClosedPort(), "");
    EXPECT_EQ(Fetch(kCamera, 1), 100007);
    EXPECT_THAT(log.Lines(), HasLine(5, "ERROR", "GetDevDetailInfoFromPlatformBySerial", "SyncRequest error:7"));
    EXPECT_THAT(log.Lines(), HasLine(3, "INFO ", "SyncRequest", "end Posts url and Param result = 7"));
}

}  // namespace
}  // namespace vantix::test
