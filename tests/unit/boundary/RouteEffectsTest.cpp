// Where the arguments of a slot decide which servers get its request, and with which credential: in the B2C mode what
// is shared goes to the C domain.

#include <string>

#include "support/Operations.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

class RouteEffects : public HandleTest {
protected:
    RouteEffects() {
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAccessToken("access-token");
        handle->setAppId("app");
        handle->setSessionId("session");
        handle->setPermissionMode(2);
        handle->SetB2CTokens(R"([{"token":"shared-token","deviceSerial":"SHARED","channelNo":"1","isShared":1},
                                 {"token":"second-token","deviceSerial":"SHARED","channelNo":"2","isShared":0}])");
    }

    /// The domain that gets the first request of this call, "B" or "C". Nothing responds.
    std::string DomainOf(const char* operation, const Arguments& arguments) {
        handle->ClearAllCache();
        const size_t before = transport.Count();
        Call(*handle, operation, arguments);
        const std::vector<SentRequest> sent = transport.Sent();
        if (sent.size() == before) {
            return "none";
        }
        return sent[before].url.rfind("https://c.example/", 0) == 0 ? "C" : "B";
    }
};

/// What a slot's route depends on.
struct RouteEffect {
    const char* operation = nullptr;
    bool serial = false;
    bool channel = false;
    bool token = false;
};

const RouteEffect kRoutes[] = {
    {.operation = "getDeviceInfoBySerial", .serial = true, .channel = true},
    {.operation = "getTransparentMsgDetail", .serial = true},
    {.operation = "getP2PUserInfoByDevice", .serial = true, .channel = true},
    {.operation = "getCloudFileInfoBySerialEX", .serial = true, .channel = true},
    {.operation = "GetClouduploadUrl", .serial = true, .channel = true},
    {.operation = "getVideoVtmAddr", .serial = true, .channel = true},
    {.operation = "getServerInfoEx", .serial = true, .channel = true},
    {.operation = "getServerInfoAsync", .token = true},
    {.operation = "getServerInfoSync", .token = true},
    {.operation = "getP2PUserInfoAsync", .token = true},
    {.operation = "getP2PUserInfoByToken", .token = true},
    {.operation = "getStreamTokens", .token = true},
};

TEST_F(RouteEffects, WhatIsSharedGoesToTheCDomainAndEverythingElseDoesNot) {
    const Arguments shared = {.serial = "SHARED", .ch = 1, .token = "shared-token"};
    const Arguments otherSerial = {.serial = "OTHER", .ch = 1, .token = "shared-token"};
    const Arguments otherChannel = {.serial = "SHARED", .ch = 2, .token = "shared-token"};
    const Arguments otherToken = {.serial = "SHARED", .ch = 1, .token = "other-token"};
    for (const RouteEffect& row : kRoutes) {
        SCOPED_TRACE(row.operation);
        EXPECT_EQ(DomainOf(row.operation, shared), "C");
        EXPECT_EQ(DomainOf(row.operation, otherSerial), row.serial ? "B" : "C");
        EXPECT_EQ(DomainOf(row.operation, otherChannel), row.channel ? "B" : "C");
        EXPECT_EQ(DomainOf(row.operation, otherToken), row.token ? "B" : "C");
    }
}

TEST_F(RouteEffects, P2PDeviceIsAskedForAtTheDomainOfItsChannelUnlessTheTokenIsShared) {
    const struct {
        const char* operation = nullptr;
        Arguments arguments;
        const char* domain = nullptr;
    } rows[] = {
        {"getP2PDevInfoByChannel", {.serial = "SHARED", .ch = 1, .token = "access-token"}, "C"},
        {"getP2PDevInfoByChannel", {.serial = "SHARED", .ch = 2, .token = "access-token"}, "B"},
        {"getP2PDevInfoByChannel", {.serial = "SHARED", .ch = 2, .token = "shared-token"}, "C"},
        {"getP2PDevInfoBySerial", {.serial = "OTHER", .token = "access-token"}, "B"},
        {"getP2PDevInfoBySerial", {.serial = "OTHER", .token = "shared-token"}, "C"},
        {"getP2PDevInfoAsync", {.serial = "OTHER", .token = "access-token"}, "B"},
        {"getP2PDevInfoAsync", {.serial = "OTHER", .token = "shared-token"}, "C"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DomainOf(row.operation, row.arguments), row.domain)
            << row.operation << ' ' << row.arguments.ch << ' ' << row.arguments.token;
    }
}

TEST_F(RouteEffects, VideoRelaysAreAskedForWithTheTokenThatIsGiven) {
    EXPECT_EQ(DomainOf("getServerInfoEx", {.serial = "OTHER", .token = "given-token"}), "B");
    EXPECT_EQ(transport.Sent().back().Param("accessToken"), "given-token");
    EXPECT_EQ(DomainOf("getVideoVtmAddr", {.serial = "OTHER", .token = "given-token"}), "B");
    EXPECT_EQ(transport.Sent().back().Param("accessToken"), "access-token");
}

}  // namespace
}  // namespace vantix::test
