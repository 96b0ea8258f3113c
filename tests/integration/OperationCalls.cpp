// How every operation that may send a request is called.

#include "OperationCalls.h"

#include <map>

#include "OperationOutput.h"
#include "support/LocalFile.h"
#include "vantix/records/CloudFileQuery.h"

namespace vantix::test {
namespace {

using Center = IVantixDataCenter;
using Input = OperationInput;
using Calls = std::map<std::string, OperationCall>;

const char* const kBegin = "2024-01-02 00:00:00";
const char* const kEnd = "2024-01-02 23:59:59";

/// An operation that fills an output of this type, which held nothing before.
template <class Output, class Operation>
OperationCall Into(Operation operation) {
    return [operation](Center& center, const Input& input, Json& output) {
        Output filled;
        const int result = operation(center, input, filled);
        output = OutputJson(filled);
        return result;
    };
}

/// An asynchronous one.
template <class Output, class Operation>
OperationCall Awaiting(Operation operation) {
    return Into<Output>([operation](Center& center, const Input& input, Output& filled) {
        std::future<int32_t> future;
        const int result = operation(center, input, filled, future);
        return future.valid() ? future.get() : result;
    });
}

template <class Operation>
OperationCall Filling(Operation operation) {
    return [operation](Center& center, const Input& input, Json& /*output*/) { return operation(center, input); };
}

Calls DeviceCalls() {
    return {
        {"getTicketInfo", Into<std::string>([](Center& center, const Input& in, std::string& ticket) {
             return center.getTicketInfo(in.serial, in.ch, ticket);
         })},
        {"getCloudTicketInfo", Into<std::string>([](Center& center, const Input& in, std::string& ticket) {
             return center.getCloudTicketInfo(in.serial, in.ch, 77, ticket);
         })},
        {"getRelayTicket", Into<std::string>([](Center& center, const Input& in, std::string& ticket) {
             return center.getRelayTicket(in.serial, in.ch, ticket);
         })},
        {"getDevDetailInfo",
         Awaiting<Detail>([](Center& center, const Input& in, Detail& detail, std::future<int32_t>& future) {
             return center.getDevDetailInfo(in.serial, in.ch, detail.channel, detail.device, future, in.retried);
         })},
        {"getDevDetailInfoSync", Into<Detail>([](Center& center, const Input& in, Detail& detail) {
             return center.getDevDetailInfoSync(in.serial, in.ch, false, detail.channel, detail.device, in.retried);
         })},
        {"getDeviceDetailInfo", Into<Detail>([](Center& center, const Input& in, Detail& detail) {
             return center.getDeviceDetailInfo(in.serial, in.ch, "GB", "P-7", detail.channel, detail.device,
                                               in.retried);
         })},
        {"isP2PV3download",
         Filling([](Center& center, const Input& in) { return center.isP2PV3download(in.serial, in.ch); })},
        {"getDevDetailInfoByRelation", Into<Detail>([](Center& center, const Input& in, Detail& detail) {
             return center.getDevDetailInfoByRelation(in.serial, in.ch, detail.channel, detail.device, in.retried);
         })},
        {"getRelayServerInfo", Into<RelayText>([](Center& center, const Input& in, RelayText& relay) {
             return center.getRelayServerInfo(in.serial, in.ch, relay.json);
         })},
        {"getDeviceInfoBySerial", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getDeviceInfoBySerial(in.serial, in.ch, json, in.retried);
         })},
        {"getAlarmList", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getAlarmList(in.serial, in.ch, 0, 20, kBegin, kEnd, -1, 2, json, in.retried);
         })},
        {"getTransparentMsgDetail",
         Into<TransparentMsgDetail>([](Center& center, const Input& in, TransparentMsgDetail& detail) {
             return center.getTransparentMsgDetail(in.serial, "M0000001", detail, in.retried);
         })},
        {"setVideoDefinition", Into<std::string>([](Center& center, const Input& in, std::string& answer) {
             return center.setVideoDefinition(in.serial, answer, in.ch, 0, in.retried);
         })},
        {"getAuthInfo",
         Filling([](Center& center, const Input& in) { return center.getAuthInfo(in.serial, in.ch, false); })},
    };
}

Calls ServerCalls() {
    return {
        {"getServerInfoAsync",
         Awaiting<ServerInfo>([](Center& center, const Input& in, ServerInfo& info, std::future<int32_t>& future) {
             return center.getServerInfo(in.token, info, future, in.retried);
         })},
        {"getServerInfoEx", Into<std::string>([](Center& center, const Input& in, std::string& relays) {
             return center.getServerInfoEx(in.token, relays, in.serial, in.ch, in.retried);
         })},
        {"getServerInfoSync", Into<ServerInfo>([](Center& center, const Input& in, ServerInfo& info) {
             return center.getServerInfo(in.token, info, in.retried);
         })},
        {"getVideoVtmAddr", Into<std::string>([](Center& center, const Input& in, std::string& relays) {
             return center.getVideoVtmAddr(in.serial, in.ch, relays, in.retried);
         })},
        {"getP2PUserInfoAsync",
         Awaiting<P2PUserInfo>([](Center& center, const Input& in, P2PUserInfo& info, std::future<int32_t>& future) {
             return center.getP2PUserInfo(info, in.token, future, in.retried);
         })},
        {"getP2PUserInfoByToken", Into<P2PUserInfo>([](Center& center, const Input& in, P2PUserInfo& info) {
             return center.getP2PUserInfo(in.token, info, in.retried);
         })},
        {"getP2PUserInfoByDevice", Into<P2PUserInfo>([](Center& center, const Input& in, P2PUserInfo& info) {
             return center.getP2PUserInfo(in.serial, in.ch, info, in.retried);
         })},
        {"getP2PDevInfoAsync",
         Awaiting<P2PDevInfo>([](Center& center, const Input& in, P2PDevInfo& info, std::future<int32_t>& future) {
             return center.getP2PDevInfo(info, in.token, in.serial, future);
         })},
        {"getP2PDevInfoCached", Into<P2PDevInfo>([](Center& center, const Input& in, P2PDevInfo& info) {
             std::vector<P2PServerAddr> servers;
             return center.getP2PDevInfoCached(in.serial, servers, info, false);
         })},
        {"getP2PDevInfoBySerial", Into<P2PDevInfo>([](Center& center, const Input& in, P2PDevInfo& info) {
             return center.getP2PDevInfo(info, in.token, in.serial, in.retried);
         })},
        {"getP2PDevInfoByChannel", Into<P2PDevInfo>([](Center& center, const Input& in, P2PDevInfo& info) {
             return center.getP2PDevInfo(in.serial, in.ch, in.token, info, in.retried);
         })},
    };
}

Calls AccountCalls() {
    return {
        {"getDevList", Into<DeviceList>([](Center& center, const Input& in, DeviceList& list) {
             return center.getDevList(0, 50, list, in.retried);
         })},
        {"getDeviceList", Into<DeviceList>([](Center& center, const Input& in, DeviceList& list) {
             return center.getDeviceList(0, 50, "GB", list, in.retried);
         })},
        {"getShareDevList", Into<DeviceList>([](Center& center, const Input& in, DeviceList& list) {
             return center.getShareDevList(0, 50, list, in.retried);
         })},
        {"getB2CSharedDevList", Into<std::string>([](Center& center, const Input& /*in*/, std::string& json) {
             return center.getB2CSharedDevList(0, 20, json);
         })},
        {"getUsername", Into<std::string>([](Center& center, const Input& /*in*/, std::string& name) {
             return center.getUsername(name);
         })},
        {"getConfigInfo", Into<ConfigInfo>([](Center& center, const Input& /*in*/, ConfigInfo& config) {
             return center.getConfigInfo(config);
         })},
        {"setAlarmRead", Filling([](Center& center, const Input& /*in*/) { return center.setAlarmRead("AL1003"); })},
        {"getUserId",
         Into<std::string>([](Center& center, const Input& /*in*/, std::string& id) { return center.getUserId(id); })},
        {"getPushSessionId", Into<std::string>([](Center& center, const Input& /*in*/, std::string& session) {
             return center.getPushSessionId(session);
         })},
        {"getBWCheckInfo", Into<BWCheckInfo>([](Center& center, const Input& /*in*/, BWCheckInfo& info) {
             return center.getBWCheckInfo(1, "1700000000", 5, info);
         })},
    };
}

Calls TokenCalls() {
    return {
        {"getStreamTokens", Into<std::string>([](Center& center, const Input& in, std::string& answer) {
             return center.getStreamTokens(in.token, 4, answer, in.retried);
         })},
        {"RefreshToken", Into<std::string>([](Center& center, const Input& /*in*/, std::string& token) {
             return center.RefreshToken(token);
         })},
        {"getOneStreamToken", Into<std::string>([](Center& center, const Input& in, std::string& token) {
             return center.getOneStreamToken(in.token, token);
         })},
        {"GetStreamTokenFast",
         Filling([](Center& center, const Input& /*in*/) { return center.GetStreamTokenFast(); })},
        {"RefreshSession", Into<std::string>([](Center& center, const Input& /*in*/, std::string& session) {
             return center.RefreshSession("", session);
         })},
    };
}

Calls RecordingCalls() {
    return {
        {"getRecordByAlarmID", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getRecordByAlarmID(in.serial, in.ch, "AL1001", json);
         })},
        {"getDeviceFileBySerial", Into<RecordFileList>([](Center& center, const Input& in, RecordFileList& list) {
             return center.getDeviceFileBySerial(in.serial, in.ch, kBegin, kEnd, 2, 1, list, false, in.retried);
         })},
        {"getDeviceFileBySerialEx", Into<RecordFileList>([](Center& center, const Input& in, RecordFileList& list) {
             return center.getDeviceFileBySerialEx(in.serial, in.ch, kBegin, kEnd, 1, true, list);
         })},
        {"getCloudFileBySerial", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getCloudFileBySerial(in.serial, in.ch, {kBegin, kEnd}, 0, json, in.retried);
         })},
        {"getLocalFileBySerial", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getLocalFileBySerial(in.serial, in.ch, kBegin, kEnd, "GB", "P-7", json, in.retried);
         })},
        {"getCloudFileBySerialEX", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getCloudFileBySerialEX(in.serial, in.ch, 0, {"2024-01-02", "", 10}, json, in.retried);
         })},
        {"getCloudFileInfoBySerialEX", Into<std::string>([](Center& center, const Input& in, std::string& json) {
             return center.getCloudFileInfoBySerialEX(in.serial, in.ch, Json{{"deviceSerial", in.serial}}.dump(), json);
         })},
        {"GetCloudRecordFile", Into<RecordFileList>([](Center& center, const Input& in, RecordFileList& list) {
             return center.GetCloudRecordFile(in.serial, in.ch, 77, kBegin, kEnd, list);
         })},
        {"GetClouduploadUrl", Into<UploadText>([](Center& center, const Input& in, UploadText& upload) {
             return center.GetClouduploadUrl(in.serial, in.ch, "gate.jpg", 1, 7, 3600, "alarm", upload.json);
         })},
        {"UploadCloudPicFile", Filling([](Center& center, const Input& in) {
             const LocalFile picture(u8"gate.jpg");
             return center.UploadCloudPicFile(in.address + kUploadPath, picture.Path());
         })},
    };
}

Calls AllCalls() {
    Calls all;
    for (const auto subject : {DeviceCalls, ServerCalls, AccountCalls, TokenCalls, RecordingCalls}) {
        all.merge(subject());
    }
    return all;
}

}  // namespace

OperationCall CallOf(const std::string& operation) {
    const Calls all = AllCalls();
    const auto found = all.find(operation);
    return found == all.end() ? OperationCall() : found->second;
}

}  // namespace vantix::test
