#include "unit/cserver/DeviceResponse.h"

namespace vantix::test {
namespace {

constexpr char kExtension[] = R"({"support_ptz":"51","support_talk":"52","ptz_left_right":"53","ptz_top_bottom":"54",
    "ptz_preset":"55","support_ecdh_v2":"ecdh-56","support_replay_download":"57","support_device_video_cover":"58",
    "support_seek_playback":"59","support_seek_v2":"60","support_quickplay_way":"61",
    "support_device_playback_small_speed":"62","257":"63","836":"64","149":"65","585":"66"})";

constexpr char kDevice[] = R"({
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

Json WholeDevice() { return DeviceWithExtension(kExtension); }

Json DeviceWithExtension(const std::string& text) {
    Json response = Json::parse(kDevice);
    response["deviceInfos"][1]["supportExt"] = text;
    return response;
}

const RecordFields<DevChannelInfo>& CameraRows() {
    static const RecordFields<DevChannelInfo> rows = {
        {"/cameraInfos/0/channelNo", &DevChannelInfo::cameraNo, 1},
        {"/cameraInfos/0/cameraId", &DevChannelInfo::cameraId, "camera-2"},
        {"/cameraInfos/0/videoLevel", &DevChannelInfo::videoLevel, 3},
        {"/cameraInfos/0/permission", &DevChannelInfo::permission, 4},
        {"/cameraInfos/0/streamBizUrl", &DevChannelInfo::streamBizUrl, "biz-6"},
        {"/cameraInfos/0/vtmInfo/forceStreamType", &DevChannelInfo::forceStreamType, 7},
    };
    return rows;
}

const RecordFields<BelongDevInfo>& DeviceRows() {
    using Device = BelongDevInfo;
    static const RecordFields<Device> rows = {
        {"/cameraInfos/0/vtmInfo/externalIp", &Device::vtmIp, "vtm-8"},
        {"/cameraInfos/0/vtmInfo/port", &Device::vtmPort, 9},
        {"/deviceInfos/1/channelNumber", &Device::supportChannelNums, 20},
        {"/deviceInfos/1/isOwner", &Device::isOwner, 21},
        {"/connectionInfos/S/netIp", &Device::deviceIP, "net-22"},
        {"/connectionInfos/S/netCmdPort", &Device::cmdPort, 23},
        {"/connectionInfos/S/netHttpPort", &Device::httpPort, 24},
        {"/connectionInfos/S/localIp", &Device::localIp, "local-25"},
        {"/connectionInfos/S/localCmdPort", &Device::localCmdPort, 26},
        {"/connectionInfos/S/localHttpPort", &Device::localHttpPort, 27},
        {"/connectionInfos/S/localStreamPort", &Device::localStreamPort, 28},
        {"/connectionInfos/S/netType", &Device::netType, 29},
        {"/connectionInfos/S/upnp", &Device::upnp, 30},
        {"/connectionInfos/S/casIp", &Device::casIp, "cas-31"},
        {"/connectionInfos/S/casPort", &Device::casPort, 32},
        {"/cloudInfos/S/status", &Device::cloudServiceStatus, 34},
        {"/statusInfos/S/isEncrypt", &Device::isEncrypt, 35},
        {"/statusInfos/S/encryptPwd", &Device::encryptPwd, "pwd-36"},
        {"/ttsInfos/S/externalIp", &Device::ttsIp, "tts-37"},
        {"/ttsInfos/S/port", &Device::ttsPort, 38},
        {"/ttsInfos/S/publicKey/key", &Device::publicKey, "key-39"},
        {"/ttsInfos/S/publicKey/version", &Device::version, 40},
    };
    return rows;
}

}  // namespace vantix::test
