#include "support/DetailJson.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace vantix::test {
namespace {

template <class Record>
struct Text {
    const char* key;
    std::string Record::*field;
};
template <class Record>
struct Number {
    const char* key;
    int32_t Record::*field;
};

constexpr Text<DevChannelInfo> kChannelTexts[] = {
    {"cameraId", &DevChannelInfo::cameraId},         {"deviceSerial", &DevChannelInfo::deviceSerial},
    {"capability", &DevChannelInfo::capability},     {"isShared", &DevChannelInfo::isShared},
    {"streamBizUrl", &DevChannelInfo::streamBizUrl}, {"isTrust", &DevChannelInfo::isTrust},
};
constexpr Number<DevChannelInfo> kChannelNumbers[] = {
    {"cameraNo", &DevChannelInfo::cameraNo},
    {"videoLevel", &DevChannelInfo::videoLevel},
    {"type", &DevChannelInfo::type},
    {"status", &DevChannelInfo::status},
    {"permission", &DevChannelInfo::permission},
    {"forceStreamType", &DevChannelInfo::forceStreamType},
    {"streamBiz", &DevChannelInfo::streamBiz},
};
constexpr Text<BelongDevInfo> kDeviceTexts[] = {
    {"deviceSerial", &BelongDevInfo::deviceSerial},
    {"deviceIP", &BelongDevInfo::deviceIP},
    {"localIp", &BelongDevInfo::localIp},
    {"ppvsAddr", &BelongDevInfo::ppvsAddr},
    {"casIp", &BelongDevInfo::casIp},
    {"releaseVersion", &BelongDevInfo::releaseVersion},
    {"belongSerial", &BelongDevInfo::belongSerial},
    {"encryptPwd", &BelongDevInfo::encryptPwd},
    {"vtmIp", &BelongDevInfo::vtmIp},
    {"ttsIp", &BelongDevInfo::ttsIp},
    {"gbJtTtsIP", &BelongDevInfo::gbJtTtsIP},
    {"supportExtShort", &BelongDevInfo::supportExtShort},
    {"publicKey", &BelongDevInfo::publicKey},
};
constexpr Number<BelongDevInfo> kDeviceNumbers[] = {
    {"devicePort", &BelongDevInfo::devicePort},
    {"cmdPort", &BelongDevInfo::cmdPort},
    {"httpPort", &BelongDevInfo::httpPort},
    {"streamPort", &BelongDevInfo::streamPort},
    {"localDevicePort", &BelongDevInfo::localDevicePort},
    {"localCmdPort", &BelongDevInfo::localCmdPort},
    {"localHttpPort", &BelongDevInfo::localHttpPort},
    {"localStreamPort", &BelongDevInfo::localStreamPort},
    {"netType", &BelongDevInfo::netType},
    {"ppvsPort", &BelongDevInfo::ppvsPort},
    {"casPort", &BelongDevInfo::casPort},
    {"maskIp", &BelongDevInfo::maskIp},
    {"upnp", &BelongDevInfo::upnp},
    {"cloudServiceStatus", &BelongDevInfo::cloudServiceStatus},
    {"belongNo", &BelongDevInfo::belongNo},
    {"belongAdded", &BelongDevInfo::belongAdded},
    {"isEncrypt", &BelongDevInfo::isEncrypt},
    {"belongState", &BelongDevInfo::belongState},
    {"vtmPort", &BelongDevInfo::vtmPort},
    {"ttsPort", &BelongDevInfo::ttsPort},
    {"deviceStatus", &BelongDevInfo::deviceStatus},
    {"supportChannelNums", &BelongDevInfo::supportChannelNums},
    {"gbJtTtsPort", &BelongDevInfo::gbJtTtsPort},
    {"version", &BelongDevInfo::version},
    {"isOwner", &BelongDevInfo::isOwner},
};
constexpr Number<DevDetailInfo> kCapabilities[] = {
    {"support_ptz", &DevDetailInfo::support_ptz},
    {"support_talk", &DevDetailInfo::support_talk},
    {"ptz_left_right", &DevDetailInfo::ptz_left_right},
    {"ptz_top_bottom", &DevDetailInfo::ptz_top_bottom},
    {"ptz_preset", &DevDetailInfo::ptz_preset},
    {"support_replay_download", &DevDetailInfo::support_replay_download},
    {"support_device_video_cover", &DevDetailInfo::support_device_video_cover},
    {"support_seek_playback", &DevDetailInfo::support_seek_playback},
    {"support_seek_v2", &DevDetailInfo::support_seek_v2},
    {"support_quickplay_way", &DevDetailInfo::support_quickplay_way},
    {"support_device_playback_small_speed", &DevDetailInfo::support_device_playback_small_speed},
};

template <class Record, size_t Count>
void AddTexts(const Record& record, const Text<Record> (&rows)[Count], Json& json) {
    for (const Text<Record>& row : rows) {
        json[row.key] = record.*row.field;
    }
}

template <class Record, size_t Count>
void AddNumbers(const Record& record, const Number<Record> (&rows)[Count], Json& json) {
    for (const Number<Record>& row : rows) {
        json[row.key] = record.*row.field;
    }
}

/// Expects every member of the record's JSON to be what the cloud stores under the same name.
void ExpectMembers(const Json& stored, const Json& record) {
    for (const auto& [key, value] : record.items()) {
        EXPECT_EQ(stored.value(key, Json()), value) << key;
    }
}

void ExpectCapabilities(const Json& stored, const DevDetailInfo& device) {
    for (const Number<DevDetailInfo>& row : kCapabilities) {
        EXPECT_EQ(device.*row.field, std::atoi(stored.at(row.key).get<std::string>().c_str())) << row.key;
    }
    EXPECT_EQ(device.support_ecdh_v2, stored.at("support_ecdh_v2"));
}

}  // namespace

Json ToJson(const DevChannelInfo& channel) {
    Json json;
    AddTexts(channel, kChannelTexts, json);
    AddNumbers(channel, kChannelNumbers, json);
    json["videoQualityInfos"] = Json::array();
    for (const VideoQualityInfo& quality : channel.videoQualityInfos) {
        json["videoQualityInfos"].push_back({{"videoQualityName", quality.videoQualityName},
                                             {"videoLevel", quality.videoLevel},
                                             {"streamType", quality.streamType}});
    }
    return json;
}

Json ToJson(const BelongDevInfo& device) {
    Json json;
    AddTexts(device, kDeviceTexts, json);
    AddNumbers(device, kDeviceNumbers, json);
    json["vtmBackups"] = Json::array();
    for (const VtmAddr& backup : device.vtmBackups) {
        json["vtmBackups"].push_back({{"ip", backup.strVtmAddr}, {"port", backup.iVtmPort}});
    }
    return json;
}

Json ToJson(const DevDetailInfo& device) {
    Json json = ToJson(static_cast<const BelongDevInfo&>(device));
    AddNumbers(device, kCapabilities, json);
    json["support_ecdh_v2"] = device.support_ecdh_v2;
    json["iShareVerif"] = device.iShareVerif;
    json["iCloseBlong"] = device.iCloseBlong;
    json["iRequestCost"] = device.iRequestCost;
    json["tCacheTime"] = device.tCacheTime;
    json["isUpdate"] = device.isUpdate;
    json["isFromCache"] = device.isFromCache;
    return json;
}

Json ToJson(const Detail& detail) {
    Json json = {{"channel", ToJson(detail.channel)}, {"device", ToJson(detail.device)}};
    json["iIsTrust"] = detail.channel.iIsTrust;
    return json;
}

void ExpectStored(const SimulatorClient& cloud, const std::string& serial, int cameraNo, const Detail& detail) {
    SCOPED_TRACE(serial);
    const Json camera = cloud.Camera(serial, cameraNo);
    const Json device = cloud.Device(serial).at("device");
    ExpectMembers(camera, ToJson(detail.channel));
    EXPECT_EQ(detail.channel.iIsTrust, std::atoi(camera.at("isTrust").get<std::string>().c_str()));
    ExpectMembers(device, ToJson(static_cast<const BelongDevInfo&>(detail.device)));
    ExpectCapabilities(device.at("supportExt"), detail.device);
    const std::string verify = device.at("qxDeviceSupportExt").at("ShareVerify");
    EXPECT_EQ(detail.device.iShareVerif, std::atoi(verify.c_str()));
}

}  // namespace vantix::test
