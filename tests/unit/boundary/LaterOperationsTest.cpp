// Operations whose behaviour comes later: -1, and one ERROR line in their name.

#include <gtest/gtest.h>

#include "unit/boundary/HandleTest.h"
#include "unit/boundary/Operations.h"

namespace vantix::test {
namespace {

/// A slot, and the core's operation where its name is another. A row goes when its operation comes.
struct Later {
    const char* slot = nullptr;
    const char* core = nullptr;
};

constexpr Later kLater[] = {
    {"getTicketInfo"},
    {"getCloudTicketInfo"},
    {"getRelayTicket"},
    {"getDeviceDetailInfo"},
    {"isP2PV3download"},
    {"getServerInfoAsync", "getServerInfo"},
    {"getServerInfoEx"},
    {"getServerInfoSync", "getServerInfo"},
    {"getVideoVtmAddr"},
    {"getRelayServerInfo"},
    {"getDeviceInfoBySerial"},
    {"getDevList"},
    {"getDeviceList"},
    {"getShareDevList"},
    {"getB2CSharedDevList"},
    {"getAlarmList"},
    {"getUsername"},
    {"getConfigInfo"},
    {"getTransparentMsgDetail"},
    {"getP2PUserInfoAsync", "getP2PUserInfo"},
    {"getP2PUserInfoByToken", "getP2PUserInfo"},
    {"getP2PUserInfoByDevice", "getP2PUserInfo"},
    {"getP2PDevInfoAsync", "getP2PDevInfo"},
    {"getP2PDevInfoCached"},
    {"getP2PDevInfoBySerial", "getP2PDevInfo"},
    {"getP2PDevInfoByChannel", "getP2PDevInfo"},
    {"setVideoDefinition"},
    {"setAlarmRead"},
    {"getStreamTokens"},
    {"getAuthInfo"},
    {"RefreshToken"},
    {"getOneStreamToken"},
    {"GetStreamTokenFromQueue"},
    {"GetStreamTokenFast"},
    {"getRecordByAlarmID"},
    {"getDeviceFileBySerial"},
    {"getDeviceFileBySerialEx"},
    {"getCloudFileBySerial"},
    {"getLocalFileBySerial"},
    {"getCloudFileBySerialEX"},
    {"getCloudFileInfoBySerialEX"},
    {"GetCloudRecordFile"},
    {"GetClouduploadUrl"},
    {"UploadCloudPicFile"},
    {"getUserId"},
    {"getPushSessionId"},
    {"getBWCheckInfo"},
    {"RefreshSession"},
};

using LaterOperationsTest = HandleTest;

TEST_F(LaterOperationsTest, AnswerMinusOneWithOneErrorLineAndNoRequest) {
    const Arguments arguments{"C1", "token", "text"};
    for (const Later& later : kLater) {
        SCOPED_TRACE(later.slot);
        const Operation operation = OperationNamed(later.slot);
        ASSERT_TRUE(operation.call);
        lines.Clear();
        EXPECT_EQ(operation.call(*handle, arguments), -1);
        const auto written = lines.Lines();
        ASSERT_EQ(written.size(), 1U);
        EXPECT_EQ(written[0].Message(), "operation is not available yet");
        EXPECT_EQ(written[0].Word(), "ERROR");
        EXPECT_EQ(written[0].level, 5U);
        EXPECT_EQ(written[0].Tag(),
                  std::string("CVantixDataCenter::") + (later.core == nullptr ? later.slot : later.core));
    }
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(LaterOperationsTest, ExpiringTheServerInformationWritesOneErrorLine) {
    handle->expireServerInfo();
    ASSERT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(lines.Lines()[0].Message(), "operation is not available yet");
    EXPECT_EQ(lines.Lines()[0].Tag(), "CVantixDataCenter::expireServerInfo");
}

}  // namespace
}  // namespace vantix::test
