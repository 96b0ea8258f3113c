// The video relays of a channel: never cached, always the platform's.

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

constexpr char kTag[] = "CVantixDataCenter::getVideoVtmAddr";
constexpr char kTwoRelays[] = R"({"vtmBackups":[{"addr":"vtm1","port":8554},{"addr":"vtm2","port":8555}]})";

class VideoRelays : public FetchTest {
protected:
    int Ask(const std::string& serial = "C1", int ch = 1, bool retried = false) {
        return core.getVideoVtmAddr(serial, ch, json, retried);
    }
    void ExpectNone(int result) {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(json, "what was there");
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kTag, "lVideoVtmAddr size 0"));
        ExpectNoLine("stVideoVtmAddr");
    }

    std::string json = "what was there";
};

TEST_F(VideoRelays, RequestNamesTheChannelAndSendsTheAccessToken) {
    for (const int mode : {0, 2, 3}) {
        core.setPermissionMode(mode);
        transport.Respond(kPlatformServers);
        EXPECT_EQ(Ask("C1", 5), 0) << mode;
        const SentRequest sent = transport.Sent().back();
        EXPECT_EQ(sent.method, "POST");
        EXPECT_EQ(Address(transport.Count() - 1), "https://b.example/api/service/media/server/info");
        EXPECT_EQ(sent.body, "");
        EXPECT_EQ(sent.Param("accessToken"), "access-token");
        EXPECT_EQ(sent.Param("deviceSerial"), "C1");
        EXPECT_EQ(sent.Param("localIndex"), "5");
    }
}

TEST_F(VideoRelays, SmallPermissionModeSendsTheVideoTkToken) {
    core.setPermissionMode(1);
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(Token(0), "tk-video");
}

TEST_F(VideoRelays, EmptyTokenFailsBeforeAnyRequest) {
    for (const int mode : {0, 1, 2, 3}) {
        core.setPermissionMode(mode);
        core.setAccessToken(mode == 1 ? "not looked at" : "");
        lines.Clear();
        SetThreadLastError(0);
        EXPECT_EQ(Ask("C9"), -1) << mode;
        EXPECT_EQ(ThreadLastError(), -1);
        ExpectOneCredentialError(kTag);
    }
    EXPECT_EQ(transport.Count(), 0U);
    EXPECT_EQ(json, "what was there");
}

TEST_F(VideoRelays, SharedDeviceHasTheCDomainAndStillThePlatformsRequest) {
    core.setPermissionMode(2);
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Ask("SHARED"), 0);
    EXPECT_EQ(Address(0), "https://c.example/api/service/media/server/info");
    EXPECT_EQ(Token(0), "access-token");
    EXPECT_EQ(Session(0), "<none>");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning C domain for shared device"));
}

TEST_F(VideoRelays, TwoAddressesAreOneLineOfJsonInTheirOrder) {
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(json, kTwoRelays);
    std::vector<std::string> own;
    for (const LogLine& line : lines.Lines()) {
        if (line.Tag() == kTag) {
            own.push_back(line.Message());
        }
    }
    EXPECT_EQ(own, (std::vector<std::string>{" addr = [vtm1]", " port = [8554]", " addr = [vtm2]", " port = [8555]",
                                             std::string("stVideoVtmAddr ") + kTwoRelays}));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, " addr = [vtm1]"));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, " port = [8555]"));
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kTag, std::string("stVideoVtmAddr ") + kTwoRelays));
}

TEST_F(VideoRelays, MainRelayIsNotInTheList) {
    transport.Respond(R"({"resultCode":"200","serverResp":{"vtmAddr":"main","vtmPort":1,
                        "vtmBackups":[{"addr":"backup","port":2}]}})");
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(json, R"({"vtmBackups":[{"addr":"backup","port":2}]})");
}

TEST_F(VideoRelays, NoListAnEmptyOneAndAFailureAreTheSame) {
    const struct {
        int curl;
        const char* body;
    } rows[] = {
        {7, ""},
        {0, ""},
        {0, "{}"},
        {0, R"({"resultCode":"20007","serverResp":{"vtmBackups":[{"addr":"refused","port":1}]}})"},
        {0, R"({"resultCode":"200"})"},
        {0, R"({"resultCode":"200","serverResp":{"vtmAddr":"main","vtmPort":1}})"},
        {0, R"({"resultCode":"200","serverResp":{"vtmBackups":[]}})"},
        {0, R"({"resultCode":"200","serverResp":{"vtmBackups":["none",1]}})"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        lines.Clear();
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        ExpectNone(Ask());
    }
}

TEST_F(VideoRelays, NothingIsCached) {
    transport.Respond(kPlatformServers, 3);
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(Ask(), 0);
    ServerInfo servers;
    EXPECT_EQ(core.getServerInfo("own-token", servers, false), 0);
    EXPECT_EQ(transport.Count(), 3U) << "nor do the relays fill the cache of the servers";
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(core.getServerInfo("own-token", servers, false), 0) << "nor does their failure end it";
    EXPECT_EQ(transport.Count(), 4U);
}

// ---- An expired token

TEST_F(VideoRelays, ExpiredTokenIsRenewedOnceAndTheRepeatTakesTheNewOne) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Ask("C1", 5), 0);
    ASSERT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Token(2), "new-token");
    EXPECT_EQ(transport.Sent()[2].Param("deviceSerial"), "C1");
    EXPECT_EQ(transport.Sent()[2].Param("localIndex"), "5");
    EXPECT_EQ(json, kTwoRelays);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::getServerInfoEx", std::string("stVideoVtmAddr ") + kTwoRelays));
}

TEST_F(VideoRelays, ExpiredTwiceIsAFailureAfterOneRefresh) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kExpired);
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(transport.Count(), 3U);
    EXPECT_EQ(Refreshes(), 1U);
    EXPECT_EQ(lines.Count("lVideoVtmAddr size 0"), 1U);
}

TEST_F(VideoRelays, RefusedRefreshSendsNoSecondRequest) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse(""));
    ExpectNone(Ask());
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(VideoRelays, RepeatedCallIsNotRenewed) {
    transport.Respond(kExpired);
    ExpectNone(Ask("C1", 1, true));
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(VideoRelays, SmallPermissionModeRenewsNothing) {
    core.setPermissionMode(1);
    transport.Respond(kExpired);
    ExpectNone(Ask());
    EXPECT_EQ(transport.Count(), 1U);
}

// ---- The form that is given its token

TEST_F(VideoRelays, GivenTokenIsSentInEveryMode) {
    for (const int mode : {0, 1, 2}) {
        core.setPermissionMode(mode);
        transport.Respond(kPlatformServers);
        EXPECT_EQ(core.getServerInfoEx("given-token", json, "C1", 2, false), 0);
        EXPECT_EQ(Token(transport.Count() - 1), "given-token");
        EXPECT_EQ(transport.Sent().back().Param("localIndex"), "2");
        EXPECT_EQ(json, kTwoRelays);
    }
}

TEST_F(VideoRelays, EmptyGivenTokenFailsBeforeAnyRequest) {
    EXPECT_EQ(core.getServerInfoEx("", json, "C1", 2, false), -1);
    EXPECT_EQ(ThreadLastError(), -1);
    ExpectOneCredentialError("CVantixDataCenter::getServerInfoEx");
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(VideoRelays, GivenTokenThatHasExpiredIsRenewedOnce) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kPlatformServers);
    EXPECT_EQ(core.getServerInfoEx("given-token", json, "C1", 2, false), 0);
    EXPECT_EQ(Token(2), "new-token");
    transport.Respond(kExpired);
    EXPECT_EQ(core.getServerInfoEx("given-token", json, "C1", 2, true), -1);
    EXPECT_EQ(transport.Count(), 4U);
}

}  // namespace
}  // namespace vantix::test
