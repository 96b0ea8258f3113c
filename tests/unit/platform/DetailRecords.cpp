#include "unit/platform/DetailRecords.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "support/TestData.h"

namespace vantix::test {
namespace {

template <class Record>
bool SameMembers(const std::vector<Member<Record>>& members, const Record& left, const Record& right) {
    return std::all_of(members.begin(), members.end(),
                       [&](const Member<Record>& member) { return member.IsEqualIn(left, right); });
}

bool SameServer(const VtmAddr& left, const VtmAddr& right) {
    return left.strVtmAddr == right.strVtmAddr && left.iVtmPort == right.iVtmPort;
}

bool SameQuality(const VideoQualityInfo& left, const VideoQualityInfo& right) {
    return left.videoQualityName == right.videoQualityName && left.videoLevel == right.videoLevel &&
           left.streamType == right.streamType;
}

}  // namespace

const std::vector<Member<DevChannelInfo>>& CameraMembers() {
    static const std::vector<Member<DevChannelInfo>> members = {
        {"cameraId", &DevChannelInfo::cameraId},
        {"cameraNo", &DevChannelInfo::cameraNo},
        {"deviceSerial", &DevChannelInfo::deviceSerial},
        {"videoLevel", &DevChannelInfo::videoLevel},
        {"type", &DevChannelInfo::type},
        {"capability", &DevChannelInfo::capability},
        {"status", &DevChannelInfo::status},
        {"permission", &DevChannelInfo::permission},
        {"isShared", &DevChannelInfo::isShared},
        {"forceStreamType", &DevChannelInfo::forceStreamType},
        {"streamBiz", &DevChannelInfo::streamBiz},
        {"streamBizUrl", &DevChannelInfo::streamBizUrl},
        {"isTrust", &DevChannelInfo::isTrust},
    };
    return members;
}

const std::vector<Member<BelongDevInfo>>& DeviceMembers() {
    using Device = BelongDevInfo;
    static const std::vector<Member<Device>> members = {
        {"deviceSerial", &Device::deviceSerial},
        {"deviceIP", &Device::deviceIP},
        {"devicePort", &Device::devicePort},
        {"cmdPort", &Device::cmdPort},
        {"httpPort", &Device::httpPort},
        {"streamPort", &Device::streamPort},
        {"localIp", &Device::localIp},
        {"localDevicePort", &Device::localDevicePort},
        {"localCmdPort", &Device::localCmdPort},
        {"localHttpPort", &Device::localHttpPort},
        {"localStreamPort", &Device::localStreamPort},
        {"netType", &Device::netType},
        {"ppvsAddr", &Device::ppvsAddr},
        {"ppvsPort", &Device::ppvsPort},
        {"casIp", &Device::casIp},
        {"casPort", &Device::casPort},
        {"maskIp", &Device::maskIp},
        {"upnp", &Device::upnp},
        {"cloudServiceStatus", &Device::cloudServiceStatus},
        {"releaseVersion", &Device::releaseVersion},
        {"belongSerial", &Device::belongSerial},
        {"belongNo", &Device::belongNo},
        {"belongAdded", &Device::belongAdded},
        {"isEncrypt", &Device::isEncrypt},
        {"encryptPwd", &Device::encryptPwd},
        {"belongState", &Device::belongState},
        {"vtmIp", &Device::vtmIp},
        {"vtmPort", &Device::vtmPort},
        {"ttsIp", &Device::ttsIp},
        {"ttsPort", &Device::ttsPort},
        {"deviceStatus", &Device::deviceStatus},
        {"supportExtShort", &Device::supportExtShort},
        {"supportChannelNums", &Device::supportChannelNums},
        {"gbJtTtsIP", &Device::gbJtTtsIP},
        {"gbJtTtsPort", &Device::gbJtTtsPort},
        {"publicKey", &Device::publicKey},
        {"version", &Device::version},
        {"isOwner", &Device::isOwner},
    };
    return members;
}

const std::vector<Member<DevDetailInfo>>& CapabilityMembers() {
    static const std::vector<Member<DevDetailInfo>> members = {
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
    return members;
}

std::string GoldenDetailText() {
    std::ifstream file(TestData("platform/device-detail.json"), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

nlohmann::json GoldenDetail() { return nlohmann::json::parse(GoldenDetailText()); }

bool Same(const DevChannelInfo& left, const DevChannelInfo& right) {
    return SameMembers(CameraMembers(), left, right) && left.iIsTrust == right.iIsTrust &&
           std::equal(left.videoQualityInfos.begin(), left.videoQualityInfos.end(), right.videoQualityInfos.begin(),
                      right.videoQualityInfos.end(), SameQuality);
}

bool Same(const BelongDevInfo& left, const BelongDevInfo& right) {
    return SameMembers(DeviceMembers(), left, right) &&
           std::equal(left.vtmBackups.begin(), left.vtmBackups.end(), right.vtmBackups.begin(), right.vtmBackups.end(),
                      SameServer);
}

bool Same(const DevDetailInfo& left, const DevDetailInfo& right) {
    const BelongDevInfo& leftDevice = left;
    const BelongDevInfo& rightDevice = right;
    return Same(leftDevice, rightDevice) && SameMembers(CapabilityMembers(), left, right) &&
           left.iShareVerif == right.iShareVerif && left.support_ecdh_v2 == right.support_ecdh_v2;
}

}  // namespace vantix::test
