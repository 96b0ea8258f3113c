// The forms of a device's P2P information that are given no token: the cached read, and whether it downloads by V3.

#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

std::string DownloadBody(const std::string& capability) {
    auto response = nlohmann::json::parse(kPlatformDevice);
    response["result"]["data"]["qxDeviceCapability"] = capability;
    return response.dump();
}

// ---- The cached read

class P2PCachedRead : public FetchTest {
protected:
    int Read(bool force) { return core.getP2PDevInfoCached("OWN", servers, device, force); }

    P2PDevInfo device;
    std::vector<P2PServerAddr> servers;
};

TEST_F(P2PCachedRead, MissIsFetchedAndTheServersAreHandedOut) {
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Read(false), 0);
    ASSERT_EQ(servers.size(), 2U);
    EXPECT_EQ(servers[0].ip, "10.0.0.1");
    EXPECT_EQ(servers[1].port, 6002);
    EXPECT_EQ(device.serverInfos.size(), 2U);
}

TEST_F(P2PCachedRead, CopyIsServedUnlessForced) {
    transport.Respond(kPlatformDevice, 2);
    EXPECT_EQ(Read(false), 0);
    servers.clear();
    EXPECT_EQ(Read(false), 0);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_EQ(servers.size(), 2U);
    EXPECT_EQ(device.iRequestCost, 0);
    EXPECT_EQ(Read(true), 0);
    EXPECT_EQ(transport.Count(), 2U);
    EXPECT_EQ(servers.size(), 2U) << "replaced, not appended";
}

TEST_F(P2PCachedRead, FailureLeavesTheServersAlone) {
    servers.resize(5);
    transport.Fail(7);
    EXPECT_EQ(Read(true), 100007);
    EXPECT_EQ(servers.size(), 5U);
}

TEST_F(P2PCachedRead, ForcedFailureLeavesTheCacheAlone) {
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Read(false), 0);
    transport.Fail(7);
    EXPECT_EQ(Read(true), 100007);
    EXPECT_EQ(Read(false), 0);
    EXPECT_EQ(servers.size(), 2U);
    EXPECT_EQ(transport.Count(), 2U);
}

// ---- Downloading by the third P2P version

constexpr char kTag[] = "CVantixDataCenter::isP2PV3download";

class V3Download : public FetchTest {};

TEST_F(V3Download, EmptyTokenIsAYesInEveryMode) {
    for (const int mode : {0, 1, 2, 3}) {
        core.setPermissionMode(mode);
        core.setAccessToken(mode == 1 ? "not looked at" : "");
        SetThreadLastError(0);
        lines.Clear();
        EXPECT_EQ(core.isP2PV3download("C9", 1), 1) << mode;
        EXPECT_EQ(ThreadLastError(), -1);
        ExpectOneCredentialError(kTag);
    }
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(V3Download, EmptyTokenIsAYesEvenWhenTheCacheSaysNo) {
    transport.Respond(DownloadBody(R"({"V3Download":"0"})"));
    EXPECT_EQ(core.isP2PV3download("C1", 1), 0);
    core.setAccessToken("");
    EXPECT_EQ(core.isP2PV3download("C1", 1), 1);
}

TEST_F(V3Download, ResultIsYesExactlyWhenTheTextIsOne) {
    for (const auto& [text, yes] : {std::pair("1", 1), {"0", 0}, {"", 0}, {"2", 0}, {"01", 0}, {"1 ", 0}, {"11", 0}}) {
        core.ClearAllCache();
        lines.Clear();
        transport.Respond(DownloadBody(R"({"V3Download":")" + std::string(text) + R"("})"));
        EXPECT_EQ(core.isP2PV3download("C1", 1), yes) << text;
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", kTag, "strV3Download[" + std::string(text) + "]"));
    }
}

TEST_F(V3Download, CapabilityThatIsNotThereIsANo) {
    for (const char* capability : {"{}", "no json", R"({"V3":"1"})"}) {
        core.ClearAllCache();
        transport.Respond(DownloadBody(capability));
        EXPECT_EQ(core.isP2PV3download("C1", 1), 0) << capability;
    }
}

TEST_F(V3Download, FailedFetchIsANo) {
    transport.Fail(7);
    EXPECT_EQ(core.isP2PV3download("C1", 1), 0);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", kTag, "get p2p device info failed"));
    ExpectNoLine("strV3Download[");
}

TEST_F(V3Download, FetchIsCachedAndTheCopyIsServedNext) {
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(core.isP2PV3download("C1", 1), 1);
    EXPECT_EQ(core.isP2PV3download("C1", 1), 1);
    P2PDevInfo device;
    EXPECT_EQ(core.getP2PDevInfo(device, "own-token", "C1", false), 0);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(V3Download, SmallPermissionModeSendsTheDevicesTkToken) {
    core.setPermissionMode(1);
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(core.isP2PV3download("C1", 1), 1);
    EXPECT_EQ(Token(0), "tk-device");
    EXPECT_EQ(transport.Sent()[0].Param("deviceSerial"), "C1");
}

TEST_F(V3Download, OtherModesSendTheAccessToken) {
    for (const int mode : {0, 2, 3}) {
        core.setPermissionMode(mode);
        core.ClearAllCache();
        transport.Respond(kPlatformDevice);
        EXPECT_EQ(core.isP2PV3download("C1", 1), 1);
        EXPECT_EQ(Token(transport.Count() - 1), "access-token");
    }
}

TEST_F(V3Download, ConsumerServerIsAskedForASharedDevice) {
    core.setPermissionMode(2);
    transport.Respond(kConsumerDevice);
    EXPECT_EQ(core.isP2PV3download("SHARED", 1), 1);
    EXPECT_EQ(Address(0), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(Session(0), "old-session");
}

TEST_F(V3Download, ExpiredTokenIsRenewedOnce) {
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(core.isP2PV3download("C1", 1), 1);
    EXPECT_EQ(Token(2), "new-token");
    core.ClearAllCache();
    transport.Respond(kExpired);
    transport.Respond(RefreshResponse());
    transport.Respond(kExpired);
    EXPECT_EQ(core.isP2PV3download("C1", 1), 0);
    EXPECT_EQ(transport.Count(), 6U);
}

}  // namespace
}  // namespace vantix::test
