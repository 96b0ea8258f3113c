#include <ostream>

#include "unit/core/queries/QueryCase.h"

namespace vantix::test {
namespace {

constexpr char kGlobalToken[] = "tk-global";
constexpr char kDeviceToken[] = "tk-device";
constexpr char kVideoToken[] = "tk-video";

/// A query about the account: both its tokens and the domain's own wording are those of its operation, and it never
/// goes to the C domain, since the account's token is not a shared one.
QueryCase AboutTheAccount(const char* operation, const char* path, const char* tag, const char* small = kAccessToken,
                          bool takesRetried = false) {
    return {.operation = operation,
            .path = path,
            .small = small,
            .sharedDomain = "B",
            .domainTag = tag,
            .sharedLine = "Returning B domain",
            .takesRetried = takesRetried};
}

std::vector<QueryCase> Devices() {
    return {
        {.operation = "getTicketInfo", .path = "/api/route/userdevicetob/v3/cameras/ticketInfo", .small = kVideoToken},
        {.operation = "getCloudTicketInfo", .path = "/api/service/cloud/ticket", .small = kVideoToken},
        {.operation = "getRelayTicket", .path = "/api/service/media/streaming/relay/ticket", .small = kVideoToken},
        {.operation = "getDeviceDetailInfo",
         .path = "/api/device/detail",
         .small = kVideoToken,
         .takesRetried = true,
         .repeatsTransient = true},
        {.operation = "getRelayServerInfo", .path = "/api/service/media/streaming/relay/server", .small = kVideoToken},
        {.operation = "getDeviceInfoBySerial",
         .path = "/api/device/getDeviceInfo",
         .small = kDeviceToken,
         .takesRetried = true},
    };
}

std::vector<QueryCase> Lists() {
    return {
        AboutTheAccount("getDevList", "/api/device/list", "CVantixDataCenter::getDevList", kGlobalToken, true),
        AboutTheAccount("getDeviceList", "/api/lapp/device/list", "CVantixDataCenter::getDeviceList", kGlobalToken,
                        true),
        AboutTheAccount("getShareDevList", "/api/device/sharelist", "CVantixDataCenter::getShareDevList", kGlobalToken,
                        true),
        {.operation = "getB2CSharedDevList",
         .path = "/v3/hc/userdevice/b2c/shared/resources/devices/pagelist",
         .credential = kSession,
         .small = kSession,
         .shared = kSession,
         .ownDomain = "C",
         .ownLine = nullptr,
         .sharedLine = nullptr,
         .isRenewed = false},
        {.operation = "getAlarmList", .path = "/api/alarm/list", .small = kDeviceToken, .takesRetried = true},
        AboutTheAccount("getUsername", "/api/user/getUserName", "CVantixDataCenter::getUsername"),
        {.operation = "getConfigInfo",
         .path = "/api/config/info",
         .needsCredential = false,
         .credential = "<none>",
         .small = "<none>",
         .shared = "<none>",
         .sharedDomain = "B",
         .domainTag = "CVantixDataCenter::getConfigInfo",
         .sharedLine = "Returning B domain",
         .isRenewed = false},
        {.operation = "getTransparentMsgDetail",
         .path = "/api/common/transparent/getMsgDetail",
         .domainTag = "CVantixDataCenter::getTransparentMsgDetail",
         .takesRetried = true},
    };
}

std::vector<QueryCase> SettingsAndTokens() {
    return {
        {.operation = "setVideoDefinition", .path = "/api/device/setVideoLevel", .takesRetried = true},
        AboutTheAccount("setAlarmRead", "/api/alarm/sdk/setRead", "CVantixDataCenter::setAlarmRead"),
        {.operation = "getStreamTokens",
         .path = "/api/user/token",
         .shared = kSession,
         .sharedPath = "/api/user/token/get",
         .domainTag = "CVantixDataCenter::getDomainByToken",
         .ownLine = "Returning B domain not a shared device",
         .takesRetried = true},
        {.operation = "getAuthInfo",
         .path = "/api/service/auth/device/user/permission",
         .small = kDeviceToken,
         .expired = -1,
         .isRenewed = false},
        // The response is handed on as it comes, refusals included.
        {.operation = "getRecordByAlarmID",
         .path = "/api/lapp/video/by/id",
         .small = kVideoToken,
         .expired = 0,
         .isRenewed = false},
    };
}

std::vector<QueryCase> Recordings() {
    return {
        {.operation = "getDeviceFileBySerial",
         .path = "/api/v3/device/sdk/device/local/video",
         .shared = kSession,
         .sharedPath = "/v3/streaming/records",
         .takesRetried = true},
        {.operation = "getDeviceFileBySerialEx", .path = "/api/v3/das/device/local/video/query"},
        {.operation = "getCloudFileBySerial", .path = "/api/cloud/files/get", .takesRetried = true},
        {.operation = "getLocalFileBySerial", .path = "/api/lapp/video/by/time", .takesRetried = true},
        {.operation = "getCloudFileBySerialEX",
         .path = "/api/v3/open/cloud/v3/clouds/videosIncrPerDay",
         .takesRetried = true},
        {.operation = "getCloudFileInfoBySerialEX",
         .path = "/api/v3/open/cloud/v3/clouds/videoDetails",
         .domainTag = "CVantixDataCenter::getCloudFileInfoBySerialEX"},
        {.operation = "GetCloudRecordFile", .path = "/api/service/cloudrecord/video/info/list", .isRenewed = false},
        {.operation = "GetClouduploadUrl", .path = "/api/service/cloud/upload/url", .isRenewed = false},
        AboutTheAccount("getUserId", "/api/service/user/get", "CVantixDataCenter::getUserId"),
        AboutTheAccount("getPushSessionId", "/api/service/set/push", "CVantixDataCenter::getPushSessionId"),
        {.operation = "getBWCheckInfo",
         .path = "/api/service/media/bwc/address",
         .sharedDomain = "B",
         .domainTag = "CVantixDataCenter::getDomainByToken",
         .ownLine = "Returning B domain not a shared device",
         .sharedLine = "Returning B domain not a shared device"},
    };
}

}  // namespace

void PrintTo(const QueryCase& query, std::ostream* out) { *out << query.operation; }

const std::vector<QueryCase>& QueryCases() {
    static const std::vector<QueryCase> cases = [] {
        std::vector<QueryCase> all;
        for (const auto part : {Devices, Lists, SettingsAndTokens, Recordings}) {
            const std::vector<QueryCase> rows = part();
            all.insert(all.end(), rows.begin(), rows.end());
        }
        return all;
    }();
    return cases;
}

}  // namespace vantix::test
