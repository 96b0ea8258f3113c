// Which server family a fetch goes to, and with which credential: the same rules for every fetch.

#include <functional>

#include "unit/core/FetchRows.h"

namespace vantix::test {
namespace {

using FetchRoutes = FetchRowTest;

// ---- The choice

TEST_P(FetchRoutes, OutsideTheB2CModeThePlatformIsAskedForEveryToken) {
    for (const int mode : {0, 1, 3, -1}) {
        core.setPermissionMode(mode);
        for (const char* token : {"shared-token", "own-token", "unknown"}) {
            SCOPED_TRACE(std::to_string(mode) + token);
            core.ClearAllCache();
            const size_t before = transport.Count();
            transport.Respond(GetParam().platformBody);
            EXPECT_EQ(Call(token), 0);
            ASSERT_EQ(transport.Count(), before + 1);
            EXPECT_EQ(Address(before), AtPlatform());
            EXPECT_EQ(Token(before), SentToken(token));
            EXPECT_EQ(Session(before), "<none>");
        }
    }
}

TEST_P(FetchRoutes, InTheB2CModeThePlatformIsAskedForTokensThatAreNotShared) {
    EnterB2C();
    for (const char* token : {"own-token", "unknown", "access-token"}) {
        SCOPED_TRACE(token);
        core.ClearAllCache();
        const size_t before = transport.Count();
        transport.Respond(GetParam().platformBody);
        EXPECT_EQ(Call(token), 0);
        ASSERT_EQ(transport.Count(), before + 1);
        EXPECT_EQ(Address(before), AtPlatform());
        EXPECT_EQ(Token(before), SentToken(token));
        EXPECT_EQ(Session(before), "<none>");
    }
}

TEST_P(FetchRoutes, InTheB2CModeTheConsumerServerIsAskedForSharedTokensByTheSession) {
    EnterB2C();
    for (const char* token : {"shared-token", "shared-by-token"}) {
        SCOPED_TRACE(token);
        core.ClearAllCache();
        const size_t before = transport.Count();
        RespondByConsumer();
        EXPECT_EQ(Call(token), 0);
        ASSERT_EQ(transport.Count(), before + GetParam().consumerBodies.size());
        EXPECT_EQ(Address(before), AtConsumer());
        for (size_t i = before; i < transport.Count(); ++i) {
            EXPECT_EQ(Session(i), "old-session");
            EXPECT_EQ(Token(i), "<none>");
        }
    }
}

TEST_P(FetchRoutes, DomainIsLoggedInTheWordsOfItsOperation) {
    transport.Respond(GetParam().platformBody);
    EXPECT_EQ(Call("own-token"), 0);
    if (GetParam().hasDomainByToken) {
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomainByToken",
                                           "Getting domain for token (first 10 chars): own-token..."));
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomainByToken",
                                           "Returning B domain not a shared device"));
    } else {
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning B domain"));
        ExpectNoLine("Getting domain for token");
    }
}

// ---- Empty credentials

TEST_P(FetchRoutes, EmptyAccessTokenFailsBeforeAnyRequestInEveryMode) {
    core.setAccessToken("");
    for (const int mode : {0, 1, 2, 3}) {
        SCOPED_TRACE(mode);
        core.setPermissionMode(mode);
        SetThreadLastError(55);
        lines.Clear();
        EXPECT_EQ(Call(GetParam().sendsGivenToken ? "" : "own-token"), -1);
        EXPECT_EQ(ThreadLastError(), GetParam().isInBackground ? 55 : -1) << "a task has a thread of its own";
        ExpectOneCredentialError("CVantixDataCenter::get");
    }
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_P(FetchRoutes, EmptySessionIsRenewedBeforeTheRequest) {
    EnterB2C();
    core.setSessionId("");
    transport.Respond(SessionResponse("new-session"));
    RespondByConsumer();
    EXPECT_EQ(Call("shared-token"), 0);
    EXPECT_EQ(SessionRefreshes(), 1U);
    EXPECT_EQ(Address(1), AtConsumer());
    EXPECT_EQ(Session(1), "new-session");
    ExpectNoLine("get strToken error");
}

TEST_P(FetchRoutes, EmptySessionThatNothingRenewsFailsWithoutARequest) {
    EnterB2C();
    core.setSessionId("");
    Parts().settings.refreshSessionId.Assign("");
    EXPECT_EQ(Call("shared-token"), -1);
    EXPECT_EQ(ThreadLastError(), GetParam().isInBackground ? 0 : -1);
    ExpectOneCredentialError("CVantixDataCenter::get");
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_P(FetchRoutes, EmptySessionIsRenewedOnce) {
    EnterB2C();
    core.setSessionId("");
    transport.Fail(7);
    EXPECT_EQ(Call("shared-token"), -1);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_EQ(SessionRefreshes(), 1U);
    ExpectOneCredentialError("CVantixDataCenter::get");
}

TEST_P(FetchRoutes, EmptyGivenTokenIsRefusedInEveryMode) {
    for (const int mode : {0, 1, 2, 3}) {
        SCOPED_TRACE(mode);
        core.setPermissionMode(mode);
        lines.Clear();
        EXPECT_EQ(Call(""), -1);
        ExpectOneCredentialError("CVantixDataCenter::get");
        ExpectNoLine("Returning");
    }
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_P(FetchRoutes, ConsumerServerNeedsNoAccessToken) {
    EnterB2C();
    core.setAccessToken("");
    RespondByConsumer();
    EXPECT_EQ(Call("shared-token"), 0);
    EXPECT_EQ(Address(0), AtConsumer());
}

TEST_P(FetchRoutes, PlatformNeedsNoSession) {
    EnterB2C();
    core.setSessionId("");
    transport.Respond(GetParam().platformBody);
    EXPECT_EQ(Call("own-token"), 0);
    EXPECT_EQ(Address(0), AtPlatform());
}

INSTANTIATE_TEST_SUITE_P(Fetches, FetchRoutes, testing::ValuesIn(AllFetches()), NameOfFetch);

// ---- Operations that are asked by device find their credential by device

class DeviceFetchRoutes : public FetchTest {
protected:
    int User(const std::string& serial, int ch) {
        P2PUserInfo user;
        return core.getP2PUserInfo(serial, ch, user, false);
    }
    int Device(const std::string& serial) {
        P2PDevInfo device;
        std::vector<P2PServerAddr> servers;
        return core.getP2PDevInfoCached(serial, servers, device, true);
    }
    int Relays(const std::string& serial, int ch) {
        std::string json;
        return core.getVideoVtmAddr(serial, ch, json, false);
    }
};

TEST_F(DeviceFetchRoutes, SmallPermissionModeSendsTheDevicesTkTokenOfTheOperationsKind) {
    core.setPermissionMode(1);
    transport.Respond(kPlatformUser);
    EXPECT_EQ(User("C1", 1), 0);
    EXPECT_EQ(Token(0), "tk-device");
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Device("C1"), 0);
    EXPECT_EQ(Token(1), "tk-device");
    transport.Respond(kPlatformServers);
    EXPECT_EQ(Relays("C1", 1), 0);
    EXPECT_EQ(Token(2), "tk-video");
}

TEST_F(DeviceFetchRoutes, SmallPermissionModeWithoutATkTokenFailsBeforeAnyRequest) {
    core.setPermissionMode(1);
    const struct {
        const char* tag;
        std::function<int()> call;
    } rows[] = {
        {"CVantixDataCenter::getP2PUserInfo", [this] { return User("C1", 2); }},
        {"CVantixDataCenter::getP2PDevInfoCached", [this] { return Device("C2"); }},
        {"CVantixDataCenter::getVideoVtmAddr", [this] { return Relays("C1", 2); }},
    };
    for (const auto& row : rows) {
        SetThreadLastError(0);
        lines.Clear();
        EXPECT_EQ(row.call(), -1);
        EXPECT_EQ(ThreadLastError(), -1);
        ExpectOneCredentialError(row.tag);
    }
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(DeviceFetchRoutes, OtherModesSendTheAccessTokenForAnOwnDevice) {
    for (const int mode : {0, 2, 3}) {
        core.setPermissionMode(mode);
        core.ClearAllCache();
        transport.Respond(kPlatformUser);
        EXPECT_EQ(User("OWN", 1), 0);
        EXPECT_EQ(Token(transport.Count() - 1), "access-token");
        transport.Respond(kPlatformDevice);
        EXPECT_EQ(Device("OWN"), 0);
        EXPECT_EQ(Token(transport.Count() - 1), "access-token");
        EXPECT_EQ(Address(transport.Count() - 1), "https://b.example/api/sdk/p2p/dev/info/get");
    }
}

TEST_F(DeviceFetchRoutes, InTheB2CModeTheB2CTokenOfTheDeviceChoosesTheFamily) {
    core.setPermissionMode(2);
    transport.Respond(kConsumerUser);
    transport.Respond(kConsumerSecret);
    EXPECT_EQ(User("SHARED", 1), 0);
    EXPECT_EQ(Address(0), "https://c.example/v3/users/info");
    transport.Respond(kConsumerDevice);
    EXPECT_EQ(Device("SHARED"), 0);
    EXPECT_EQ(Address(2), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(Session(2), "old-session");
}

TEST_F(DeviceFetchRoutes, ChannelWithoutAB2CTokenIsTheAccountsOwn) {
    core.setPermissionMode(2);
    core.setSharedAccessToken("");
    transport.Respond(kPlatformUser);
    EXPECT_EQ(User("C9", 1), 0);
    EXPECT_EQ(Address(0), "https://b.example/api/sdk/p2p/user/info/get");
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Device("C9"), 0);
    EXPECT_EQ(Address(1), "https://b.example/api/sdk/p2p/dev/info/get");
    EXPECT_EQ(Token(1), "access-token");
}

TEST_F(DeviceFetchRoutes, SessionThatEndsIsRenewedForTheSameFamily) {
    core.setPermissionMode(2);
    transport.Respond(kSessionGone);
    transport.Respond(SessionResponse());
    transport.Respond(kConsumerDevice);
    EXPECT_EQ(Device("SHARED"), 0);
    EXPECT_EQ(Address(2), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(Session(2), "new-session");
}

TEST_F(DeviceFetchRoutes, ExpiredTokenIsRenewedForThemToo) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kPlatformUser);
    EXPECT_EQ(User("OWN", 1), 0);
    EXPECT_EQ(Token(2), "new-token");
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse("third-token"));
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Device("OWN"), 0);
    EXPECT_EQ(Token(5), "third-token");
}

}  // namespace
}  // namespace vantix::test
