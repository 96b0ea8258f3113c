// Which credential a detail request sends in each permission mode, and what an empty one does.

#include <gmock/gmock.h>

#include "DetailFixture.h"
#include "base/LastError.h"
#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

class CredentialTest : public DetailFixture {
protected:
    std::string SentToken() const {
        const auto requests = Cloud().Requests(kDetailPath);
        return requests.empty() ? "<no request>" : requests.back().Parameter("accessToken");
    }

    void ExpectEmptyCredential(const char* serial, int ch) const {
        const LogCapture log;
        SetThreadLastError(0);
        Detail detail;
        EXPECT_EQ(Fetch(serial, ch, detail), -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(ReadOrFetch(serial, ch, detail), -1);
        EXPECT_EQ(Center().getDevDetailInfoByRelation(serial, ch, detail.channel, detail.device), -1);
        const Asked asked = Ask(serial, ch);
        EXPECT_EQ(asked.returned, -1);
        EXPECT_TRUE(asked.started);
        EXPECT_EQ(asked.fetched, -1);
        EXPECT_EQ(Cloud().RequestCount(), 0U);
        EXPECT_THAT(log.Lines(), ::testing::Contains(Line(5, "ERROR", ::testing::StartsWith("CVantixDataCenter::"),
                                                          "get strToken error"))
                                     .Times(4));
    }
};

TEST_F(CredentialTest, OrdinaryModeSendsTheAccessToken) {
    SetDeviceTokens();
    EXPECT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(SentToken(), Account("accessToken"));
}

TEST_F(CredentialTest, EveryRequestReadsTheTokenAnew) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    Center().setAccessToken("another");
    EXPECT_EQ(Fetch(kCamera, 1), 310002);
    EXPECT_EQ(SentToken(), "another");
}

TEST_F(CredentialTest, SmallPermissionModeSendsTheDevicesVideoToken) {
    SetDeviceTokens();
    SetPermissionMode(1);
    EXPECT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(SentToken(), "tk.video-C10000001-1");
    EXPECT_EQ(Fetch(kRecorder, 2), 0);
    EXPECT_EQ(SentToken(), "tk.video-R20000016-2");
}

TEST_F(CredentialTest, B2CModeSendsAnOwnDevicesTokenToThePlatform) {
    SetDeviceTokens();
    SetPermissionMode(2);
    EXPECT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(SentToken(), "b2c.C10000001");
    EXPECT_EQ(Cloud().Requests().back().domain, "B");
}

TEST_F(CredentialTest, UnknownModeSendsTheAccessToken) {
    SetPermissionMode(7);
    EXPECT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(SentToken(), Account("accessToken"));
}

TEST_F(CredentialTest, EmptyAccessTokenEndsBeforeAnyRequest) {
    Center().setAccessToken("");
    ExpectEmptyCredential(kCamera, 1);
}

TEST_F(CredentialTest, DeviceWithoutATokenEndsBeforeAnyRequest) {
    SetDeviceTokens();
    SetPermissionMode(1);
    ExpectEmptyCredential(kRecorder, 3);
    SetPermissionMode(2);
    ExpectEmptyCredential(kRecorder, 3);
}

TEST_F(CredentialTest, EmptyCredentialKeepsWhatIsCached) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    const Json before = Cached(kCamera, 1);
    Center().setAccessToken("");
    EXPECT_EQ(Fetch(kCamera, 1), -1);
    EXPECT_EQ(Cached(kCamera, 1), before);
    EXPECT_FALSE(Ask(kCamera, 1).started);
}

TEST_F(CredentialTest, TokenOfAnotherDeviceIsRefusedByThePlatform) {
    Center().SetDeviceTkTokens(
        R"([{"deviceVideoTkToken":"tk.video-C10000001-1","deviceSerial":"R20000016","channelNo":"1"}])");
    SetPermissionMode(1);
    EXPECT_EQ(Fetch(kRecorder, 1), 320018);
}

}  // namespace
}  // namespace vantix::test
