#include "requests/EndpointTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace vantix {
namespace {

struct Row {
    uint32_t index;
    const char* path;
};

/// The servers' own list, written down by hand.
constexpr Row kRows[] = {
    {0, "/base"},
    {1, "/api/device/detail"},
    {2, "/api/service/media/server/info"},
    {3, "/api/device/setVideoLevel"},
    {4, "/api/user/getUserName"},
    {5, "/api/common/transparent/getMsgDetail"},
    {6, "/api/config/info"},
    {7, "/api/user/token"},
    {8, "/api/lapp/video/by/id"},
    {9, "/api/device/list"},
    {10, "/api/alarm/list"},
    {11, "/api/cloud/files/get"},
    {12, "/api/alarm/sdk/setRead"},
    {13, "/api/device/getDeviceInfo"},
    {14, "/api/device/sharelist"},
    {15, "/oauth/token/refreshToken"},
    {16, "/api/lapp/device/list"},
    {17, "/api/lapp/video/by/time"},
    {18, "/api/sdk/p2p/user/info/get"},
    {19, "/api/sdk/p2p/dev/info/get"},
    {20, "/api/sdk/device/local/video"},
    {21, "/api/route/userdevicetob/v3/cameras/ticketInfo"},
    {22, "/api/v3/open/cloud/v3/clouds/videosIncrPerDay"},
    {23, "/api/v3/open/cloud/v3/clouds/videoDetails"},
    {24, "/api/v3/das/device/local/video/query"},
    {25, "/api/service/auth/device/user/permission"},
    {26, "/api/v3/device/sdk/device/local/video"},
    {27, "/api/service/media/streaming/relay/ticket"},
    {28, "/api/service/media/streaming/relay/server"},
    {29, "/api/service/cloudrecord/video/info/list"},
    {30, "/api/service/cloud/upload/url"},
    {31, "/api/service/cloud/ticket"},
    {32, "/api/service/user/get"},
    {33, "/api/service/set/push"},
    {34, "/api/service/media/bwc/address"},
    {35, "/v3/userdevices/v1/devices/pagelist"},
    {36, "/v3/configurations/system/info"},
    {37, "/api/user/token/get"},
    {38, "/v3/configurations/system/info"},
    {39, "/v3/users/info"},
    {40, "/v3/p2pbusiness/configurations/p2p"},
    {41, "/api/camera/setVideoLevel"},
    {42, "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist"},
    {43, "/v3/streaming/records"},
    {44, "/v3/cameras/ticketInfo"},
    {45, "/v3/apigateway/login"},
};

TEST(EndpointTable, HasEveryPathAtItsIndex) {
    ASSERT_EQ(std::size(kRows), 46U);
    for (const Row& row : kRows) {
        EXPECT_EQ(EndpointPath(row.index), row.path) << row.index;
    }
}

TEST(EndpointTable, IsEmptyBeyondItsEnd) {
    for (const uint32_t index : {46U, 47U, 48U, 1000U, 0x80000000U, std::numeric_limits<uint32_t>::max()}) {
        EXPECT_EQ(EndpointPath(index), "") << index;
    }
}

TEST(EndpointTable, TheNamesStandForTheirPaths) {
    constexpr Row kNames[] = {
        {endpoint::kDeviceDetail, "/api/device/detail"},
        {endpoint::kServerInfo, "/api/service/media/server/info"},
        {endpoint::kSetVideoLevel, "/api/device/setVideoLevel"},
        {endpoint::kUserName, "/api/user/getUserName"},
        {endpoint::kTransparentMsg, "/api/common/transparent/getMsgDetail"},
        {endpoint::kConfig, "/api/config/info"},
        {endpoint::kStreamTokens, "/api/user/token"},
        {endpoint::kRecordByAlarm, "/api/lapp/video/by/id"},
        {endpoint::kDeviceList, "/api/device/list"},
        {endpoint::kAlarmList, "/api/alarm/list"},
        {endpoint::kCloudFiles, "/api/cloud/files/get"},
        {endpoint::kSetAlarmRead, "/api/alarm/sdk/setRead"},
        {endpoint::kDeviceInfo, "/api/device/getDeviceInfo"},
        {endpoint::kSharedDeviceList, "/api/device/sharelist"},
        {endpoint::kRefreshToken, "/oauth/token/refreshToken"},
        {endpoint::kBusinessDeviceList, "/api/lapp/device/list"},
        {endpoint::kLocalFilesByTime, "/api/lapp/video/by/time"},
        {endpoint::kP2PUserInfo, "/api/sdk/p2p/user/info/get"},
        {endpoint::kP2PDevInfo, "/api/sdk/p2p/dev/info/get"},
        {endpoint::kDeviceFilesSdk, "/api/sdk/device/local/video"},
        {endpoint::kTicket, "/api/route/userdevicetob/v3/cameras/ticketInfo"},
        {endpoint::kCloudFilesPerDay, "/api/v3/open/cloud/v3/clouds/videosIncrPerDay"},
        {endpoint::kCloudFileDetails, "/api/v3/open/cloud/v3/clouds/videoDetails"},
        {endpoint::kLocalVideoQuery, "/api/v3/das/device/local/video/query"},
        {endpoint::kPermission, "/api/service/auth/device/user/permission"},
        {endpoint::kDeviceFiles, "/api/v3/device/sdk/device/local/video"},
        {endpoint::kRelayTicket, "/api/service/media/streaming/relay/ticket"},
        {endpoint::kRelayServer, "/api/service/media/streaming/relay/server"},
        {endpoint::kCloudRecordList, "/api/service/cloudrecord/video/info/list"},
        {endpoint::kCloudUploadUrl, "/api/service/cloud/upload/url"},
        {endpoint::kCloudTicket, "/api/service/cloud/ticket"},
        {endpoint::kUserId, "/api/service/user/get"},
        {endpoint::kPushRegistration, "/api/service/set/push"},
        {endpoint::kBandwidthCheck, "/api/service/media/bwc/address"},
        {endpoint::kConsumerDevicePages, "/v3/userdevices/v1/devices/pagelist"},
        {endpoint::kConsumerStreamTokens, "/api/user/token/get"},
        {endpoint::kConsumerSystemInfo, "/v3/configurations/system/info"},
        {endpoint::kConsumerUserInfo, "/v3/users/info"},
        {endpoint::kConsumerP2PConfig, "/v3/p2pbusiness/configurations/p2p"},
        {endpoint::kConsumerSharedDevices, "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist"},
        {endpoint::kConsumerRecords, "/v3/streaming/records"},
        {endpoint::kConsumerLogin, "/v3/apigateway/login"},
    };
    for (const Row& row : kNames) {
        EXPECT_EQ(EndpointPath(row.index), row.path) << row.index;
    }
}

}  // namespace
}  // namespace vantix
