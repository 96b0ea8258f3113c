// A device's P2P information: cached by serial, marked copies, five forms.

#include "support/NoThreads.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class P2PDevicesTest : public FetchTest {
protected:
    int Fetch(const std::string& serial = "OWN") { return core.getP2PDevInfo(device, "own-token", serial, false); }
    int FetchInBackground() { return core.getP2PDevInfo(device, "own-token", "OWN", future); }
    static std::string Body(const std::string& ip, const std::string& download = "1") {
        auto response = nlohmann::json::parse(kPlatformDevice);
        response["result"]["data"]["serverInfos"] = {{{"ip", ip}, {"port", 1}}};
        response["result"]["data"]["qxDeviceCapability"] = R"({"V3Download":")" + download + R"("})";
        return response.dump();
    }
    void Cache(const std::string& ip = "cached") {
        transport.Respond(Body(ip));
        P2PDevInfo cached;
        std::vector<P2PServerAddr> servers;
        ASSERT_EQ(core.getP2PDevInfoCached("OWN", servers, cached, true), 0);
        lines.Clear();
    }
    void Mark() {
        P2PDevInfo cached;
        ASSERT_EQ(Parts().p2pDevices.getP2PDevInfoFromLocal("OWN", cached), 0);
        cached.isUpdate = true;
        Parts().p2pDevices.Store(cached);
    }
    /// The first server that the cache holds; empty when there is nothing.
    std::string CachedIP(const std::string& serial = "OWN") {
        P2PDevInfo cached;
        return Parts().p2pDevices.getP2PDevInfoFromLocal(serial, cached) == 0 ? cached.serverInfos.at(0).ip : "";
    }
    std::string IP() const { return device.serverInfos.empty() ? "" : device.serverInfos[0].ip; }

    P2PDevInfo device;
    std::future<int32_t> future;
};

constexpr char kServed[] = "getP2PDevInfoFromLocal SUCCESS iRet = 0 stP2PDevInfo.isUpdate = 0";

// ---- The request

TEST_F(P2PDevicesTest, PlatformRequestNamesTheDevice) {
    clock.SetSteadyStep(8'000'000);
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].method, "POST");
    EXPECT_EQ(transport.Sent()[0].url, "https://b.example/api/sdk/p2p/dev/info/get");
    EXPECT_EQ(transport.Sent()[0].Param("deviceSerial"), "OWN");
    EXPECT_EQ(Token(0), "access-token");
    EXPECT_EQ(device.deviceSerial, "OWN");
    ASSERT_EQ(device.serverInfos.size(), 2U);
    EXPECT_EQ(device.serverInfos[1].port, 6002);
    EXPECT_EQ(device.defaultKey, "key");
    EXPECT_EQ(device.strV3Download, "1");
    EXPECT_EQ(device.iRequestCost, 8);
}

TEST_F(P2PDevicesTest, ConsumerRequestNamesTheDeviceAndSendsTheSession) {
    core.setPermissionMode(2);
    transport.Respond(kConsumerDevice);
    EXPECT_EQ(core.getP2PDevInfo(device, "shared-token", "SHARED", false), 0);
    EXPECT_EQ(transport.Sent()[0].method, "GET");
    EXPECT_EQ(transport.Sent()[0].Param("deviceSerial"), "SHARED");
    EXPECT_EQ(Session(0), "old-session");
    EXPECT_EQ(IP(), "10.0.1.1");
    EXPECT_EQ(device.strV3Download, "1");
    EXPECT_EQ(CachedIP("SHARED"), "10.0.1.1");
}

TEST_F(P2PDevicesTest, TokenChoosesTheFamilyAndTheChannelTheDomain) {
    core.setPermissionMode(2);
    core.SetB2CTokens(R"([{"token":"shared-token","deviceSerial":"D","channelNo":"2","isShared":1}])");
    transport.Respond(kConsumerDevice);
    EXPECT_EQ(core.getP2PDevInfo("D", 2, "shared-token", device, false), 0);
    EXPECT_EQ(Address(0), "https://c.example/v3/userdevices/v1/devices/pagelist");
    core.ClearAllCache();
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(core.getP2PDevInfo("D", 2, "own-token", device, false), 0);
    EXPECT_EQ(Address(1), "https://c.example/api/sdk/p2p/dev/info/get");
    EXPECT_EQ(Token(1), "access-token");
}

TEST_F(P2PDevicesTest, SessionGoesToTheConsumerServersOnly) {
    core.setPermissionMode(2);
    core.SetB2CTokens(R"([{"token":"shared-token","deviceSerial":"D","channelNo":"2","isShared":1}])");
    transport.Respond(kConsumerDevice);
    EXPECT_EQ(core.getP2PDevInfo(device, "shared-token", "D", false), 0) << "channel 1 itself is not shared";
    EXPECT_EQ(Address(0), "https://c.example/v3/userdevices/v1/devices/pagelist");
    EXPECT_EQ(Session(0), "old-session");
}

// ---- The cache

TEST_F(P2PDevicesTest, CopyIsServedWithoutARequestAndWithoutACost) {
    clock.SetSteadyStep(8'000'000);
    Cache();
    device.iRequestCost = 77;
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_EQ(IP(), "cached");
    EXPECT_EQ(device.iRequestCost, 0);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getP2PDevInfo", kServed));
    EXPECT_EQ(lines.Lines().size(), 1U);
}

TEST_F(P2PDevicesTest, CopyIsKeptBySerialHoweverOld) {
    Cache();
    clock.AdvanceSeconds(10'000'000);
    EXPECT_EQ(core.getP2PDevInfo("OWN", 7, "another", device, false), 0) << "another channel, another token";
    EXPECT_EQ(transport.Count(), 1U);
    transport.Respond(Body("other device"));
    EXPECT_EQ(Fetch("C1"), 0);
    EXPECT_EQ(IP(), "other device");
    EXPECT_EQ(CachedIP(), "cached");
}

TEST_F(P2PDevicesTest, MarkedCopyIsFetchedAgainByEveryFormThatLooksAtTheMark) {
    const std::function<int()> forms[] = {
        [this] { return Fetch(); },
        [this] { return core.getP2PDevInfo("OWN", 1, "own-token", device, false); },
        [this] { return FetchInBackground() == 0 ? future.get() : -1; },
    };
    for (const auto& form : forms) {
        Cache("old");
        Mark();
        transport.Respond(Body("new"));
        EXPECT_EQ(form(), 0);
        EXPECT_EQ(IP(), "new");
        EXPECT_FALSE(device.isUpdate);
        ExpectNoLine("getP2PDevInfoFromLocal SUCCESS");
        EXPECT_EQ(CachedIP(), "new");
        EXPECT_EQ(Fetch(), 0) << "the mark is gone";
        EXPECT_EQ(lines.Count(kServed), 1U);
    }
}

TEST_F(P2PDevicesTest, RefillReplacesTheWholeRecord) {
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(Fetch(), 0);
    Mark();
    transport.Respond(R"({"resultCode":"200","result":{"data":{"serverInfos":[{"ip":"only","port":1}]}}})");
    EXPECT_EQ(Fetch(), 0);
    EXPECT_EQ(Fetch(), 0);
    ASSERT_EQ(device.serverInfos.size(), 1U);
    EXPECT_EQ(device.serverInfos[0].ip, "only");
    EXPECT_EQ(device.defaultKey, "");
    EXPECT_EQ(device.strV3Download, "");
}

TEST_F(P2PDevicesTest, FailureLeavesTheCacheAsItWas) {
    const struct {
        int curl;
        const char* body;
        int result;
    } rows[] = {
        {7, "", 100007},
        {0, "", 300001},
        {0, "{}", 300002},
        {0, R"({"resultCode":"20007"})", 320007},
        {0, R"({"resultCode":"200","result":{}})", 300002},
        {0, kExpired, 310002},
    };
    core.setOpenID("");
    Cache();
    Mark();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.body);
        transport.Make([row](const SentRequest&) { return ScriptedResponse{row.curl, row.body}; });
        EXPECT_EQ(Fetch(), row.result);
        EXPECT_EQ(CachedIP(), "cached");
    }
    transport.Fail(7);
    EXPECT_EQ(Fetch("C1"), 100007);
    EXPECT_EQ(CachedIP("C1"), "") << "nothing is cached of a device that could not be fetched";
}

TEST_F(P2PDevicesTest, FailedFetchTouchesOnlyTheCost) {
    clock.SetSteadyStep(8'000'000);
    device.deviceSerial = "mine";
    device.serverInfos.resize(3);
    transport.Respond(R"({"resultCode":"20007","result":{"data":{"serverInfos":[{"ip":"refused","port":1}]}}})");
    EXPECT_EQ(Fetch(), 320007);
    EXPECT_EQ(device.deviceSerial, "mine");
    EXPECT_EQ(device.serverInfos.size(), 3U);
    EXPECT_EQ(device.iRequestCost, 8);
}

TEST_F(P2PDevicesTest, FailedFetchFromTheConsumerServerTouchesNothing) {
    clock.SetSteadyStep(8'000'000);
    core.setPermissionMode(2);
    device.deviceSerial = "mine";
    device.iRequestCost = 77;
    transport.Respond(R"({"meta":{"code":500}})");
    EXPECT_EQ(core.getP2PDevInfo(device, "shared-token", "SHARED", false), 300500);
    EXPECT_EQ(device.deviceSerial, "mine");
    EXPECT_EQ(device.iRequestCost, 77);
}

TEST_F(P2PDevicesTest, ClearingAllForgetsEveryDevice) {
    Cache();
    core.ClearAllCache();
    EXPECT_EQ(CachedIP(), "");
    EXPECT_EQ(FetchInBackground(), -1);
    EXPECT_EQ(future.get(), 100007);
}

// ---- The asynchronous form

TEST_F(P2PDevicesTest, MissReturnsMinusOneAndTheRecordIsCompleteWhenTheFutureIsReady) {
    transport.Respond(kPlatformDevice);
    EXPECT_EQ(FetchInBackground(), -1);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.serverInfos.size(), 2U);
    EXPECT_EQ(CachedIP(), "10.0.0.1");
    const LogLine line = OnlyLine("futureDevInfo async strDeviceSerial = OWN ");
    EXPECT_EQ(line.Word(), "INFO ");
    EXPECT_EQ(line.level, 3U);
    EXPECT_EQ(line.Tag(), "CVantixDataCenter::getP2PDevInfo::<lambda()>");
}

TEST_F(P2PDevicesTest, HitLeavesTheFutureUntouched) {
    Cache();
    std::promise<int32_t> own;
    future = own.get_future();
    EXPECT_EQ(FetchInBackground(), 0);
    EXPECT_EQ(IP(), "cached");
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::getP2PDevInfo", kServed));
    own.set_value(1234);
    EXPECT_EQ(future.get(), 1234);
    ExpectNoLine("futureDevInfo");
}

TEST_F(P2PDevicesTest, MarkedCopyReturnsZeroAndStartsATask) {
    Cache("old");
    Mark();
    transport.Respond(Body("new"));
    EXPECT_EQ(FetchInBackground(), 0) << "a copy was found";
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(IP(), "new");
}

TEST_F(P2PDevicesTest, TaskHasItsOwnCopiesOfSerialAndToken) {
    std::promise<void> release;
    core.setPermissionMode(2);
    {
        std::string serial = "SHARED";
        std::string token = "shared-token";
        transport.Make([&](const SentRequest&) {
            release.get_future().wait();
            return ScriptedResponse{0, kSessionGone};
        });
        transport.Respond(SessionResponse());
        transport.Respond(kConsumerDevice);
        EXPECT_EQ(core.getP2PDevInfo(device, token, serial, future), -1);
        serial.assign(serial.size(), '!');
        token.assign(token.size(), '!');
    }
    release.set_value();
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(transport.Sent()[2].Param("deviceSerial"), "SHARED");
    EXPECT_EQ(Session(2), "new-session");
    EXPECT_EQ(device.deviceSerial, "SHARED");
}

TEST_F(P2PDevicesTest, SecondTaskIntoTheSameFutureWaitsForTheFirst) {
    std::promise<void> started;
    std::promise<void> release;
    transport.Make([&](const SentRequest&) {
        started.set_value();
        release.get_future().wait();
        return ScriptedResponse{0, R"({"resultCode":"200","result":{"data":{"defaultKey":"first"}}})"};
    });
    transport.Make([&](const SentRequest&) {
        release.set_value();  // only the second lets the first end
        return ScriptedResponse{0, kPlatformDevice};
    });
    P2PDevInfo first;
    EXPECT_EQ(core.getP2PDevInfo(first, "own-token", "OWN", future), -1);
    started.get_future().wait();
    EXPECT_EQ(FetchInBackground(), -1);
    EXPECT_EQ(first.defaultKey, "first") << "the first task has ended";
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(IP(), "10.0.0.1");
}

TEST_F(P2PDevicesTest, WithoutThreadsTheFutureYieldsMinusOne) {
    {
        const NoThreads noThreads;
        EXPECT_EQ(FetchInBackground(), -1);
    }
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), -1);
    EXPECT_EQ(transport.Count(), 0U);
}

// ---- The line about the domain

struct SharedForm {
    const char* name;
    int (*call)(CVantixDataCenter& core, P2PDevInfo& device);
    int result;
};

const SharedForm kSharedForms[] = {
    {"isP2PV3download", [](auto& core, auto&) { return core.isP2PV3download("SHARED", 1); }, 1},
    {"getP2PDevInfoAsync",
     [](auto& core, auto& device) {
         std::future<int32_t> future;
         const int result = core.getP2PDevInfo(device, "shared-token", "SHARED", future);
         return future.valid() ? future.get() : result;
     },
     0},
    {"getP2PDevInfoCached",
     [](auto& core, auto& device) {
         std::vector<P2PServerAddr> servers;
         return core.getP2PDevInfoCached("SHARED", servers, device, false);
     },
     0},
    {"getP2PDevInfoBySerial",
     [](auto& core, auto& device) { return core.getP2PDevInfo(device, "shared-token", "SHARED", false); }, 0},
    {"getP2PDevInfoByChannel",
     [](auto& core, auto& device) { return core.getP2PDevInfo("SHARED", 1, "shared-token", device, false); }, 0},
};

TEST_F(P2PDevicesTest, EveryFormLogsTheConsumerDomainUnderTheTagOfGetDomain) {
    core.setPermissionMode(2);
    for (const SharedForm& form : kSharedForms) {
        SCOPED_TRACE(form.name);
        core.ClearAllCache();
        const size_t before = transport.Count();
        lines.Clear();
        transport.Respond(kConsumerDevice);
        EXPECT_EQ(form.call(core, device), form.result);
        ASSERT_EQ(transport.Count(), before + 1);
        EXPECT_EQ(Address(before), "https://c.example/v3/userdevices/v1/devices/pagelist");
        EXPECT_THAT(lines.Lines(),
                    HasLine(3, "INFO ", "CVantixDataCenter::getDomain", "Returning C domain for shared device"));
        ExpectNoLine("Returning B domain");
    }
}

}  // namespace
}  // namespace vantix::test
