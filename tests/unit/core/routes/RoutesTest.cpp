// Routes built alone, on settings and token maps of the test's own.

#include "core/routes/Routes.h"

#include <gtest/gtest.h>

#include "core/settings/Settings.h"
#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

// Nobody but Routes makes a route, and none becomes one of the other family.
static_assert(!std::is_constructible_v<PlatformRoute, std::string, std::string, std::string>);
static_assert(!std::is_constructible_v<ConsumerRoute, std::string, std::string>);
static_assert(!std::is_constructible_v<AuthorizationRoute, std::string, std::string>);
static_assert(!std::is_constructible_v<PlatformRoute, ConsumerRoute>);
static_assert(!std::is_constructible_v<ConsumerRoute, PlatformRoute>);

/// What a decision came to, as one text: family, address and credential.
std::string TextOf(const AnyRoute& route) {
    if (const auto* platform = std::get_if<PlatformRoute>(&route)) {
        return "platform " + platform->Address() + " " + platform->AccessToken() + " " + platform->AppKey();
    }
    if (const auto* consumer = std::get_if<ConsumerRoute>(&route)) {
        return "consumer " + consumer->Address() + " " + consumer->SessionId();
    }
    return std::get<MissingCredential>(route).family == ServerFamily::Consumer ? "no session" : "no credential";
}

class RoutesTest : public testing::Test {
protected:
    RoutesTest() {
        settings.AreaBDomain.Assign("b");
        settings.CDomain.Assign("c");
        settings.appID.Assign("app");
        settings.AuthAddr.Assign("auth");
        settings.accessToken.Assign("access");
        settings.globalTkToken.Assign("tk-global");
        settings.sessionId.Assign("session");
        settings.sharedAccessToken.Assign("shared-access");
        b2cTokens.SetB2CTokens(R"([{"token":"t-shared","deviceSerial":"S","channelNo":"1","isShared":1},
                                   {"token":"t-own","deviceSerial":"O","channelNo":"1","isShared":0},
                                   {"token":"","deviceSerial":"E","channelNo":"1","isShared":1}])");
        tkTokens.SetDeviceTkTokens(R"([{"deviceTkToken":"tk-device","deviceVideoTkToken":"tk-video",
                                        "deviceSerial":"S","channelNo":"1"}])");
        lines.Clear();
    }

    std::string Decide(int mode, const RouteRow& row, const Subject& subject) {
        settings.setPermissionMode(mode);
        lines.Clear();
        return TextOf(routes.Decide(site, row, subject));
    }

    CleanSwitches clean;
    LogCapture lines;
    Settings settings;
    TkTokens tkTokens;
    B2CTokens b2cTokens;
    Routes routes{settings, tkTokens, b2cTokens};
    const CallSite site = VANTIX_HERE_AS("Operation");
};

const Subject kSharedSubject = Subject::OfChannel("S", 1);
const Subject kOwnSubject = Subject::OfChannel("O", 1);
const Subject kUnknown = Subject::OfChannel("X", 1);

struct Decided {
    const char* name = nullptr;
    RouteRow row;
    Subject subject;
    /// In the ordinary mode, the small-permission mode and the B2C mode.
    const char* ordinary = nullptr;
    const char* small = nullptr;
    const char* b2c = nullptr;
};

const Decided kDecisions[] = {
    {"access token by channel",
     {},
     kSharedSubject,
     "platform b access app",
     "platform b access app",
     "platform c access app"},
    {"access token, own channel",
     {},
     kOwnSubject,
     "platform b access app",
     "platform b access app",
     "platform b access app"},
    {"access token, unknown channel",
     {},
     kUnknown,
     "platform b access app",
     "platform b access app",
     "platform b access app"},
    {"video token",
     {.credential = Credential::TkToken, .tkKind = 3},
     kSharedSubject,
     "platform b access app",
     "platform b tk-video app",
     "platform c access app"},
    {"device token of a channel without one",
     {.credential = Credential::TkToken, .tkKind = 2},
     kUnknown,
     "platform b access app",
     "no credential",
     "platform b access app"},
    {"account list",
     {.credential = Credential::TkToken, .tkKind = 1, .address = AddressRule::ByToken},
     Subject::OfAccount(),
     "platform b access app",
     "platform b tk-global app",
     "platform b access app"},
    {"detail of a shared channel",
     {.credential = Credential::ChannelToken, .tkKind = 3, .family = FamilyRule::ByChannel},
     kSharedSubject,
     "platform b access app",
     "platform b tk-video app",
     "consumer c session"},
    {"detail of an own channel",
     {.credential = Credential::ChannelToken, .tkKind = 3, .family = FamilyRule::ByChannel},
     kOwnSubject,
     "platform b access app",
     "no credential",
     "platform b t-own app"},
    {"detail of a shared channel without a token",
     {.credential = Credential::ChannelToken, .tkKind = 3, .family = FamilyRule::ByChannel},
     Subject::OfChannel("E", 1),
     "platform b access app",
     "no credential",
     "no credential"},
    {"files of a shared channel",
     {.family = FamilyRule::ByChannel},
     kSharedSubject,
     "platform b access app",
     "platform b access app",
     "consumer c session"},
    {"fetch by a shared token",
     {.family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     Subject::OfToken("t-shared"),
     "platform b access app",
     "platform b access app",
     "consumer c session"},
    {"fetch by the shared access token",
     {.family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     Subject::OfToken("shared-access"),
     "platform b access app",
     "platform b access app",
     "consumer c session"},
    {"fetch by the account's own token",
     {.family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     Subject::OfToken("access"),
     "platform b access app",
     "platform b access app",
     "platform b access app"},
    {"fetch by an empty token",
     {.family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     Subject::OfToken(""),
     "no credential",
     "no credential",
     "no credential"},
    {"user by a shared device",
     {.credential = Credential::TkToken, .tkKind = 2, .family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     kSharedSubject,
     "platform b access app",
     "platform b tk-device app",
     "consumer c session"},
    {"user by a device without a B2C token",
     {.credential = Credential::TkToken, .tkKind = 2, .family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     kUnknown,
     "platform b access app",
     "no credential",
     "platform b access app"},
    {"P2P device: shared token, own channel",
     {.family = FamilyRule::ByToken},
     Subject::OfBoth("O", 1, "t-shared"),
     "platform b access app",
     "platform b access app",
     "consumer c session"},
    {"P2P device: own token, shared channel",
     {.family = FamilyRule::ByToken},
     Subject::OfBoth("S", 1, "t-own"),
     "platform b access app",
     "platform b access app",
     "platform c access app"},
    {"stream tokens",
     {.credential = Credential::GivenToken, .family = FamilyRule::ByToken, .address = AddressRule::ByToken},
     Subject::OfToken("given"),
     "platform b given app",
     "platform b given app",
     "platform b given app"},
    {"no credential needed",
     {.credential = Credential::None, .address = AddressRule::ByToken},
     Subject::OfAccount(),
     "platform b  app",
     "platform b  app",
     "platform b  app"},
};

TEST_F(RoutesTest, FamilyAddressAndCredentialFollowFromModeAndMaps) {
    for (const Decided& row : kDecisions) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Decide(0, row.row, row.subject), row.ordinary);
        EXPECT_EQ(Decide(1, row.row, row.subject), row.small);
        EXPECT_EQ(Decide(2, row.row, row.subject), row.b2c);
    }
}

TEST_F(RoutesTest, ConsumerRouteNeedsASession) {
    settings.sessionId.Assign("");
    EXPECT_EQ(Decide(2, {.family = FamilyRule::ByChannel}, kSharedSubject), "no session");
    EXPECT_EQ(Decide(2, {.family = FamilyRule::ByToken}, Subject::OfToken("t-shared")), "no session");
    EXPECT_EQ(TextOf(routes.OfSession()), "no session");
}

TEST_F(RoutesTest, FilesOfASharedChannelNeedTheAccessTokenToo) {
    settings.accessToken.Assign("");
    EXPECT_EQ(Decide(2, {.family = FamilyRule::ByChannel}, kSharedSubject), "no credential");
}

TEST_F(RoutesTest, FetchByASharedTokenNeedsNoAccessToken) {
    settings.accessToken.Assign("");
    EXPECT_EQ(Decide(2, {.family = FamilyRule::ByToken, .address = AddressRule::ByToken}, Subject::OfToken("t-shared")),
              "consumer c session");
}

TEST_F(RoutesTest, EmptyConsumerDomainIsNotReplacedByThePlatforms) {
    settings.CDomain.Assign("");
    EXPECT_EQ(Decide(2, {}, kSharedSubject), "platform  access app");
    EXPECT_EQ(routes.getDomain("S", 1).Copy(), "");
}

TEST_F(RoutesTest, LookOfAnAddressIsLoggedOnceAndOnlyWithACredential) {
    using Messages = std::vector<std::string>;
    Decide(2, {}, kSharedSubject);
    EXPECT_EQ(lines.Messages(), (Messages{"isB2CSharedDevice key = S_1 ", "Returning C domain for shared device"}));
    EXPECT_EQ(lines.Find("Returning C domain for shared device").Tag(), "CVantixDataCenter::getDomain");
    Decide(0, {}, kSharedSubject);
    EXPECT_EQ(lines.Messages(), Messages{"Returning B domain"});
    Decide(0, {.address = AddressRule::ByToken}, Subject::OfAccount());
    EXPECT_EQ(lines.Messages(), (Messages{"Getting domain for token (first 10 chars): access...",
                                          "Returning B domain not a shared device"}));
    Decide(0, {.address = AddressRule::ByToken, .wording = Wording::OfOperation}, Subject::OfAccount());
    EXPECT_EQ(lines.Messages(), Messages{"Returning B domain"});
    EXPECT_EQ(lines.Find("Returning B domain").Tag(), "Operation");
    Decide(2, {.family = FamilyRule::ByToken}, Subject::OfBoth("O", 1, "t-shared"));
    EXPECT_EQ(lines.Messages(), Messages{"Returning C domain for shared device"});
    settings.accessToken.Assign("");
    Decide(0, {}, kSharedSubject);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(RoutesTest, LookUpByTokenIsLoggedBeforeTheTokenMapAndTheDomain) {
    using Messages = std::vector<std::string>;
    iLogLevel = 1;
    Decide(2, {.address = AddressRule::ByToken}, Subject::OfToken("t-shared"));
    EXPECT_EQ(lines.Messages(),
              (Messages{"Getting domain for token (first 10 chars): t-shared...", "Token found in B2C map, isShared=1",
                        "Returning C domain for shared device"}));
    Decide(2, {.address = AddressRule::ByToken}, Subject::OfToken("unknown-token"));
    EXPECT_EQ(lines.Messages(),
              (Messages{"Getting domain for token (first 10 chars): unknown-to...",
                        "Unknown token provided, cannot determine if it's a shared device. Defaulting to false.",
                        "Returning B domain not a shared device"}));
    Decide(2, {.address = AddressRule::ByToken}, Subject::OfAccount());
    EXPECT_EQ(lines.Messages(), (Messages{"Getting domain for token (first 10 chars): access...",
                                          "Returning B domain not a shared device"}));
}

TEST_F(RoutesTest, RoutesOfRenewalsGoToTheirServers) {
    EXPECT_EQ(routes.ToRenewToken().Address(), "auth");
    EXPECT_EQ(routes.ToRenewToken().AppKey(), "app");
    EXPECT_EQ(routes.ToRenewSession().Address(), "c");
    EXPECT_EQ(routes.ToRenewSession().SessionId(), "session");
    settings.sessionId.Assign("");
    EXPECT_EQ(routes.ToRenewSession().SessionId(), "");
}

}  // namespace
}  // namespace vantix::test
