#include "support/Operations.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>

namespace vantix::test {
namespace {

// One operation a row; d is the data center, a the arguments, o the outputs.
#define ROW(slot, name, action)                                                        \
    Operation {                                                                        \
        slot, #name, [](IVantixDataCenter& d, const Arguments& a, Outputs& o) -> int { \
            static_cast<void>(a);                                                      \
            static_cast<void>(o);                                                      \
            action                                                                     \
        }                                                                              \
    }
/// Returns a code, or true or false.
#define CODED(slot, name, ...) ROW(slot, name, return d.name(__VA_ARGS__);)
/// Returns nothing that says how it went.
#define PLAIN(slot, name, ...) ROW(slot, name, static_cast<void>(d.name(__VA_ARGS__)); return 0;)
/// Hands out a reference to a text.
#define LIVE(slot, name, ...) ROW(slot, name, o.live = &d.name(__VA_ARGS__); return 0;)

constexpr Operation kOperations[] = {
    CODED(1, getTicketInfo, a.serial, a.ch, o.text),
    CODED(2, getCloudTicketInfo, a.serial, a.ch, a.spaceId, o.text),
    CODED(3, getRelayTicket, a.serial, a.ch, o.text),
    CODED(4, getDevDetailInfo, a.serial, a.ch, o.channel, o.detail, o.future, a.retried),
    CODED(5, getDevDetailInfoSync, a.serial, a.ch, a.force, o.channel, o.detail, a.retried),
    CODED(6, getDeviceDetailInfo, a.serial, a.ch, a.bizType, a.platFormId, o.channel, o.detail, a.retried),
    CODED(7, isP2PV3download, a.serial, a.ch),
    CODED(8, getDevDetailInfoByRelation, a.serial, a.ch, o.channel, o.detail, a.retried),
    CODED(9, getServerInfoAsync, a.token, o.servers, o.future, a.retried),
    CODED(10, getServerInfoEx, a.token, o.text, a.serial, a.ch, a.retried),
    CODED(11, getServerInfoSync, a.token, o.servers, a.retried),
    CODED(12, getVideoVtmAddr, a.serial, a.ch, o.text, a.retried),
    CODED(13, getRelayServerInfo, a.serial, a.ch, o.text),
    CODED(14, getDeviceInfoBySerial, a.serial, a.ch, o.text, a.retried),

    CODED(15, getDevList, a.pageStart, a.pageSize, o.devices, a.retried),
    CODED(16, getDeviceList, a.pageStart, a.pageSize, a.bizType, o.devices, a.retried),
    CODED(17, getShareDevList, a.pageStart, a.pageSize, o.devices, a.retried),
    CODED(18, getB2CSharedDevList, a.pageStart, a.pageSize, o.text),
    CODED(19, getAlarmList, a.serial, a.ch, a.pageStart, a.pageSize, a.span.startTime, a.span.endTime, a.alarmType,
          a.alarmStatus, o.text, a.retried),
    CODED(20, getUsername, o.text),
    CODED(21, getConfigInfo, o.config),
    CODED(22, getTransparentMsgDetail, a.serial, a.msgSeq, o.message, a.retried),

    CODED(23, getP2PUserInfoAsync, o.user, a.token, o.future, a.retried),
    CODED(24, getP2PUserInfoByToken, a.token, o.user, a.retried),
    CODED(25, getP2PUserInfoByDevice, a.serial, a.ch, o.user, a.retried),
    CODED(26, getP2PDevInfoAsync, o.p2pDevice, a.token, a.serial, o.future),
    CODED(27, getP2PDevInfoCached, a.serial, o.p2pServers, o.p2pDevice, a.force),
    CODED(28, getP2PDevInfoBySerial, o.p2pDevice, a.token, a.serial, a.retried),
    CODED(29, getP2PDevInfoByChannel, a.serial, a.ch, a.token, o.p2pDevice, a.retried),
    CODED(30, getChannelCacheValue, a.serial, a.ch),
    PLAIN(31, setChannelCacheValue, a.serial, a.ch, a.number),
    CODED(32, setVideoDefinition, a.serial, o.text, a.ch, a.videoLevel, a.retried),
    CODED(33, setAlarmRead, a.alarmId),

    CODED(34, getStreamTokens, a.token, a.streamTokens, o.text, a.retried),
    CODED(35, getAuthInfo, a.serial, a.ch, a.playback),
    CODED(36, RefreshToken, o.text),
    CODED(37, getOneStreamToken, a.token, o.text),
    CODED(38, GetStreamTokenFromQueue, a.token, o.buffer.data()),
    CODED(39, GetStreamTokenFast),

    CODED(40, getRecordByAlarmID, a.serial, a.ch, a.alarmId, o.text),
    CODED(41, getDeviceFileBySerial, a.serial, a.ch, a.span.startTime, a.span.endTime, a.recordType, a.location,
          o.files, a.sdkPath, a.retried),
    CODED(42, getDeviceFileBySerialEx, a.serial, a.ch, a.span.startTime, a.span.endTime, a.recordType, a.withLocation,
          o.files),
    CODED(43, getCloudFileBySerial, a.serial, a.ch, a.span, a.fileType, o.text, a.retried),
    CODED(44, getLocalFileBySerial, a.serial, a.ch, a.span.startTime, a.span.endTime, a.bizType, a.platFormId, o.text,
          a.retried),
    CODED(45, getCloudFileBySerialEX, a.serial, a.ch, a.videoType, a.cloudQuery, o.text, a.retried),
    CODED(46, getCloudFileInfoBySerialEX, a.serial, a.ch, a.jsonQuery, o.text),
    CODED(47, GetCloudRecordFile, a.serial, a.ch, a.spaceId, a.span.startTime, a.span.endTime, o.files),
    CODED(48, GetClouduploadUrl, a.serial, a.ch, a.fileName, a.fileType, a.expireDays, a.urlExpireTime, a.uploadBizType,
          o.text),
    CODED(49, UploadCloudPicFile, a.url, a.localPath),

    CODED(50, ClearAllCache),
    PLAIN(51, expireServerInfo),
    CODED(52, ClearDeviceInfoCache),
    CODED(53, IsSupportSeekPlayback, a.serial),
    CODED(54, IsSupportPlaybackSpeed, a.serial, a.number),
    CODED(55, getDeviceRecord, a.serial, a.ch, o.detail),
    CODED(56, getDeviceRecordAlt, a.serial, a.ch, o.detail),
    CODED(57, getUserId, o.text),
    CODED(58, getPushSessionId, o.text),
    CODED(59, getBWCheckInfo, a.bandwidthType, a.checkTime, a.ch, o.bandwidth),

    PLAIN(60, SetDeviceTkTokens, a.text),
    PLAIN(61, getDeviceTkTokensByText, o.text, a.tkType, a.serial, a.channelText),
    PLAIN(62, getDeviceTkTokensByNumber, o.text, a.tkType, a.serial, a.ch),
    PLAIN(63, setGlobalTkToken, a.token),
    LIVE(64, getGlobalTkToken),
    PLAIN(65, setPermissionMode, a.number),
    ROW(66, getPermissionMode, return *d.getPermissionMode();),
    CODED(67, SetDevInfoCache, a.serial, a.ch),
    CODED(68, getDevInfoCache, a.serial, a.ch, o.channel, o.detail),
    PLAIN(69, setCloseP2P, a.number),
    CODED(70, isOpenP2P),
    CODED(71, isVTDUType1),
    CODED(72, RefreshSession, a.refreshSessionId, o.text),

    PLAIN(73, setDomain, a.text, a.consumerDomain ? *a.consumerDomain : a.text),
    LIVE(74, getDomain, a.serial, a.ch),
    LIVE(75, getDomainByToken, a.token),
    PLAIN(76, setAuthAddr, a.text),
    LIVE(77, getAuthAddr),
    PLAIN(78, setAppId, a.text),
    PLAIN(79, getAppId, o.text),
    PLAIN(80, setAccessToken, a.token),
    LIVE(81, getAccessToken),
    PLAIN(82, setTokenExpireTime, a.text),
    LIVE(83, getTokenExpireTime),
    PLAIN(84, setRefreshToken, a.token),
    LIVE(85, getRefreshToken),
    PLAIN(86, setOpenID, a.text),
    LIVE(87, getOpenID),
    PLAIN(88, setScope, a.text),
    LIVE(89, getScope),
    PLAIN(90, setState, a.text),
    LIVE(91, getState),

    PLAIN(92, setCacheTime, a.number),
    CODED(93, getCacheTime),
    PLAIN(94, setLogLevel, a.number),
    CODED(95, getLogLevel),
    PLAIN(96, setDataUtf8, a.number),
    CODED(97, isDataUtf8),
    PLAIN(98, setCloseBelongSerial, a.number),
    CODED(99, isCloseBelongSerial),

    PLAIN(100, SetB2CTokens, a.text),
    PLAIN(101, getB2CTokensByNumber, a.serial, a.ch, o.text),
    PLAIN(102, getB2CTokensByText, a.serial, a.channelText, o.text),
    CODED(103, isB2CSharedToken, a.token),
    CODED(104, isB2CSharedChannel, a.serial, a.ch),
    PLAIN(105, setSharedAccessToken, a.token),
    LIVE(106, getSharedAccessToken),
    PLAIN(107, setSessionId, a.token),
    LIVE(108, getSessionId),
};

#undef LIVE
#undef PLAIN
#undef CODED
#undef ROW

}  // namespace

Arguments Arguments::AllOf(const std::string& serial, const std::string& token, const std::string& text, int number) {
    return {.serial = serial,
            .ch = number,
            .token = token,
            .force = true,
            .pageStart = number,
            .pageSize = number,
            .bizType = text,
            .platFormId = text,
            .span = {text, text},
            .alarmId = text,
            .alarmType = number,
            .alarmStatus = number,
            .msgSeq = text,
            .videoLevel = number,
            .playback = true,
            .spaceId = number,
            .streamTokens = number,
            .bandwidthType = number,
            .checkTime = text,
            .recordType = number,
            .location = number,
            .sdkPath = true,
            .videoType = number,
            .cloudQuery = {text, text, number},
            .jsonQuery = text,
            .fileName = text,
            .fileType = number,
            .expireDays = number,
            .urlExpireTime = number,
            .uploadBizType = text,
            .url = text,
            .localPath = text,
            .refreshSessionId = token,
            .text = text,
            .channelText = text,
            .number = number,
            .tkType = number};
}

void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

std::span<const Operation> Operations() { return kOperations; }

const Operation& OperationNamed(const std::string& name) {
    const auto* const found = std::find_if(std::begin(kOperations), std::end(kOperations),
                                           [&](const Operation& operation) { return operation.name == name; });
    if (found == std::end(kOperations)) {
        throw std::out_of_range("no slot is named " + name);
    }
    return *found;
}

CallResult Call(IVantixDataCenter& center, const Operation& operation, const Arguments& arguments, Outputs& outputs) {
    CallResult call;
    call.returned = operation.call(center, arguments, outputs);
    call.started = outputs.future.valid();
    call.result = call.started ? outputs.future.get() : call.returned;
    return call;
}

CallResult Call(IVantixDataCenter& center, const std::string& operation, const Arguments& arguments, Outputs& outputs) {
    return Call(center, OperationNamed(operation), arguments, outputs);
}

int Call(IVantixDataCenter& center, const std::string& operation, const Arguments& arguments) {
    Outputs outputs;
    return Call(center, operation, arguments, outputs).result;
}

int CallAmongThreads(IVantixDataCenter& center, const Operation& operation, const Arguments& arguments,
                     Outputs& outputs) {
    constexpr int kGetPermissionMode = 66;
    if (operation.slot == kGetPermissionMode) {
        return center.getPermissionMode() == nullptr ? -1 : 0;
    }
    return Call(center, operation, arguments, outputs).result;
}

}  // namespace vantix::test
