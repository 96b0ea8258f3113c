#include "requests/EndpointTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <limits>
#include <string>

namespace vantix {
namespace {

/// The servers' own list, written down by hand, from index 0 on.
constexpr const char* kPaths[] = {
    "/base",
    "/api/device/detail",
    "/api/service/media/server/info",
    "/api/device/setVideoLevel",
    "/api/user/getUserName",
    "/api/common/transparent/getMsgDetail",
    "/api/config/info",
    "/api/user/token",
    "/api/lapp/video/by/id",
    "/api/device/list",
    "/api/alarm/list",
    "/api/cloud/files/get",
    "/api/alarm/sdk/setRead",
    "/api/device/getDeviceInfo",
    "/api/device/sharelist",
    "/oauth/token/refreshToken",
    "/api/lapp/device/list",
    "/api/lapp/video/by/time",
    "/api/sdk/p2p/user/info/get",
    "/api/sdk/p2p/dev/info/get",
    "/api/sdk/device/local/video",
    "/api/route/userdevicetob/v3/cameras/ticketInfo",
    "/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
    "/api/v3/open/cloud/v3/clouds/videoDetails",
    "/api/v3/das/device/local/video/query",
    "/api/service/auth/device/user/permission",
    "/api/v3/device/sdk/device/local/video",
    "/api/service/media/streaming/relay/ticket",
    "/api/service/media/streaming/relay/server",
    "/api/service/cloudrecord/video/info/list",
    "/api/service/cloud/upload/url",
    "/api/service/cloud/ticket",
    "/api/service/user/get",
    "/api/service/set/push",
    "/api/service/media/bwc/address",
    "/v3/userdevices/v1/devices/pagelist",
    "/v3/configurations/system/info",
    "/api/user/token/get",
    "/v3/configurations/system/info",
    "/v3/users/info",
    "/v3/p2pbusiness/configurations/p2p",
    "/api/camera/setVideoLevel",
    "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",
    "/v3/streaming/records",
    "/v3/cameras/ticketInfo",
    "/v3/apigateway/login",
};

TEST(EndpointTable, HasEveryPathAtItsIndex) {
    static_assert(std::size(kPaths) == 46);
    for (uint32_t i = 0; i < std::size(kPaths); ++i) {
        EXPECT_EQ(EndpointPath(i), kPaths[i]) << i;
    }
}

TEST(EndpointTable, IsEmptyBeyondItsEnd) {
    for (const uint32_t index : {46U, 47U, 48U, 1000U, 0x80000000U, std::numeric_limits<uint32_t>::max()}) {
        EXPECT_EQ(EndpointPath(index), "") << index;
    }
}

// The names stand for these indices.
static_assert(endpoint::kDeviceDetail == 1);
static_assert(endpoint::kServerInfo == 2);
static_assert(endpoint::kSetVideoLevel == 3);
static_assert(endpoint::kUserName == 4);
static_assert(endpoint::kTransparentMsg == 5);
static_assert(endpoint::kConfig == 6);
static_assert(endpoint::kStreamTokens == 7);
static_assert(endpoint::kRecordByAlarm == 8);
static_assert(endpoint::kDeviceList == 9);
static_assert(endpoint::kAlarmList == 10);
static_assert(endpoint::kCloudFiles == 11);
static_assert(endpoint::kSetAlarmRead == 12);
static_assert(endpoint::kDeviceInfo == 13);
static_assert(endpoint::kSharedDeviceList == 14);
static_assert(endpoint::kRefreshToken == 15);
static_assert(endpoint::kBusinessDeviceList == 16);
static_assert(endpoint::kLocalFilesByTime == 17);
static_assert(endpoint::kP2PUserInfo == 18);
static_assert(endpoint::kP2PDevInfo == 19);
static_assert(endpoint::kDeviceFilesSdk == 20);
static_assert(endpoint::kTicket == 21);
static_assert(endpoint::kCloudFilesPerDay == 22);
static_assert(endpoint::kCloudFileDetails == 23);
static_assert(endpoint::kLocalVideoQuery == 24);
static_assert(endpoint::kPermission == 25);
static_assert(endpoint::kDeviceFiles == 26);
static_assert(endpoint::kRelayTicket == 27);
static_assert(endpoint::kRelayServer == 28);
static_assert(endpoint::kCloudRecordList == 29);
static_assert(endpoint::kCloudUploadUrl == 30);
static_assert(endpoint::kCloudTicket == 31);
static_assert(endpoint::kUserId == 32);
static_assert(endpoint::kPushRegistration == 33);
static_assert(endpoint::kBandwidthCheck == 34);
static_assert(endpoint::kConsumerDevicePagelist == 35);
static_assert(endpoint::kConsumerStreamTokens == 37);
static_assert(endpoint::kConsumerSystemInfo == 38);
static_assert(endpoint::kConsumerUserInfo == 39);
static_assert(endpoint::kConsumerP2PConfig == 40);
static_assert(endpoint::kConsumerSharedDevices == 42);
static_assert(endpoint::kConsumerRecords == 43);
static_assert(endpoint::kConsumerLogin == 45);

}  // namespace
}  // namespace vantix
