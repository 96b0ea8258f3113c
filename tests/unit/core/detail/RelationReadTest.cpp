// One read of a device behind a parent, on caches that the test fills itself.

#include "core/detail/DetailRelation.h"
#include "unit/core/CoreTest.h"
#include "unit/core/TakenLocks.h"
#include "vantix/ReturnCodes.h"

namespace vantix::test {
namespace {

class RelationRead : public CoreTest {
protected:
    RelationRead() {
        own.deviceSerial = "CHILD";
        own.deviceIP = "ip of child";
        own.releaseVersion = "VERSION_17";
        own.belongSerial = "PARENT";
        own.belongState = 1;
        own.iCloseBlong = 3;
        parent.deviceSerial = "PARENT";
        parent.deviceIP = "ip of parent";
        parent.deviceStatus = 1;
        parent.iCloseBlong = 4;
        stored.deviceSerial = "CHILD";
        // What a fetch has left in the host's record.
        device.belongSerial = "PARENT";
        device.belongState = 1;
        device.iCloseBlong = 5;
    }

    /// Stores both, the parent as a device that was fetched itself, and reads once.
    int Read() {
        StoreBoth();
        return relation.getDevDetailInfoFromLocalByRelation("CHILD", 1, channel, device);
    }
    void StoreBoth() {
        Parts().caches.Store("CHILD", 1, stored, own, std::nullopt);
        Parts().caches.Store("PARENT", 1, DevChannelInfo(), parent, std::nullopt);
    }

    DevDetailInfo own;
    DevDetailInfo parent;
    DevChannelInfo stored;
    DevChannelInfo channel;
    DevDetailInfo device;
    DetailRelation relation{Parts().settings, Parts().caches};
};

TEST_F(RelationRead, DeviceOfItsOwnThatIsNotCachedFailsWithoutALine) {
    stored.deviceSerial = "OTHER";
    EXPECT_EQ(Read(), VANTIX_ERROR);
    EXPECT_TRUE(lines.Lines().empty());
    EXPECT_EQ(device.belongSerial, "PARENT");
}

TEST_F(RelationRead, ChannelThatIsNotCachedFailsWithoutALine) {
    EXPECT_EQ(relation.getDevDetailInfoFromLocalByRelation("CHILD", 2, channel, device), VANTIX_ERROR);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(RelationRead, RecordThatNamesNoParentIsUnrelated) {
    device.belongSerial = "";
    EXPECT_EQ(Read(), VANTIX_NOERROR);
    EXPECT_EQ(device.deviceIP, "ip of child");
    EXPECT_EQ(device.iCloseBlong, 5) << "the host's own is kept";
    EXPECT_EQ(lines.Messages(), std::vector<std::string>{"BelongNo Unrelated device stDeviceInfo.iCloseBlong = 5"});
}

TEST_F(RelationRead, OnlineParentBringsItsOwnSwitch) {
    EXPECT_EQ(Read(), VANTIX_NOERROR);
    EXPECT_EQ(device.deviceIP, "ip of parent");
    EXPECT_EQ(device.iCloseBlong, 4);
}

TEST_F(RelationRead, ParentThatIsNotOnlineLeavesTheDevicesOwnSwitch) {
    parent.deviceStatus = 0;
    EXPECT_EQ(Read(), VANTIX_NOERROR);
    EXPECT_EQ(device.deviceIP, "ip of child");
    EXPECT_EQ(device.iCloseBlong, 3);
}

TEST_F(RelationRead, ReleaseOfTheParentDoesNotMatter) {
    for (const char* release : {"", "VERSION_1", "VERSION_17"}) {
        parent.releaseVersion = release;
        device.belongSerial = "PARENT";
        device.belongState = 1;
        EXPECT_EQ(Read(), VANTIX_NOERROR) << release;
        EXPECT_EQ(device.deviceIP, "ip of parent") << release;
        ExpectNoLine("VANTIX_DEV_NO_SUPPORT");
    }
}

TEST_F(RelationRead, LockOfTheDevicesIsGivenBackBetweenDeviceAndParent) {
    StoreBoth();
    void* const channels = OnlyLockOf([&] { core.getChannelCacheValue("CHILD", 1); });
    void* const serials = OnlyLockOf([&] { core.IsSupportSeekPlayback("CHILD"); });
    const auto read = [&] { relation.getDevDetailInfoFromLocalByRelation("CHILD", 1, channel, device); };
    EXPECT_EQ(LocksTakenBy(read), (std::vector<void*>{channels, serials, serials}));
    device.belongSerial = "";
    EXPECT_EQ(LocksTakenBy(read), (std::vector<void*>{channels, serials}));
    EXPECT_EQ(LockRecorder::MostHeldByAnyThread(), 1U);
}

}  // namespace
}  // namespace vantix::test
