// A device that is reached through a parent device: which of the two records comes back.

#include "DetailFixture.h"

namespace vantix::test {
namespace {

class DeviceRelationTest : public DetailFixture {
protected:
    int ByRelation(const char* serial, Detail& detail) const {
        return Center().getDevDetailInfoByRelation(serial, 1, detail.channel, detail.device);
    }

    /// Expects the recorder's record with what stays the camera's own.
    static void ExpectParents(const Detail& detail) {
        EXPECT_EQ(detail.device.deviceSerial, kRecorder);
        EXPECT_EQ(detail.device.supportChannelNums, 16);
        EXPECT_EQ(detail.device.belongNo, 3);
        EXPECT_EQ(detail.device.isEncrypt, 0);
        EXPECT_EQ(detail.device.encryptPwd, "");
        EXPECT_EQ(detail.channel.cameraNo, 3);
        EXPECT_EQ(detail.channel.deviceSerial, kBehindOnline);
    }
    static void ExpectOwn(const Detail& detail, const char* serial, const char* parent, int belongNo) {
        EXPECT_EQ(detail.device.deviceSerial, serial);
        EXPECT_EQ(detail.device.belongSerial, parent);
        EXPECT_EQ(detail.device.belongNo, belongNo);
    }
};

TEST_F(DeviceRelationTest, FetchedDeviceComesBackAsItsOnlineParent) {
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectParents(detail);
    EXPECT_TRUE(detail.device.isFromCache);
    EXPECT_EQ(detail.device.iRequestCost, 0);
    EXPECT_EQ(DetailRequests(), 1U);
}

TEST_F(DeviceRelationTest, FreshRecordOfACachedDeviceComesBackAsItsParent) {
    ASSERT_EQ(Fetch(kBehindOnline, 1), 0);
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectParents(detail);
    EXPECT_EQ(DetailRequests(), 1U);
}

TEST_F(DeviceRelationTest, RecordThatHasTheRelationComesBackAsItsOwn) {
    Detail detail;
    ASSERT_EQ(Fetch(kBehindOnline, 1, detail), 0);
    ExpectOwn(detail, kBehindOnline, kRecorder, 3);
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectOwn(detail, kBehindOnline, kRecorder, 3);
    EXPECT_EQ(DetailRequests(), 1U);
}

TEST_F(DeviceRelationTest, ParentIsCachedUnderItsSerial) {
    EXPECT_EQ(Center().IsSupportPlaybackSpeed(kRecorder, 4), 0);
    Detail detail;
    ASSERT_EQ(Fetch(kBehindOnline, 1, detail), 0);
    ASSERT_EQ(ByRelation(kBehindOnline, detail), 0);
    // The parent's channels are not cached, and its capabilities did not travel with it.
    EXPECT_EQ(ReadCache(kRecorder, 1, detail), -1);
    EXPECT_EQ(Center().IsSupportPlaybackSpeed(kRecorder, 4), 0);
}

TEST_F(DeviceRelationTest, DeviceBehindAnOfflineParentComesBackAsItself) {
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOffline, detail), 0);
    ExpectOwn(detail, kBehindOffline, kOffline, 2);
    EXPECT_EQ(detail.channel.cameraNo, 1);
}

TEST_F(DeviceRelationTest, CloseBelongSwitchKeepsTheDeviceItself) {
    Center().setCloseBelongSerial(1);
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectOwn(detail, kBehindOnline, kRecorder, 3);
    Center().setCloseBelongSerial(2);
    Detail open;
    EXPECT_EQ(ByRelation(kBehindOnline, open), 0);
    ExpectParents(open);
}

TEST_F(DeviceRelationTest, HostsCloseFlagKeepsTheDeviceItselfAndStays) {
    Detail detail;
    detail.device.iCloseBlong = 1;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectOwn(detail, kBehindOnline, kRecorder, 3);
    EXPECT_EQ(detail.device.iCloseBlong, 1);
}

TEST_F(DeviceRelationTest, RelationThatIsNotInForceKeepsTheDeviceItself) {
    Cloud().Put("/devices/B30000003", {{"device", {{"belongState", 0}}}});
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectOwn(detail, kBehindOnline, kRecorder, 3);
}

TEST_F(DeviceRelationTest, DeviceWithoutAParentComesBackAsItself) {
    Detail detail;
    EXPECT_EQ(ByRelation(kCamera, detail), 0);
    EXPECT_EQ(detail.device.deviceSerial, kCamera);
    EXPECT_TRUE(detail.device.isFromCache);
    EXPECT_EQ(ByRelation(kCamera, detail), 0);
    EXPECT_EQ(DetailRequests(), 1U);
}

TEST_F(DeviceRelationTest, DeviceWhoseParentTheResponseLeavesOutComesBackAsItself) {
    Cloud().Delete("/devices/R20000016");
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    EXPECT_EQ(detail.device.deviceSerial, kBehindOnline);
    EXPECT_EQ(DetailRequests(), 1U);
}

TEST_F(DeviceRelationTest, ResponseWithoutItsParentKeepsTheCachedOne) {
    ASSERT_EQ(Fetch(kBehindOnline, 1), 0);
    Cloud().Delete("/devices/R20000016");
    ASSERT_EQ(Fetch(kBehindOnline, 1), 0);
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 0);
    ExpectParents(detail);
}

TEST_F(DeviceRelationTest, FailedFetchReturnsItsCode) {
    Cloud().Script({{"path", kDetailPath}, {"code", "20002"}});
    Detail detail;
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 320002);
    Cloud().Script({{"path", kDetailPath}, {"code", "10002"}, {"times", 0}});
    EXPECT_EQ(ByRelation(kBehindOnline, detail), 310002);
}

}  // namespace
}  // namespace vantix::test
