#pragma once

/// @file
/// Every request of the consumer servers, as a row. They authenticate by the session id, in a header. Some labels name
/// a platform parser or have a tester's mark; these texts are fixed.

#include "requests/EndpointTable.h"
#include "requests/RequestRow.h"

namespace vantix::cserver_requests {

inline constexpr RequestRow kDevDetailInfo{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerDevicePagelist,
    .headers = {.set = HeaderSet::A},
    .keys = {"deviceSerial"},
    .fixed = {{"filter", "CONNECTION,WIFI,KMS,STATUS,HIDDNS,TTS,P2P"}},
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/v3/userdevices/v1/devices/pagelist CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kServerInfo{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerSystemInfo,
    .headers = {.set = HeaderSet::B, .formContentType = true},
    .transportFailure = "SyncRequest error:%d",
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
    .cost = "v3/configurations/system/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kStreamTokens{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::BodylessPost,
    .endpoint = endpoint::kConsumerStreamTokens,
    .headers = {.set = HeaderSet::SessionOnly},
    .keys = {"sessionId"},
    .transportFailure = "SyncRequest error:%d",
};
inline constexpr RequestRow kDeviceFiles{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerRecords,
    .headers = {.set = HeaderSet::B},
    .keys = {"deviceSerial", "channelNo", "startTime", "stopTime", "recordType"},
    .fixed = {{"size", "100"}},
    .transportFailure = "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:%d",
    .checkFailure = "ZQR TEST GetLocalRecordFileBySerialFromPlatform:%s error:%d",
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRefreshSession{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Put,
    .headers = {.set = HeaderSet::B, .formContentType = true},
    .keys = {"refreshSessionId", "featureCode"},
    .transportFailure = "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:%d",
    .parserFailure = "ZQR TEST RefreshSessionFromCServer:%s error:%d",
};
inline constexpr RequestRow kUserInfo{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerUserInfo,
    .headers = {.set = HeaderSet::B},
    .transportFailure = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .cost = "v3/users/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kP2PConfiguration{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerP2PConfig,
    .headers = {.set = HeaderSet::B},
    .transportFailure = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequest error:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .cost = "p2pbusiness/configurations/p2p CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kP2PDevInfo{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerDevicePagelist,
    .headers = {.set = HeaderSet::A},
    .keys = {"deviceSerial"},
    .fixed = {{"filter", "P2P,KMS"}},
    .transportFailure = "ZQR TEST QX_API_B2C_GET_DEVICE_DETAIL SyncRequestHeader error:%d",
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/v3/userdevices/v1/devices/pagelist CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kSharedDevices{
    .family = RequestFamily::Consumer,
    .kind = RequestKind::Get,
    .endpoint = endpoint::kConsumerSharedDevices,
    .headers = {.set = HeaderSet::SessionOnly, .formContentType = true},
    .keys = {"offset", "limit"},
    .parserFailure = "ParseB2CDeviceListFromPlatform:%s error:%d",
};

}  // namespace vantix::cserver_requests
