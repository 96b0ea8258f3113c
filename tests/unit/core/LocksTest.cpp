// The locks of the core: one at a time, none across a request, and the caches in their order.

#include <algorithm>

#include "support/LockRecorder.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class Locks : public FetchTest {
protected:
    /// The mutex that an operation takes and no other one does.
    template <class Operation>
    static void* OnlyMutexOf(Operation operation) {
        const LockRecorder recorder;
        operation();
        EXPECT_EQ(recorder.Taken().size(), 1U);
        return recorder.Taken().empty() ? nullptr : recorder.Taken().front();
    }
    void* Channels() {
        return OnlyMutexOf([&] { core.getChannelCacheValue("C1", 1); });
    }
    void* DevicesByChannel() {
        return OnlyMutexOf([&] { core.getDeviceRecord("C1", 1, device); });
    }
    void* DevicesBySerial() {
        return OnlyMutexOf([&] { core.IsSupportSeekPlayback("C1"); });
    }
    void* P2PDevices() {
        P2PDevInfo p2p;
        return OnlyMutexOf([&] { Parts().p2pDevices.getP2PDevInfoFromLocal("C1", p2p); });
    }

    DevChannelInfo channel;
    DevDetailInfo device;
};

TEST_F(Locks, EachCacheHasOneOfItsOwn) {
    const std::vector<void*> mutexes{Channels(), DevicesByChannel(), DevicesBySerial(), P2PDevices()};
    for (size_t i = 0; i < mutexes.size(); ++i) {
        EXPECT_EQ(std::count(mutexes.begin(), mutexes.end(), mutexes[i]), 1) << i;
    }
}

TEST_F(Locks, RefillStoresChannelThenDeviceThenSerial) {
    transport.Respond(DetailResponse("C1", 1).dump());
    std::vector<void*> stored;
    {
        const LockRecorder recorder;
        ASSERT_EQ(core.getDevDetailInfoSync("C1", 1, true, channel, device, false), 0);
        stored = recorder.Taken();
    }
    const std::vector<void*> caches{Channels(), DevicesByChannel(), DevicesBySerial()};
    std::vector<void*> inOrder;
    std::copy_if(stored.begin(), stored.end(), std::back_inserter(inOrder),
                 [&](void* mutex) { return std::find(caches.begin(), caches.end(), mutex) != caches.end(); });
    // First it looks for an equal record of the device, to share it.
    EXPECT_EQ(inOrder, (std::vector<void*>{DevicesBySerial(), Channels(), DevicesByChannel(), DevicesBySerial()}));
}

TEST_F(Locks, ClearingAllTakesTheCachesOneAfterTheOther) {
    std::vector<void*> taken;
    {
        const LockRecorder recorder;
        core.ClearAllCache();
        taken = recorder.Taken();
    }
    ASSERT_EQ(taken.size(), 6U) << "user, servers, channels, serials, P2P devices, devices by channel";
    EXPECT_EQ(taken[2], Channels());
    EXPECT_EQ(taken[3], DevicesBySerial());
    EXPECT_EQ(taken[4], P2PDevices());
    EXPECT_EQ(taken[5], DevicesByChannel());
}

TEST_F(Locks, NoneIsHeldAcrossARequestAndNeverTwoAtOnce) {
    std::vector<size_t> held;
    transport.Always([&](const SentRequest&) {
        held.push_back(LockRecorder::HeldByThisThread());
        return ScriptedResponse{0, R"({"resultCode":"200","meta":{"code":200},"tokenArray":["t"]})"};
    });
    ServerInfo servers;
    P2PUserInfo user;
    P2PDevInfo p2p;
    std::string text;
    for (const int mode : {0, 1, 2}) {
        core.setPermissionMode(mode);
        core.getDevDetailInfoSync("SHARED", 1, true, channel, device, false);
        core.getDevDetailInfoByRelation("OWN", 1, channel, device, false);
        core.getServerInfo("shared-token", servers, false);
        core.getP2PUserInfo("own-token", user, false);
        core.getP2PDevInfo("SHARED", 1, "shared-token", p2p, false);
        core.getVideoVtmAddr("C1", 1, text, false);
        core.getOneStreamToken("access-token", text);
        core.GetStreamTokenFast();
        core.getTicketInfo("C1", 1, text);
        core.RefreshToken(text);
        core.RefreshSession("refresh-id", text);
        core.ClearAllCache();
    }
    EXPECT_GT(held.size(), 20U);
    EXPECT_EQ(std::count(held.begin(), held.end(), 0U), static_cast<std::ptrdiff_t>(held.size()));
    EXPECT_EQ(LockRecorder::MostHeldByAnyThread(), 1U);
}

}  // namespace
}  // namespace vantix::test
