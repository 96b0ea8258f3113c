#pragma once

/// @file
/// The one-shot queries as data: the log tag of each, how it finds its route, and when it repeats.

#include "core/CoreSite.h"
#include "core/renewal/Renewal.h"
#include "core/routes/RouteRow.h"

namespace vantix {

/// One query, as data.
struct QueryRow {
    CallSite site;
    RouteRow route;
    RepeatRules repeats;
};

namespace queries {

/// The channel's Tk token for streams and recordings, or the one for the device itself.
inline constexpr RouteRow kVideoToken{.credential = Credential::TkToken, .tkKind = tk::kVideo};
inline constexpr RouteRow kDeviceToken{.credential = Credential::TkToken, .tkKind = tk::kDevice};
/// The access token in every mode.
inline constexpr RouteRow kAccessToken{.credential = Credential::AccessToken};
inline constexpr RouteRow kAccessTokenOwnWording{.credential = Credential::AccessToken,
                                                 .wording = Wording::OfOperation};
/// Of the account as a whole: the credential itself decides about the address.
inline constexpr RouteRow kAccount{
    .credential = Credential::AccessToken, .address = AddressRule::ByToken, .wording = Wording::OfOperation};
inline constexpr RouteRow kAccountList{.credential = Credential::TkToken,
                                       .tkKind = tk::kGlobal,
                                       .address = AddressRule::ByToken,
                                       .wording = Wording::OfOperation};

/// The same, with the log lines of `getDomainByToken`.
inline constexpr RouteRow kAccountByToken{.credential = Credential::AccessToken, .address = AddressRule::ByToken};
/// Needs no credential; the account's token only decides about the address.
inline constexpr RouteRow kNoCredential{
    .credential = Credential::None, .address = AddressRule::ByToken, .wording = Wording::OfOperation};
/// The consumer servers have a form of their own for shared channels.
inline constexpr RouteRow kEitherFamily{.credential = Credential::AccessToken, .family = FamilyRule::ByChannel};
static_assert(IsConsistent(kVideoToken) && IsConsistent(kDeviceToken) && IsConsistent(kAccessToken) &&
              IsConsistent(kAccessTokenOwnWording) && IsConsistent(kAccount) && IsConsistent(kAccountList) &&
              IsConsistent(kAccountByToken) && IsConsistent(kNoCredential) && IsConsistent(kEitherFamily));

inline constexpr RepeatRules kRenewed{};
inline constexpr RepeatRules kOnce{.renews = false};
/// A consumer response with the code of an expired access token renews that one.
inline constexpr RepeatRules kRenewedByEither{.tokenCodeFromAnyFamily = true};
inline constexpr RepeatRules kRenewedAndTransient{.transientRepeats = 1};

inline constexpr QueryRow kTicket{.site = VANTIX_CORE_HERE("getTicketInfo"), .route = kVideoToken, .repeats = kRenewed};
inline constexpr QueryRow kCloudTicket{
    .site = VANTIX_CORE_HERE("getCloudTicketInfo"), .route = kVideoToken, .repeats = kRenewed};
inline constexpr QueryRow kRelayTicket{
    .site = VANTIX_CORE_HERE("getRelayTicket"), .route = kVideoToken, .repeats = kRenewed};
inline constexpr QueryRow kDeviceDetail{
    .site = VANTIX_CORE_HERE("getDeviceDetailInfo"), .route = kVideoToken, .repeats = kRenewedAndTransient};
inline constexpr QueryRow kRelayServer{
    .site = VANTIX_CORE_HERE("getRelayServerInfo"), .route = kVideoToken, .repeats = kRenewed};
inline constexpr QueryRow kDeviceInfo{
    .site = VANTIX_CORE_HERE("getDeviceInfoBySerial"), .route = kDeviceToken, .repeats = kRenewed};
inline constexpr QueryRow kDevList{.site = VANTIX_CORE_HERE("getDevList"), .route = kAccountList, .repeats = kRenewed};
inline constexpr QueryRow kDeviceList{
    .site = VANTIX_CORE_HERE("getDeviceList"), .route = kAccountList, .repeats = kRenewed};
inline constexpr QueryRow kShareDevList{
    .site = VANTIX_CORE_HERE("getShareDevList"), .route = kAccountList, .repeats = kRenewed};
inline constexpr QueryRow kAlarmList{
    .site = VANTIX_CORE_HERE("getAlarmList"), .route = kDeviceToken, .repeats = kRenewed};
inline constexpr QueryRow kUsername{.site = VANTIX_CORE_HERE("getUsername"), .route = kAccount, .repeats = kRenewed};
inline constexpr QueryRow kConfigInfo{
    .site = VANTIX_CORE_HERE("getConfigInfo"), .route = kNoCredential, .repeats = kOnce};
inline constexpr QueryRow kTransparentMsg{
    .site = VANTIX_CORE_HERE("getTransparentMsgDetail"), .route = kAccessTokenOwnWording, .repeats = kRenewed};
inline constexpr QueryRow kVideoDefinition{
    .site = VANTIX_CORE_HERE("setVideoDefinition"), .route = kAccessToken, .repeats = kRenewed};
inline constexpr QueryRow kAlarmRead{.site = VANTIX_CORE_HERE("setAlarmRead"), .route = kAccount, .repeats = kRenewed};
inline constexpr QueryRow kPermission{.site = VANTIX_CORE_HERE("getAuthInfo"), .route = kDeviceToken, .repeats = kOnce};
inline constexpr QueryRow kRecordByAlarm{
    .site = VANTIX_CORE_HERE("getRecordByAlarmID"), .route = kVideoToken, .repeats = kOnce};
inline constexpr QueryRow kDeviceFiles{
    .site = VANTIX_CORE_HERE("getDeviceFileBySerial"), .route = kEitherFamily, .repeats = kRenewedByEither};
inline constexpr QueryRow kDeviceFilesEx{
    .site = VANTIX_CORE_HERE("getDeviceFileBySerialEx"), .route = kAccessToken, .repeats = kRenewed};
inline constexpr QueryRow kCloudFiles{
    .site = VANTIX_CORE_HERE("getCloudFileBySerial"), .route = kAccessToken, .repeats = kRenewed};
inline constexpr QueryRow kLocalFiles{
    .site = VANTIX_CORE_HERE("getLocalFileBySerial"), .route = kAccessToken, .repeats = kRenewed};
inline constexpr QueryRow kCloudFilesEx{
    .site = VANTIX_CORE_HERE("getCloudFileBySerialEX"), .route = kAccessToken, .repeats = kRenewed};
inline constexpr QueryRow kCloudFileDetails{
    .site = VANTIX_CORE_HERE("getCloudFileInfoBySerialEX"), .route = kAccessTokenOwnWording, .repeats = kRenewed};
inline constexpr QueryRow kCloudRecords{
    .site = VANTIX_CORE_HERE("GetCloudRecordFile"), .route = kAccessToken, .repeats = kOnce};
inline constexpr QueryRow kUploadAddress{
    .site = VANTIX_CORE_HERE("GetClouduploadUrl"), .route = kAccessToken, .repeats = kOnce};
inline constexpr QueryRow kUserId{.site = VANTIX_CORE_HERE("getUserId"), .route = kAccount, .repeats = kRenewed};
inline constexpr QueryRow kPushSession{
    .site = VANTIX_CORE_HERE("getPushSessionId"), .route = kAccount, .repeats = kRenewed};
inline constexpr QueryRow kBandwidth{
    .site = VANTIX_CORE_HERE("getBWCheckInfo"), .route = kAccountByToken, .repeats = kRenewed};

}  // namespace queries
}  // namespace vantix
