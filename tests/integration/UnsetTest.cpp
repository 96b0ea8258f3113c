// Operations that are called before the host has set anything.

#include "support/CoreFixture.h"
#include "support/Operations.h"

namespace vantix::test {
namespace {

/// The core as the process starts it: where another case of the same process has run, as near to it as setters go.
class UnsetTest : public CoreFixture, public ::testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        m_handle = NewHandle();
        EmptyStreamTokenQueue(*m_handle);
        m_handle->setAccessToken("");
        m_handle->setAppId("");
        m_handle->setSessionId("");
        m_handle->ClearAllCache();
        m_cloud.Reset();
    }
    void TearDown() override {}

    Handle m_handle;
    SimulatorClient m_cloud;
};

TEST_P(UnsetTest, FailsWithoutARequest) {
    Outputs outputs;
    const CallResult call = Call(*m_handle, GetParam(), {}, outputs);
    EXPECT_EQ(call.result, -1);
    EXPECT_EQ(outputs.text, "");
    EXPECT_EQ(m_cloud.RequestCount(), 0U);
}

/// The operations that need a credential or a cached entry.
INSTANTIATE_TEST_SUITE_P(
    Slots, UnsetTest,
    ::testing::Values("getTicketInfo", "getCloudTicketInfo", "getRelayTicket", "getDevDetailInfo",
                      "getDevDetailInfoSync", "getDeviceDetailInfo", "getDevDetailInfoByRelation", "getServerInfoAsync",
                      "getServerInfoEx", "getServerInfoSync", "getVideoVtmAddr", "getRelayServerInfo",
                      "getDeviceInfoBySerial", "getDevList", "getDeviceList", "getShareDevList", "getB2CSharedDevList",
                      "getAlarmList", "getUsername", "getTransparentMsgDetail", "getP2PUserInfoAsync",
                      "getP2PUserInfoByToken", "getP2PUserInfoByDevice", "getP2PDevInfoAsync", "getP2PDevInfoCached",
                      "getP2PDevInfoBySerial", "getP2PDevInfoByChannel", "getChannelCacheValue", "setVideoDefinition",
                      "setAlarmRead", "getStreamTokens", "getAuthInfo", "RefreshToken", "getOneStreamToken",
                      "GetStreamTokenFromQueue", "getRecordByAlarmID", "getDeviceFileBySerial",
                      "getDeviceFileBySerialEx", "getCloudFileBySerial", "getLocalFileBySerial",
                      "getCloudFileBySerialEX", "getCloudFileInfoBySerialEX", "GetCloudRecordFile", "GetClouduploadUrl",
                      "getDeviceRecord", "getDeviceRecordAlt", "getUserId", "getPushSessionId", "getBWCheckInfo",
                      "SetDevInfoCache", "getDevInfoCache", "RefreshSession"),
    [](const auto& operation) { return operation.param; });

/// A task that cannot do anything still hands back its future; whether one was found in a cache is known at once.
TEST_F(UnsetTest, AsynchronousOperationsHandBackTheirFailure) {
    const struct {
        const char* operation;
        int returned;
    } rows[] = {
        {"getDevDetailInfo", -1}, {"getServerInfoAsync", 0}, {"getP2PUserInfoAsync", 0}, {"getP2PDevInfoAsync", -1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.operation);
        Outputs outputs;
        const CallResult call = Call(*m_handle, row.operation, {}, outputs);
        EXPECT_EQ(call.returned, row.returned);
        EXPECT_TRUE(call.started);
        EXPECT_EQ(call.result, -1);
    }
}

}  // namespace
}  // namespace vantix::test
