// Domains, credentials, and which domain a request goes to.

#include <algorithm>
#include <thread>

#include "support/LineMatcher.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

using Credentials = CoreTest;

constexpr char kShared[] = R"([
    {"token":"shared-token","deviceSerial":"SHARED","channelNo":"1","isShared":1},
    {"token":"own-token","deviceSerial":"OWN","channelNo":"1","isShared":0},
    {"token":"access-token","deviceSerial":"OTHER","channelNo":"1","isShared":1}])";

TEST_F(Credentials, TextsOfAFreshCoreAreEmpty) {
    EXPECT_EQ(core.getAuthAddr(), "");
    EXPECT_EQ(core.getAppId(), "");
    EXPECT_EQ(core.getAccessToken(), "");
    EXPECT_EQ(core.getTokenExpireTime(), "");
    EXPECT_EQ(core.getRefreshToken(), "");
    EXPECT_EQ(core.getOpenID(), "");
    EXPECT_EQ(core.getScope(), "");
    EXPECT_EQ(core.getState(), "");
    EXPECT_EQ(core.getSessionId(), "");
    EXPECT_EQ(core.getSharedAccessToken(), "");
    EXPECT_EQ(core.getGlobalTkToken(), "");
    EXPECT_EQ(core.getDomain("S", 1), "");
    EXPECT_EQ(core.getDomainByToken("t"), "");
}

TEST_F(Credentials, SetDomainLogsTheOldBDomainAndBothArguments) {
    core.setDomain("https://b1", "https://c1");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setDomain",
                                       "SetDomain OldAreaBDomain:, szBDomain:https://b1, szCDomain:https://c1"));
    core.setDomain("https://b2", "");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setDomain",
                                       "SetDomain OldAreaBDomain:https://b1, szBDomain:https://b2, szCDomain:"));
    EXPECT_EQ(lines.Lines().size(), 2U);
}

TEST_F(Credentials, EmptyDomainKeepsTheOldOne) {
    core.SetB2CTokens(kShared);
    core.setPermissionMode(2);
    core.setDomain("https://b1", "https://c1");
    core.setDomain("", "https://c2");
    EXPECT_EQ(core.getDomain("OWN", 1), "https://b1");
    EXPECT_EQ(core.getDomain("SHARED", 1), "https://c2");
    core.setDomain("https://b2", "");
    EXPECT_EQ(core.getDomain("OWN", 1), "https://b2");
    EXPECT_EQ(core.getDomain("SHARED", 1), "https://c2");
    core.setDomain("", "");
    EXPECT_EQ(core.getDomain("OWN", 1), "https://b2");
    EXPECT_EQ(core.getDomain("SHARED", 1), "https://c2");
}

TEST_F(Credentials, AuthAddressIsLoggedAndAlsoStoredWhenEmpty) {
    core.setAuthAddr("https://auth1");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setAuthAddr", "SetAuthAddr OldAuth:, NewAuth:https://auth1"));
    core.setAuthAddr("");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setAuthAddr", "SetAuthAddr OldAuth:https://auth1, NewAuth:"));
    EXPECT_EQ(core.getAuthAddr(), "");
}

TEST_F(Credentials, TokenExpireTimeIsTextThatIsLogged) {
    core.setTokenExpireTime("not a number");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setTokenExpireTime", "Set TokenExpireTime:not a number"));
    EXPECT_EQ(core.getTokenExpireTime(), "not a number");
    core.setTokenExpireTime("");
    EXPECT_EQ(core.getTokenExpireTime(), "");
}

TEST_F(Credentials, OtherSettersAreSilent) {
    core.setAppId("secret-1");
    core.setAccessToken("secret-2");
    core.setRefreshToken("secret-3");
    core.setOpenID("secret-4");
    core.setScope("secret-5");
    core.setState("secret-6");
    core.setSessionId("secret-7");
    core.setSharedAccessToken("secret-8");
    core.setGlobalTkToken("secret-9");
    EXPECT_TRUE(lines.Lines().empty());
}

// ---- By device

TEST_F(Credentials, OutsideTheB2CModeASharedDeviceHasTheBDomain) {
    Configure();
    core.SetB2CTokens(kShared);
    for (const int mode : {0, 1, 3, -1}) {
        core.setPermissionMode(mode);
        lines.Clear();
        EXPECT_EQ(core.getDomain("SHARED", 1), "https://b.example") << mode;
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning B domain"));
        EXPECT_EQ(lines.Lines().size(), 1U) << "the map is not asked";
    }
}

TEST_F(Credentials, InTheB2CModeASharedDeviceHasTheCDomain) {
    Configure();
    core.SetB2CTokens(kShared);
    core.setPermissionMode(2);
    EXPECT_EQ(core.getDomain("SHARED", 1), "https://c.example");
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning C domain for shared device"));
    for (const auto& [serial, ch] : {std::pair("OWN", 1), {"SHARED", 2}, {"ABSENT", 1}, {"", 0}}) {
        lines.Clear();
        EXPECT_EQ(core.getDomain(serial, ch), "https://b.example") << serial << ch;
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning B domain"));
    }
}

// ---- By token

TEST_F(Credentials, OutsideTheB2CModeEveryTokenHasTheBDomain) {
    Configure();
    core.SetB2CTokens(kShared);
    for (const int mode : {0, 1, 3}) {
        core.setPermissionMode(mode);
        lines.Clear();
        EXPECT_EQ(core.getDomainByToken("shared-token"), "https://b.example");
        ASSERT_EQ(lines.Lines().size(), 2U);
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomainByToken",
                                           "Getting domain for token (first 10 chars): shared-tok..."));
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomainByToken",
                                           "Returning B domain not a shared device"));
    }
}

TEST_F(Credentials, InTheB2CModeASharedTokenHasTheCDomain) {
    Configure();
    core.SetB2CTokens(kShared);
    core.setSharedAccessToken("shared-access-token");
    core.setPermissionMode(2);
    for (const char* token : {"shared-token", "shared-access-token"}) {
        lines.Clear();
        EXPECT_EQ(core.getDomainByToken(token), "https://c.example") << token;
        EXPECT_THAT(lines.Lines(),
                    HasLine(3, "INFO ", "CVantixDataCenter::getDomainByToken", "Returning C domain for shared device"));
    }
    for (const char* token : {"own-token", "access-token", "unknown", ""}) {
        lines.Clear();
        EXPECT_EQ(core.getDomainByToken(token), "https://b.example") << token;
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomainByToken",
                                           "Returning B domain not a shared device"));
    }
}

TEST_F(Credentials, LookedUpTokenIsLoggedByItsFirstTenCharactersOnly) {
    for (const auto& [token, shown] : {std::pair("", ""),
                                       {"123456789", "123456789"},
                                       {"1234567890", "1234567890"},
                                       {"1234567890SECRET", "1234567890"}}) {
        lines.Clear();
        core.getDomainByToken(token);
        EXPECT_EQ(lines.Lines().front().Message(),
                  "Getting domain for token (first 10 chars): " + std::string(shown) + "...");
    }
    EXPECT_FALSE(lines.Contains("SECRET"));
}

// ---- Renewed credentials

using RenewedCredentials = FetchTest;

TEST_F(RenewedCredentials, LiveReferencesFollowARefresh) {
    const std::string& token = core.getAccessToken();
    const std::string& time = core.getTokenExpireTime();
    const std::string& session = core.getSessionId();
    std::string renewed;
    transport.Respond(RefreshResponse());
    EXPECT_EQ(core.RefreshToken(renewed), 0);
    EXPECT_EQ(token, "new-token");
    EXPECT_EQ(time, "7200");
    core.setPermissionMode(2);
    transport.Respond(SessionResponse());
    EXPECT_EQ(core.RefreshSession("", renewed), 0);
    EXPECT_EQ(session, "new-session");
}

TEST_F(RenewedCredentials, RenewedTokenIsTheAccountsOwnAndTheOldOneIsNoMore) {
    core.SetB2CTokens(R"([{"token":"new-token","deviceSerial":"A","channelNo":"1","isShared":1},
                          {"token":"access-token","deviceSerial":"B","channelNo":"1","isShared":1}])");
    core.setPermissionMode(2);
    EXPECT_EQ(core.getDomainByToken("new-token"), "https://c.example");
    EXPECT_EQ(core.getDomainByToken("access-token"), "https://b.example");
    std::string renewed;
    transport.Respond(RefreshResponse());
    EXPECT_EQ(core.RefreshToken(renewed), 0);
    EXPECT_EQ(core.getDomainByToken("new-token"), "https://b.example");
    EXPECT_EQ(core.getDomainByToken("access-token"), "https://c.example");
}

// ---- Together

TEST_F(Credentials, AddressThatIsNotEncryptedIsKeptAndReported) {
    const auto warnings = [this] {
        const std::vector<std::string> messages = lines.Messages();
        return std::count_if(messages.begin(), messages.end(), [](const std::string& message) {
            return message.find("credentials are sent in clear text") != std::string::npos;
        });
    };
    core.setDomain("https://b.example", "https://c.example");
    core.setAuthAddr("https://a.example");
    core.setDomain("", "");
    core.setAuthAddr("");
    EXPECT_EQ(warnings(), 0);
    core.setDomain("b.example", "http://c.example");
    core.setAuthAddr("a.example");
    EXPECT_EQ(warnings(), 3);
    const char* message = "a.example does not begin with https://, credentials are sent in clear text";
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::setAuthAddr", message));
    EXPECT_EQ(core.getDomain("OWN", 1), "b.example");
    EXPECT_EQ(core.getAuthAddr(), "a.example");
}

TEST_F(Credentials, LiveReferencesFollowTheSetter) {
    const std::string& token = core.getAccessToken();
    const std::string& session = core.getSessionId();
    const std::string& shared = core.getSharedAccessToken();
    core.setAccessToken("a");
    core.setSessionId("b");
    core.setSharedAccessToken("c");
    EXPECT_EQ(token + session + shared, "abc");
}

TEST_F(Credentials, SettersAndDomainChoiceRunSideBySide) {
    Configure();
    iLogLevel = 6;
    constexpr int kThreads = 4;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([this, i] {
            const std::string text(static_cast<size_t>(40 + i), static_cast<char>('a' + i));
            for (int k = 0; k < 300; ++k) {
                core.setAccessToken(text);
                core.setSharedAccessToken(text);
                core.setPermissionMode(k % 3);
                core.setDomain(text, text);
                core.SetB2CTokens(kShared);
                // Copied under their lock: what the interface hands out follows the setter while it is read.
                const Routes& routes = Parts().routes;
                EXPECT_NE(routes.getDomain("SHARED", 1).Copy(), "");
                EXPECT_NE(routes.getDomainByToken("shared-token").Copy(), "");
                EXPECT_GE(routes.getDomain("OWN", 1).Copy().size(), 17U);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace
}  // namespace vantix::test
