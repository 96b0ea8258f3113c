#pragma once

/// @file
/// Every request of the open platform, as a row: how it is sent, where to, with what, and what its log lines say. Some
/// labels name another function than the one that is called; these texts are fixed.

#include "requests/EndpointTable.h"
#include "requests/RequestRow.h"

namespace vantix::platform_requests {

inline constexpr CommonParameters kTokenAndClient{.accessToken = true, .clientSet = true};
inline constexpr CommonParameters kTokenClientAndKey{.accessToken = true, .clientSet = true, .appKey = true};

// ---- Device detail

inline constexpr RequestRow kDevDetailInfo{
    .endpoint = endpoint::kDeviceDetail,
    .common = kTokenClientAndKey,
    .keys = {"deviceSerial", "cameraNo"},
    .fixed = {{"version", "4.0"}, {"isNewVersion", "true"}},
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/api/device/detail CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kDeviceDetailInfo{
    .endpoint = endpoint::kDeviceDetail,
    .common = kTokenClientAndKey,
    .keys = {"deviceSerial", "cameraNo", "bizType", "platFormId"},
    .fixed = {{"version", "1.0"}, {"isNewVersion", "true"}},
    .parserFailure = "ParseDeviceDetailInfoFromPlatform:%s error:%d",
    .cost = "/api/device/detail CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kDeviceInfo{
    .endpoint = endpoint::kDeviceInfo,
    .common = kTokenAndClient,
    .keys = {"deviceSerial"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
};

// ---- Servers

inline constexpr RequestRow kServerInfo{
    .endpoint = endpoint::kServerInfo,
    .common = kTokenClientAndKey,
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
    .cost = "/api/service/media/server/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kServerInfoOfDevice{
    .kind = RequestKind::BodylessPost,
    .endpoint = endpoint::kServerInfo,
    .common = kTokenClientAndKey,
    .keys = {"deviceSerial", "localIndex"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
    .cost = "/api/service/media/server/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kRelayServer{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kRelayServer,
    .common = {.accessToken = true},
    .keys = {"deviceSerial", "channelNo"},
    .parserFailure = "ParseRealyInfoFromPlatform:%s error:%d",
};

// ---- P2P

inline constexpr RequestRow kP2PUserInfo{
    .endpoint = endpoint::kP2PUserInfo,
    .common = kTokenAndClient,
    .checkFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .parserFailure = "ParseP2PUserInfo:%s error:%d",
    .cost = "//api/sdk/p2p/user/info/get CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kP2PDevInfo{
    .endpoint = endpoint::kP2PDevInfo,
    .common = kTokenAndClient,
    .keys = {"deviceSerial"},
    .checkFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .parserFailure = "ParseP2PDevInfo:%s error:%d",
    .cost = "/api/sdk/p2p/dev/info/get CostTime: = %ld milliseconds",
};

// ---- Tickets and tokens

inline constexpr RequestRow kTicket{
    .kind = RequestKind::TicketGet,
    .common = {.accessToken = true},
    .keys = {"deviceSerial", "channelNo"},
    .parserFailure = "ParseTicketInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kCloudTicket{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kCloudTicket,
    .common = {.accessToken = true},
    .keys = {"spaceId", "deviceSerial", "localIndex"},
    .parserFailure = "ParseRealyTicketInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRelayTicket{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kRelayTicket,
    .common = {.accessToken = true},
    .keys = {"deviceSerial", "channelNo"},
    .parserFailure = "ParseRealyTicketInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kPermission{
    .endpoint = endpoint::kPermission,
    .common = {.accessToken = true},
    .keys = {"deviceSerial", "cameraNo", "permission"},
    .parserFailure = "GetAuthInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kStreamTokens{
    .endpoint = endpoint::kStreamTokens,
    .common = kTokenClientAndKey,
    .keys = {"count"},
    .parserFailure = "GetStreamTokensFromPlatform:%s error:%d",
};
inline constexpr RequestRow kStreamTokensParsed{
    .endpoint = endpoint::kStreamTokens,
    .common = kTokenClientAndKey,
    .keys = {"count"},
    .parserFailure = "ParseSwitchInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRefreshToken{
    .family = RequestFamily::Authorization,
    .endpoint = endpoint::kRefreshToken,
    .keys = {"refresh_token", "client_id", "open_id", "scope", "state"},
    .fixed = {{"grant_type", "refresh_token"}, {"bundleId", "korvel.qxpcvantix"}},
    .parserFailure = "ParseRefreshTokenFromPlatform:%s error:%d",
};

// ---- Lists

inline constexpr RequestRow kDevList{
    .endpoint = endpoint::kDeviceList,
    .common = kTokenAndClient,
    .keys = {"pageStart", "pageSize"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseCameraListFromPlatform:%s error:%d",
};
inline constexpr RequestRow kDeviceListGB{
    .endpoint = endpoint::kBusinessDeviceList,
    .common = {.accessToken = true},
    .keys = {"pageStart", "pageSize", "bizType"},
    .fixed = {{"version", "1.0"}},
    .transportFailure = "GetDevList_GBFromPlatform SyncRequest error:%d",
    .parserFailure = "ParseCameraListFromPlatform:%s error:%d",
};
inline constexpr RequestRow kShareDevList{
    .endpoint = endpoint::kSharedDeviceList,
    .common = kTokenAndClient,
    .keys = {"pageStart", "pageSize"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseCameraListFromPlatform:%s error:%d",
};
inline constexpr RequestRow kAlarmList{
    .endpoint = endpoint::kAlarmList,
    .common = kTokenAndClient,
    .keys = {"deviceSerial", "cameraNo", "pageStart", "pageSize", "startTime", "endTime", "alarmType", "status"},
    .fixed = {{"version", "2.0"}},
    .transportFailure = "SyncRequest, ERROR:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
};

// ---- Recordings

inline constexpr RequestRow kDeviceFiles{
    .endpoint = endpoint::kDeviceFiles,
    .common = kTokenAndClient,
    .keys = {"deviceSerial", "cameraNo", "startTime", "endTime", "recordType", "location"},
    .checkFailure = "GetLocalRecordFileBySerialFromPlatform:%s error:%d",
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
};
/// The same by the path of the SDK.
inline constexpr RequestRow kDeviceFilesSdk = [] {
    RequestRow row = kDeviceFiles;
    row.endpoint = endpoint::kDeviceFilesSdk;
    return row;
}();
inline constexpr RequestRow kDeviceFilesEx{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kLocalVideoQuery,
    .common = {.accessToken = true},
    .headers = {.formContentType = true},
    .keys = {"startTime", "endTime", "deviceSerial", "channelNo"},
    .optionalKeys = {"location", "recordType"},
    .parserFailure = "ParseLocalDeviceRecordFile:%s error:%d",
};
inline constexpr RequestRow kCloudRecordFile{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kCloudRecordList,
    .common = {.accessToken = true},
    .keys = {"spaceId", "startTime", "endTime", "deviceSerial", "localIndex"},
    .parserFailure = "ParseLocalDeviceRecordFile:%s error:%d",
};
inline constexpr RequestRow kCloudFiles{
    .endpoint = endpoint::kCloudFiles,
    .common = kTokenClientAndKey,
    .keys = {"deviceSerial", "cameraNo", "startTime", "endTime", "fileType"},
    .fixed = {{"version", "3.0"}},
    .parserFailure = "GetCloudFileBySerialFromPlatform:%s error:%d",
};
inline constexpr RequestRow kCloudFileDetails{
    .kind = RequestKind::JsonPost,
    .parserFailure = "CheckCloudResponseInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kCloudFilesPerDay{
    .endpoint = endpoint::kCloudFilesPerDay,
    .common = {.accessToken = true},
    .keys = {"deviceSerial", "channelNo", "videoType", "searchDate", "maxCreateTime", "detailFileCount"},
    .parserFailure = "CheckCloudResponseInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kLocalFiles{
    .endpoint = endpoint::kLocalFilesByTime,
    .common = {.accessToken = true},
    .keys = {"bizType", "deviceSerial", "channelNo", "platFormId", "startTime", "endTime"},
    .fixed = {{"version", "1.0"}},
    .parserFailure = "GetCloudFileBySerialFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRecordByAlarm{
    .endpoint = endpoint::kRecordByAlarm,
    .common = kTokenAndClient,
    .keys = {"deviceSerial", "channelNo", "alarmId"},
};
inline constexpr RequestRow kCloudUploadUrl{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kCloudUploadUrl,
    .common = {.accessToken = true},
    .keys = {"fileName", "fileType", "expireDays", "urlExpireTime", "bizType"},
    .parserFailure = "ParseLocalDeviceRecordFile:%s error:%d",
};

// ---- Account and settings

inline constexpr RequestRow kConfigInfo{
    .endpoint = endpoint::kConfig,
    .common = {.clientSet = true, .appKey = true},
    .parserFailure = "GetConfigInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kUsername{
    .endpoint = endpoint::kUserName,
    .common = kTokenAndClient,
    .parserFailure = "ParseUsernameFromPlatform:%s error:%d",
};
inline constexpr RequestRow kUserId{
    .endpoint = endpoint::kUserId,
    .common = {.accessToken = true},
    .keys = {"sdkVersion"},
    .parserFailure = "ParseUserIdFromPlatform:%s error:%d",
};
inline constexpr RequestRow kPushSessionId{
    .kind = RequestKind::BodylessPost,
    .endpoint = endpoint::kPushRegistration,
    .common = {.accessToken = true},
    .keys = {"featureCode", "clientType", "clientVersion"},
    .fixed = {{"pushAppId", "PCVantix"}, {"clientName", "pcsdk"}},
    .parserFailure = "ParsePushSessionIdFromPlatform:%s error:%d",
};
inline constexpr RequestRow kBWCheckInfo{
    .kind = RequestKind::Get,
    .endpoint = endpoint::kBandwidthCheck,
    .common = {.accessToken = true},
    .keys = {"type", "checkTime", "localIndex"},
    .parserFailure = "ParseBWCheckInfoFromPlatform:%s error:%d",
};
/// Includes the client set without "clientVersion", so it names the members itself.
inline constexpr RequestRow kTransparentMsg{
    .endpoint = endpoint::kTransparentMsg,
    .common = {.accessToken = true, .appKey = true},
    .keys = {"clientType", "featureCode", "osVersion", "netType", "sdkVersion", "msgSeq"},
    .parserFailure = "ParseTransparentMsgDetailFromPlatform:%s error:%d",
};
inline constexpr RequestRow kSetVideoDefinition{
    .endpoint = endpoint::kSetVideoLevel,
    .common = kTokenAndClient,
    .keys = {"deviceSerial", "cameraNo", "videoLevel"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "CheckResponseInfoFromPlatformEx:%s error:%d",
};
inline constexpr RequestRow kSetAlarmRead{
    .endpoint = endpoint::kSetAlarmRead,
    .common = kTokenAndClient,
    .keys = {"alarmId"},
    .transportFailure = "SyncRequest, ERROR:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
};

}  // namespace vantix::platform_requests
