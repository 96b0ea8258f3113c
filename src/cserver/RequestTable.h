#pragma once

/// @file
/// Every request of the consumer servers, as a row. They authenticate by the session id, in a header. Some labels name
/// a platform parser or carry a tester's mark; they are kept as they stand.

#include "requests/EndpointTable.h"
#include "requests/RequestCall.h"

namespace vantix::cserver_requests {

inline constexpr RequestRow kDevDetailInfo{
    .name = "GetDevDetailInfoFromCServerBySerial",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerDevicePages,
    .carried = carries::kHeadersA,
    .own = {"deviceSerial"},
    .fixed = {{"filter", "CONNECTION,WIFI,KMS,STATUS,HIDDNS,TTS,P2P"}},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/v3/userdevices/v1/devices/pagelist CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kServerInfo{
    .name = "GetServerInfoFromCServer",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerSystemInfo,
    .carried = carries::kHeadersB | carries::kFormHeader,
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
    .cost = "v3/configurations/system/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kStreamTokens{
    .name = "GetStreamTokensFromCServer",
    .way = Way::BodylessPost,
    .endpoint = endpoint::kConsumerStreamTokens,
    .carried = carries::kSessionHeader,
    .own = {"sessionId"},
};
inline constexpr RequestRow kDeviceFiles{
    .name = "GetDeviceFileBySerialFromCServer",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerRecords,
    .carried = carries::kHeadersB,
    .own = {"deviceSerial", "channelNo", "startTime", "stopTime", "recordType"},
    .fixed = {{"size", "100"}},
    .transportFailure = "ZQR TEST QX_API_B2C_GET_DEVICE_RECORD SyncRequestHeader error:%d",
    .checkFailure = "ZQR TEST GetLocalRecordFileBySerialFromPlatform:%s error:%d",
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRefreshSession{
    .name = "RefreshSessionFromCServer",
    .way = Way::Put,
    .endpoint = endpoint::kConsumerLogin,
    .carried = carries::kHeadersB | carries::kFormHeader,
    .own = {"refreshSessionId", "featureCode"},
    .transportFailure = "ZQR TEST QX_API_B2C_REFRESH_SESSION SyncPutRequestHeader error:%d",
    .parserFailure = "ZQR TEST RefreshSessionFromCServer:%s error:%d",
};
inline constexpr RequestRow kUserInfo{
    .name = "GetP2PUserInfoFromCServer",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerUserInfo,
    .carried = carries::kHeadersB,
    .transportFailure = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequestHeader error:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .cost = "v3/users/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kP2PConfiguration{
    .name = "GetP2PUserInfoFromCServer",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerP2PConfig,
    .carried = carries::kHeadersB,
    .transportFailure = "ZQR TEST QX_API_B2C_GET_P2P_USER_INFO SyncRequest error:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .cost = "p2pbusiness/configurations/p2p CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kP2PDevInfo{
    .name = "GetP2PDevInfoFromCServer",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerDevicePages,
    .carried = carries::kHeadersA,
    .own = {"deviceSerial"},
    .fixed = {{"filter", "P2P,KMS"}},
    .transportFailure = "ZQR TEST QX_API_B2C_GET_DEVICE_DETAIL SyncRequestHeader error:%d",
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/v3/userdevices/v1/devices/pagelist CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kSharedDevices{
    .name = "GetB2CSharedDevListFromPlatform",
    .way = Way::Get,
    .endpoint = endpoint::kConsumerSharedDevices,
    .carried = carries::kSessionHeader | carries::kFormHeader,
    .own = {"offset", "limit"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseB2CDeviceListFromPlatform:%s error:%d",
};

/// All of them, in the order of this page.
inline constexpr const RequestRow* kAll[] = {
    &kDevDetailInfo, &kServerInfo,       &kStreamTokens, &kDeviceFiles,   &kRefreshSession,
    &kUserInfo,      &kP2PConfiguration, &kP2PDevInfo,   &kSharedDevices,
};

}  // namespace vantix::cserver_requests
