#include "unit/cserver/ConsumerPage.h"

namespace vantix::test {
namespace {

constexpr char kExtension[] = R"({"support_ptz":"51","support_talk":"52","ptz_left_right":"53","ptz_top_bottom":"54",
    "ptz_preset":"55","support_ecdh_v2":"ecdh-56","support_replay_download":"57","support_device_video_cover":"58",
    "support_seek_playback":"59","support_seek_v2":"60","support_quickplay_way":"61",
    "support_device_playback_small_speed":"62","257":"63","836":"64","149":"65","585":"66"})";

constexpr char kPage[] = R"({
    "meta": {"code": 200, "message": "ok"},
    "cameraInfos": [
        {"channelNo": 1, "cameraId": "camera-2", "deviceSerial": "S", "videoLevel": 3, "permission": 4, "isShared": 5,
         "streamBizUrl": "biz-6", "cameraName": "not read", "status": 999,
         "vtmInfo": {"forceStreamType": 7, "externalIp": "vtm-8", "port": 9, "internalIp": "vtm-10"},
         "videoQualityInfos": [{"videoLevel": 11, "streamType": 12, "videoQualityName": "not read"},
                               {"videoLevel": 13, "streamType": 14}]},
        {"channelNo": 1, "cameraId": "other", "deviceSerial": "X"},
        {"channelNo": 15, "cameraId": "camera-16", "deviceSerial": "S", "isShared": 17,
         "vtmInfo": {"externalIp": "vtm-18", "port": 19}}],
    "deviceInfos": [
        {"deviceSerial": "X", "supportExt": "{\"support_ptz\":\"999\"}", "channelNumber": 999, "isOwner": 999},
        {"deviceSerial": "S", "channelNumber": 20, "isOwner": 21, "status": 999, "deviceName": "not read"}],
    "connectionInfos": {
        "X": {"netIp": "other", "casPort": 999},
        "S": {"netIp": "net-22", "netCmdPort": 23, "netHttpPort": 24, "localIp": "local-25", "localCmdPort": 26,
              "localHttpPort": 27, "localStreamPort": 28, "netType": 29, "upnp": 30, "casIp": "cas-31",
              "casPort": 32}},
    "wifiInfos": {"X": {"mask": "999"}, "S": {"mask": "33"}},
    "cloudInfos": {"X": {"status": 999}, "S": {"status": 34}},
    "statusInfos": {"X": {"isEncrypt": 999, "encryptPwd": "other"}, "S": {"isEncrypt": 35, "encryptPwd": "pwd-36"}},
    "ttsInfos": {"X": {"externalIp": "other", "port": 999},
                 "S": {"externalIp": "tts-37", "port": 38, "publicKey": {"key": "key-39", "version": 40}}},
    "kmsInfos": {"X": {"secretKey": "other", "version": 999}, "S": {"secretKey": "not read"}}})";

}  // namespace

nlohmann::json GoldenPage() { return PageWithExtension(kExtension); }

nlohmann::json PageWithExtension(const std::string& text) {
    nlohmann::json page = nlohmann::json::parse(kPage);
    page["deviceInfos"][1]["supportExt"] = text;
    return page;
}

const std::vector<Member<DevChannelInfo>>& PageCameraRows() {
    static const std::vector<Member<DevChannelInfo>> rows = {
        {"/cameraInfos/0/channelNo", &DevChannelInfo::cameraNo},
        {"/cameraInfos/0/cameraId", &DevChannelInfo::cameraId},
        {"/cameraInfos/0/videoLevel", &DevChannelInfo::videoLevel},
        {"/cameraInfos/0/permission", &DevChannelInfo::permission},
        {"/cameraInfos/0/streamBizUrl", &DevChannelInfo::streamBizUrl},
        {"/cameraInfos/0/vtmInfo/forceStreamType", &DevChannelInfo::forceStreamType},
    };
    return rows;
}

const std::vector<Member<BelongDevInfo>>& PageDeviceRows() {
    using Device = BelongDevInfo;
    static const std::vector<Member<Device>> rows = {
        {"/cameraInfos/0/vtmInfo/externalIp", &Device::vtmIp},
        {"/cameraInfos/0/vtmInfo/port", &Device::vtmPort},
        {"/deviceInfos/1/channelNumber", &Device::supportChannelNums},
        {"/deviceInfos/1/isOwner", &Device::isOwner},
        {"/connectionInfos/S/netIp", &Device::deviceIP},
        {"/connectionInfos/S/netCmdPort", &Device::cmdPort},
        {"/connectionInfos/S/netHttpPort", &Device::httpPort},
        {"/connectionInfos/S/localIp", &Device::localIp},
        {"/connectionInfos/S/localCmdPort", &Device::localCmdPort},
        {"/connectionInfos/S/localHttpPort", &Device::localHttpPort},
        {"/connectionInfos/S/localStreamPort", &Device::localStreamPort},
        {"/connectionInfos/S/netType", &Device::netType},
        {"/connectionInfos/S/upnp", &Device::upnp},
        {"/connectionInfos/S/casIp", &Device::casIp},
        {"/connectionInfos/S/casPort", &Device::casPort},
        {"/cloudInfos/S/status", &Device::cloudServiceStatus},
        {"/statusInfos/S/isEncrypt", &Device::isEncrypt},
        {"/statusInfos/S/encryptPwd", &Device::encryptPwd},
        {"/ttsInfos/S/externalIp", &Device::ttsIp},
        {"/ttsInfos/S/port", &Device::ttsPort},
        {"/ttsInfos/S/publicKey/key", &Device::publicKey},
        {"/ttsInfos/S/publicKey/version", &Device::version},
    };
    return rows;
}

}  // namespace vantix::test
