// Under which serial a fetched device is stored, and in which order everything is cleared.

#include "unit/core/FetchTest.h"
#include "unit/core/TakenLocks.h"

namespace vantix::test {
namespace {

class StoringAndClearing : public FetchTest {
protected:
    void* ByChannel() {
        return OnlyLockOf([&] { core.getDeviceRecord("C1", 1, device); });
    }
    void* BySerial() {
        return OnlyLockOf([&] { core.IsSupportSeekPlayback("C1"); });
    }
    void* Channels() {
        return OnlyLockOf([&] { core.getChannelCacheValue("C1", 1); });
    }

    DevDetailInfo device;
};

TEST_F(StoringAndClearing, DeviceIsStoredUnderTheSerialThatTheServerNames) {
    nlohmann::json response = DetailResponse("C1", 1);
    response["result"]["data"]["device"]["deviceSerial"] = "FETCHED";
    response["result"]["data"]["device"]["supportExt"] = {{"support_seek_playback", "1"}};
    Cache("C1", 1, response);
    EXPECT_EQ(core.IsSupportSeekPlayback("FETCHED"), 1);
    EXPECT_FALSE(Parts().caches.FindDevice("C1"));
    EXPECT_EQ(core.getDeviceRecord("C1", 1, device), 0) << "the channel's key is made of the host's serial";
    EXPECT_EQ(device.deviceSerial, "FETCHED");
    EXPECT_EQ(core.getDeviceRecord("FETCHED", 1, device), -1);
}

TEST_F(StoringAndClearing, ParentIsStoredLast) {
    DevDetailInfo own;
    own.deviceSerial = "C1";
    own.belongSerial = "PARENT";
    const auto store = [&] { Parts().caches.Store("C1", 1, DevChannelInfo(), own, BelongDevInfo()); };
    // Before, it looks for equal records, to share them.
    EXPECT_EQ(LocksTakenBy(store),
              (std::vector<void*>{BySerial(), BySerial(), Channels(), ByChannel(), BySerial(), BySerial()}));
    own.belongSerial = "";
    EXPECT_EQ(LocksTakenBy(store), (std::vector<void*>{BySerial(), Channels(), ByChannel(), BySerial()}));
}

TEST_F(StoringAndClearing, EverythingIsClearedInThisOrderAndTheLineIsTheLastThing) {
    P2PDevInfo p2p;
    const std::vector<void*> inOrder{
        OnlyLockOf([&] { Parts().p2pUser.Invalidate(); }),
        OnlyLockOf([&] { Parts().servers.Invalidate(); }),
        Channels(),
        BySerial(),
        OnlyLockOf([&] { Parts().p2pDevices.getP2PDevInfoFromLocal("C1", p2p); }),
        ByChannel(),
    };
    size_t linesBefore = 0;
    std::vector<void*> taken;
    {
        const LockRecorder recorder([&] { linesBefore += lines.Lines().size(); });
        core.ClearAllCache();
        taken = recorder.Taken();
    }
    EXPECT_EQ(taken, inOrder);
    EXPECT_EQ(linesBefore, 0U);
    EXPECT_EQ(lines.Messages(), std::vector<std::string>{"m_mapDeviceInfoCache clear"});
    EXPECT_EQ(LockRecorder::MostHeldByAnyThread(), 1U);
}

}  // namespace
}  // namespace vantix::test
