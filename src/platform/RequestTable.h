#pragma once

/// @file
/// Every request of the open platform, as a row: how it travels, where to, with what, and what its log lines say. Some
/// labels name another function than the one that is called; they are kept as they stand.

#include "requests/EndpointTable.h"
#include "requests/RequestCall.h"

namespace vantix::platform_requests {

inline constexpr unsigned kTokenClient = carries::kAccessToken | carries::kClientSet;
inline constexpr unsigned kTokenClientKey = kTokenClient | carries::kAppKey;

// ---- Device detail

inline constexpr RequestRow kDevDetailInfo{
    .name = "GetDevDetailInfoFromPlatformBySerial",
    .way = Way::Form,
    .endpoint = endpoint::kDeviceDetail,
    .carried = kTokenClientKey,
    .own = {"deviceSerial", "cameraNo"},
    .fixed = {{"version", "4.0"}, {"isNewVersion", "true"}},
    .parserFailure = "ParseDevDetailInfoFromPlatform:%s error:%d",
    .cost = "/api/device/detail CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kDeviceDetailInfo{
    .name = "GetDeviceDetailInfoFromPlatformBySerial",
    .way = Way::Form,
    .endpoint = endpoint::kDeviceDetail,
    .carried = kTokenClientKey,
    .own = {"deviceSerial", "cameraNo", "bizType", "platFormId"},
    .fixed = {{"version", "1.0"}, {"isNewVersion", "true"}},
    .parserFailure = "ParseDeviceDetailInfoFromPlatform:%s error:%d",
    .cost = "/api/device/detail CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kDeviceInfo{
    .name = "GetDeviceInfoBySerialFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kDeviceInfo,
    .carried = kTokenClient,
    .own = {"deviceSerial"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
};

// ---- Servers

inline constexpr RequestRow kServerInfo{
    .name = "GetServerInfoFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kServerInfo,
    .carried = kTokenClientKey,
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
    .cost = "/api/service/media/server/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kServerInfoOfDevice{
    .name = "GetServerInfoFromPlatform",
    .way = Way::BodylessPost,
    .endpoint = endpoint::kServerInfo,
    .carried = kTokenClientKey,
    .own = {"deviceSerial", "localIndex"},
    .fixed = {{"version", "2.0"}},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
    .cost = "/api/service/media/server/info CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kRelayServer{
    .name = "GetRelayServerInfoFromPlatform",
    .way = Way::Get,
    .endpoint = endpoint::kRelayServer,
    .carried = carries::kAccessToken,
    .own = {"deviceSerial", "channelNo"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseRealyInfoFromPlatform:%s error:%d",
};

// ---- P2P

inline constexpr RequestRow kP2PUserInfo{
    .name = "GetP2PUserInfoFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kP2PUserInfo,
    .carried = kTokenClient,
    .checkFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .parserFailure = "ParseP2PUserInfo:%s error:%d",
    .cost = "//api/sdk/p2p/user/info/get CostTime: = %ld milliseconds",
};
inline constexpr RequestRow kP2PDevInfo{
    .name = "GetP2PDevInfoFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kP2PDevInfo,
    .carried = kTokenClient,
    .own = {"deviceSerial"},
    .checkFailure = "CheckResponseInfoFromPlatform:%s error:%d",
    .parserFailure = "ParseP2PDevInfo:%s error:%d",
    .cost = "/api/sdk/p2p/dev/info/get CostTime: = %ld milliseconds",
};

// ---- Tickets and tokens

inline constexpr RequestRow kTicket{
    .name = "GetTicketInfoBySerial",
    .way = Way::Ticket,
    .endpoint = endpoint::kTicket,
    .carried = carries::kAccessToken,
    .own = {"deviceSerial", "channelNo"},
    .parserFailure = "ParseTicketInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kCloudTicket{
    .name = "GetCloudTicketInfoBySerial",
    .way = Way::Get,
    .endpoint = endpoint::kCloudTicket,
    .carried = carries::kAccessToken,
    .own = {"spaceId", "deviceSerial", "localIndex"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseRealyTicketInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRelayTicket{
    .name = "GetRelayTicketInfoBySerial",
    .way = Way::Get,
    .endpoint = endpoint::kRelayTicket,
    .carried = carries::kAccessToken,
    .own = {"deviceSerial", "channelNo"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseRealyTicketInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kPermission{
    .name = "GetAuthInfoFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kPermission,
    .carried = carries::kAccessToken,
    .own = {"deviceSerial", "cameraNo", "permission"},
    .parserFailure = "GetAuthInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kStreamTokens{
    .name = "GetStreamTokensFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kStreamTokens,
    .carried = kTokenClientKey,
    .own = {"count"},
    .parserFailure = "GetStreamTokensFromPlatform:%s error:%d",
};
inline constexpr RequestRow kStreamTokensParsed{
    .name = "GetStreamTokensFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kStreamTokens,
    .carried = kTokenClientKey,
    .own = {"count"},
    .parserFailure = "ParseSwitchInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRefreshToken{
    .name = "RefreshTokenFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kRefreshToken,
    .own = {"refresh_token", "client_id", "open_id", "scope", "state"},
    .fixed = {{"grant_type", "refresh_token"}, {"bundleId", "korvel.qxpcvantix"}},
    .parserFailure = "ParseRefreshTokenFromPlatform:%s error:%d",
};

// ---- Lists

inline constexpr RequestRow kDevList{
    .name = "GetDevListFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kDeviceList,
    .carried = kTokenClient,
    .own = {"pageStart", "pageSize"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseCameraListFromPlatform:%s error:%d",
};
inline constexpr RequestRow kDeviceListGB{
    .name = "GetDeviceListFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kBusinessDeviceList,
    .carried = carries::kAccessToken,
    .own = {"pageStart", "pageSize", "bizType"},
    .fixed = {{"version", "1.0"}},
    .transportFailure = "GetDevList_GBFromPlatform SyncRequest error:%d",
    .parserFailure = "ParseCameraListFromPlatform:%s error:%d",
};
inline constexpr RequestRow kShareDevList{
    .name = "GetShareDevListFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kSharedDeviceList,
    .carried = kTokenClient,
    .own = {"pageStart", "pageSize"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "ParseCameraListFromPlatform:%s error:%d",
};
inline constexpr RequestRow kAlarmList{
    .name = "GetAlarmListFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kAlarmList,
    .carried = kTokenClient,
    .own = {"deviceSerial", "cameraNo", "pageStart", "pageSize", "startTime", "endTime", "alarmType", "status"},
    .fixed = {{"version", "2.0"}},
    .transportFailure = "SyncRequest, ERROR:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
};

// ---- Recordings

inline constexpr RequestRow kDeviceFiles{
    .name = "GetDeviceFileBySerialFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kDeviceFiles,
    .carried = kTokenClient,
    .own = {"deviceSerial", "cameraNo", "startTime", "endTime", "recordType", "location"},
    .checkFailure = "GetLocalRecordFileBySerialFromPlatform:%s error:%d",
    .parserFailure = "ParseServerInfoFromPlatform:%s error:%d",
};
/// The same for callers that ask for the path of the SDK.
inline constexpr RequestRow kDeviceFilesSdk = [] {
    RequestRow row = kDeviceFiles;
    row.endpoint = endpoint::kDeviceFilesSdk;
    return row;
}();
inline constexpr RequestRow kDeviceFilesEx{
    .name = "GetDeviceFileBySerialFromPlatformEx",
    .way = Way::Get,
    .endpoint = endpoint::kLocalVideoQuery,
    .carried = carries::kAccessToken | carries::kFormHeader,
    .own = {"startTime", "endTime", "deviceSerial", "channelNo"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseLocalDeviceRecordFile:%s error:%d",
};
inline constexpr RequestRow kCloudRecordFile{
    .name = "GetCloudRecordFileFromPlatform",
    .way = Way::Get,
    .endpoint = endpoint::kCloudRecordList,
    .carried = carries::kAccessToken,
    .own = {"spaceId", "startTime", "endTime", "deviceSerial", "localIndex"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseLocalDeviceRecordFile:%s error:%d",
};
inline constexpr RequestRow kCloudFiles{
    .name = "GetCloudFileBySerialFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kCloudFiles,
    .carried = kTokenClientKey,
    .own = {"deviceSerial", "cameraNo", "startTime", "endTime", "fileType"},
    .fixed = {{"version", "3.0"}},
    .parserFailure = "GetCloudFileBySerialFromPlatform:%s error:%d",
};
inline constexpr RequestRow kCloudFileDetails{
    .name = "GetCloudFileInfoBySerialEXFromPlatform",
    .way = Way::Json,
    .endpoint = endpoint::kCloudFileDetails,
    .parserFailure = "CheckCloudResponseInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kCloudFilesPerDay{
    .name = "GetCloudFileBySerialEXFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kCloudFilesPerDay,
    .carried = carries::kAccessToken,
    .own = {"deviceSerial", "channelNo", "videoType", "searchDate", "maxCreateTime", "detailFileCount"},
    .parserFailure = "CheckCloudResponseInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kLocalFiles{
    .name = "GetLocalFileBySerialFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kLocalFilesByTime,
    .carried = carries::kAccessToken,
    .own = {"bizType", "deviceSerial", "channelNo", "platFormId", "startTime", "endTime"},
    .fixed = {{"version", "1.0"}},
    .parserFailure = "GetCloudFileBySerialFromPlatform:%s error:%d",
};
inline constexpr RequestRow kRecordByAlarm{
    .name = "GetRecordByAlarmIdFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kRecordByAlarm,
    .carried = kTokenClient,
    .own = {"deviceSerial", "channelNo", "alarmId"},
};
inline constexpr RequestRow kCloudUploadUrl{
    .name = "GetClouduploadUrlPlatform",
    .way = Way::Get,
    .endpoint = endpoint::kCloudUploadUrl,
    .carried = carries::kAccessToken,
    .own = {"fileName", "fileType", "expireDays", "urlExpireTime", "bizType"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseLocalDeviceRecordFile:%s error:%d",
};

// ---- Account and settings

inline constexpr RequestRow kConfigInfo{
    .name = "GetConfigInfoFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kConfig,
    .carried = carries::kClientSet | carries::kAppKey,
    .parserFailure = "GetConfigInfoFromPlatform:%s error:%d",
};
inline constexpr RequestRow kUsername{
    .name = "GetUsernameFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kUserName,
    .carried = kTokenClient,
    .parserFailure = "ParseUsernameFromPlatform:%s error:%d",
};
inline constexpr RequestRow kUserId{
    .name = "GetUserIdFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kUserId,
    .carried = carries::kAccessToken,
    .own = {"sdkVersion"},
    .parserFailure = "ParseUserIdFromPlatform:%s error:%d",
};
inline constexpr RequestRow kPushSessionId{
    .name = "getPushSessionIdFromPlatform",
    .way = Way::BodylessPost,
    .endpoint = endpoint::kPushRegistration,
    .carried = carries::kAccessToken,
    .own = {"featureCode", "clientType", "clientVersion"},
    .fixed = {{"pushAppId", "PCVantix"}, {"clientName", "pcsdk"}},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParsePushSessionIdFromPlatform:%s error:%d",
};
inline constexpr RequestRow kBWCheckInfo{
    .name = "getBWCheckInfoFromPlatform",
    .way = Way::Get,
    .endpoint = endpoint::kBandwidthCheck,
    .carried = carries::kAccessToken,
    .own = {"type", "checkTime", "localIndex"},
    .transportFailure = "SyncRequestHeader error:%d",
    .parserFailure = "ParseBWCheckInfoFromPlatform:%s error:%d",
};
/// Carries the client set without "clientVersion", so it names the members itself.
inline constexpr RequestRow kTransparentMsg{
    .name = "GetTransparentMsgDetailFromPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kTransparentMsg,
    .carried = carries::kAccessToken | carries::kAppKey,
    .own = {"clientType", "featureCode", "osVersion", "netType", "sdkVersion", "msgSeq"},
    .parserFailure = "ParseTransparentMsgDetailFromPlatform:%s error:%d",
};
inline constexpr RequestRow kSetVideoDefinition{
    .name = "SetVideoDefinitionOnPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kSetVideoLevel,
    .carried = kTokenClient,
    .own = {"deviceSerial", "cameraNo", "videoLevel"},
    .fixed = {{"version", "2.0"}},
    .parserFailure = "CheckResponseInfoFromPlatformEx:%s error:%d",
};
inline constexpr RequestRow kSetAlarmRead{
    .name = "SetAlarmReadOnPlatform",
    .way = Way::Form,
    .endpoint = endpoint::kSetAlarmRead,
    .carried = kTokenClient,
    .own = {"alarmId"},
    .transportFailure = "SyncRequest, ERROR:%d",
    .parserFailure = "CheckResponseInfoFromPlatform:%s error:%d",
};

/// All of them, in the order of this page.
inline constexpr const RequestRow* kAll[] = {
    &kDevDetailInfo,
    &kDeviceDetailInfo,
    &kDeviceInfo,
    &kServerInfo,
    &kServerInfoOfDevice,
    &kRelayServer,
    &kP2PUserInfo,
    &kP2PDevInfo,
    &kTicket,
    &kCloudTicket,
    &kRelayTicket,
    &kPermission,
    &kStreamTokens,
    &kStreamTokensParsed,
    &kRefreshToken,
    &kDevList,
    &kDeviceListGB,
    &kShareDevList,
    &kAlarmList,
    &kDeviceFiles,
    &kDeviceFilesSdk,
    &kDeviceFilesEx,
    &kCloudRecordFile,
    &kCloudFiles,
    &kCloudFileDetails,
    &kCloudFilesPerDay,
    &kLocalFiles,
    &kRecordByAlarm,
    &kCloudUploadUrl,
    &kConfigInfo,
    &kUsername,
    &kUserId,
    &kPushSessionId,
    &kBWCheckInfo,
    &kTransparentMsg,
    &kSetVideoDefinition,
    &kSetAlarmRead,
};

}  // namespace vantix::platform_requests
