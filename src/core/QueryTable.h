#pragma once

/// @file
/// The one-shot queries as data: which credential each carries, how it finds its domain, and what makes it repeat.

namespace vantix {

/// How a query finds the base address of its request.
enum class DomainRule {
    Device,         ///< By serial and channel, in the words of `getDomain`.
    DeviceInPlace,  ///< By serial and channel, in the query's own name.
    Token,          ///< By the credential, in the words of `getDomainByToken`.
    TokenInPlace,   ///< By the credential, in the query's own name.
};

/// Which Tk token a query carries in the small-permission mode.
namespace tk {
inline constexpr int kNone = 0;     ///< None: the access token, as in the other modes.
inline constexpr int kAccount = 1;  ///< The global one.
inline constexpr int kDevice = 2;   ///< The device's own.
inline constexpr int kVideo = 3;    ///< The one for streams and recordings.
}  // namespace tk

/// One query, as data.
struct QueryRow {
    int slot = 0;
    const char* name = nullptr;  ///< The operation's.
    int tkType = tk::kNone;
    bool isRefreshed = false;  ///< One refresh of the access token and one repeat, when it has expired.
    DomainRule domain = DomainRule::Device;
    bool repeatsTransient = false;  ///< One repeat when the platform fails for the moment.
    bool hasConsumerForm = false;   ///< The consumer servers answer for shared devices; their session is renewed too.
};

namespace queries {

using enum DomainRule;

inline constexpr QueryRow kTicket{1, "getTicketInfo", tk::kVideo, true, Device};
inline constexpr QueryRow kCloudTicket{2, "getCloudTicketInfo", tk::kVideo, true, Device};
inline constexpr QueryRow kRelayTicket{3, "getRelayTicket", tk::kVideo, true, Device};
inline constexpr QueryRow kDeviceDetail{6, "getDeviceDetailInfo", tk::kVideo, true, Device, true};
inline constexpr QueryRow kRelayServer{13, "getRelayServerInfo", tk::kVideo, true, Device};
inline constexpr QueryRow kDeviceInfo{14, "getDeviceInfoBySerial", tk::kDevice, true, Device};
inline constexpr QueryRow kDevList{15, "getDevList", tk::kAccount, true, TokenInPlace};
inline constexpr QueryRow kDeviceList{16, "getDeviceList", tk::kAccount, true, TokenInPlace};
inline constexpr QueryRow kShareDevList{17, "getShareDevList", tk::kAccount, true, TokenInPlace};
inline constexpr QueryRow kAlarmList{19, "getAlarmList", tk::kDevice, true, Device};
inline constexpr QueryRow kUsername{20, "getUsername", tk::kNone, true, TokenInPlace};
inline constexpr QueryRow kTransparentMsg{22, "getTransparentMsgDetail", tk::kNone, true, DeviceInPlace};
inline constexpr QueryRow kVideoDefinition{32, "setVideoDefinition", tk::kNone, true, Device};
inline constexpr QueryRow kAlarmRead{33, "setAlarmRead", tk::kNone, true, TokenInPlace};
inline constexpr QueryRow kPermission{35, "getAuthInfo", tk::kDevice, false, Device};
inline constexpr QueryRow kRecordByAlarm{40, "getRecordByAlarmID", tk::kVideo, false, Device};
inline constexpr QueryRow kDeviceFiles{41, "getDeviceFileBySerial", tk::kNone, true, Device, false, true};
inline constexpr QueryRow kDeviceFilesEx{42, "getDeviceFileBySerialEx", tk::kNone, true, Device};
inline constexpr QueryRow kCloudFiles{43, "getCloudFileBySerial", tk::kNone, true, Device};
inline constexpr QueryRow kLocalFiles{44, "getLocalFileBySerial", tk::kNone, true, Device};
inline constexpr QueryRow kCloudFilesEx{45, "getCloudFileBySerialEX", tk::kNone, true, Device};
inline constexpr QueryRow kCloudFileDetails{46, "getCloudFileInfoBySerialEX", tk::kNone, true, DeviceInPlace};
inline constexpr QueryRow kCloudRecords{47, "GetCloudRecordFile", tk::kNone, false, Device};
inline constexpr QueryRow kUploadAddress{48, "GetClouduploadUrl", tk::kNone, false, Device};
inline constexpr QueryRow kUserId{57, "getUserId", tk::kNone, true, TokenInPlace};
inline constexpr QueryRow kPushSession{58, "getPushSessionId", tk::kNone, true, TokenInPlace};
inline constexpr QueryRow kBandwidth{59, "getBWCheckInfo", tk::kNone, true, Token};

/// All of them, in the order of their slots.
inline constexpr const QueryRow* kAll[] = {
    &kTicket,          &kCloudTicket, &kRelayTicket,  &kDeviceDetail,     &kRelayServer,  &kDeviceInfo,
    &kDevList,         &kDeviceList,  &kShareDevList, &kAlarmList,        &kUsername,     &kTransparentMsg,
    &kVideoDefinition, &kAlarmRead,   &kPermission,   &kRecordByAlarm,    &kDeviceFiles,  &kDeviceFilesEx,
    &kCloudFiles,      &kLocalFiles,  &kCloudFilesEx, &kCloudFileDetails, &kCloudRecords, &kUploadAddress,
    &kUserId,          &kPushSession, &kBandwidth,
};

}  // namespace queries
}  // namespace vantix
