#include "unit/platform/DetailRecords.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "support/TestData.h"

namespace vantix::test {
namespace {

bool SameServer(const VtmAddr& left, const VtmAddr& right) {
    return left.strVtmAddr == right.strVtmAddr && left.iVtmPort == right.iVtmPort;
}

bool SameQuality(const VideoQualityInfo& left, const VideoQualityInfo& right) {
    return left.videoQualityName == right.videoQualityName && left.videoLevel == right.videoLevel &&
           left.streamType == right.streamType;
}

}  // namespace

const RecordFields<DevChannelInfo>& CameraFields() {
    static const RecordFields<DevChannelInfo> fields = {
        {"/result/data/camera/cameraId", &DevChannelInfo::cameraId, "camera-id-1"},
        {"/result/data/camera/cameraNo", &DevChannelInfo::cameraNo, 2},
        {"/result/data/camera/deviceSerial", &DevChannelInfo::deviceSerial, "C-serial-3"},
        {"/result/data/camera/videoLevel", &DevChannelInfo::videoLevel, 4},
        {"/result/data/camera/type", &DevChannelInfo::type, 5},
        {"/result/data/camera/capability", &DevChannelInfo::capability, "capability-6"},
        {"/result/data/camera/status", &DevChannelInfo::status, 7},
        {"/result/data/camera/permission", &DevChannelInfo::permission, 8},
        {"/result/data/camera/isShared", &DevChannelInfo::isShared, "shared-9"},
        {"/result/data/camera/forceStreamType", &DevChannelInfo::forceStreamType, 10},
        {"/result/data/camera/streamBiz", &DevChannelInfo::streamBiz, 11},
        {"/result/data/camera/streamBizUrl", &DevChannelInfo::streamBizUrl, "https://stream-12.example/biz"},
        {"/result/data/camera/isTrust", &DevChannelInfo::isTrust, "13"},
    };
    return fields;
}

const RecordFields<BelongDevInfo>& DeviceFields() {
    using Device = BelongDevInfo;
    static const RecordFields<Device> fields = {
        {"/result/data/device/deviceSerial", &Device::deviceSerial, "D-serial-101"},
        {"/result/data/device/deviceIP", &Device::deviceIP, "10.0.0.102"},
        {"/result/data/device/devicePort", &Device::devicePort, 103},
        {"/result/data/device/cmdPort", &Device::cmdPort, 104},
        {"/result/data/device/httpPort", &Device::httpPort, 105},
        {"/result/data/device/streamPort", &Device::streamPort, 106},
        {"/result/data/device/localIp", &Device::localIp, "192.168.0.107"},
        {"/result/data/device/localDevicePort", &Device::localDevicePort, 108},
        {"/result/data/device/localCmdPort", &Device::localCmdPort, 109},
        {"/result/data/device/localHttpPort", &Device::localHttpPort, 110},
        {"/result/data/device/localStreamPort", &Device::localStreamPort, 111},
        {"/result/data/device/netType", &Device::netType, 112},
        {"/result/data/device/ppvsAddr", &Device::ppvsAddr, "ppvs-113.example"},
        {"/result/data/device/ppvsPort", &Device::ppvsPort, 114},
        {"/result/data/device/casIp", &Device::casIp, "10.0.0.115"},
        {"/result/data/device/casPort", &Device::casPort, 116},
        {"/result/data/device/maskIp", &Device::maskIp, 117},
        {"/result/data/device/upnp", &Device::upnp, 118},
        {"/result/data/device/cloudServiceStatus", &Device::cloudServiceStatus, 119},
        {"/result/data/device/releaseVersion", &Device::releaseVersion, "VERSION_120"},
        {"/result/data/device/belongSerial", &Device::belongSerial, "P-serial-121"},
        {"/result/data/device/belongNo", &Device::belongNo, 122},
        {"/result/data/device/belongAdded", &Device::belongAdded, 123},
        {"/result/data/device/isEncrypt", &Device::isEncrypt, 124},
        {"/result/data/device/encryptPwd", &Device::encryptPwd, "password-125"},
        {"/result/data/device/belongState", &Device::belongState, 126},
        {"/result/data/device/vtmIp", &Device::vtmIp, "10.0.0.127"},
        {"/result/data/device/vtmPort", &Device::vtmPort, 128},
        {"/result/data/device/ttsIp", &Device::ttsIp, "10.0.0.129"},
        {"/result/data/device/ttsPort", &Device::ttsPort, 130},
        {"/result/data/device/deviceStatus", &Device::deviceStatus, 131},
        {"/result/data/device/supportExtShort", &Device::supportExtShort, "132|133|134"},
        {"/result/data/device/supportChannelNums", &Device::supportChannelNums, 135},
        {"/result/data/device/gbJtTtsIP", &Device::gbJtTtsIP, "10.0.0.136"},
        {"/result/data/device/gbJtTtsPort", &Device::gbJtTtsPort, 137},
        {"/result/data/device/publicKey", &Device::publicKey, "key-138"},
        {"/result/data/device/version", &Device::version, 139},
        {"/result/data/device/isOwner", &Device::isOwner, 140},
    };
    return fields;
}

const RecordFields<BelongDevInfo>& ParentFields() {
    using Device = BelongDevInfo;
    static const RecordFields<Device> fields = {
        {"/result/data/device/belongDevice/deviceSerial", &Device::deviceSerial, "P-serial-201"},
        {"/result/data/device/belongDevice/deviceIP", &Device::deviceIP, "10.0.1.202"},
        {"/result/data/device/belongDevice/devicePort", &Device::devicePort, 203},
        {"/result/data/device/belongDevice/cmdPort", &Device::cmdPort, 204},
        {"/result/data/device/belongDevice/httpPort", &Device::httpPort, 205},
        {"/result/data/device/belongDevice/streamPort", &Device::streamPort, 206},
        {"/result/data/device/belongDevice/localIp", &Device::localIp, "192.168.1.207"},
        {"/result/data/device/belongDevice/localDevicePort", &Device::localDevicePort, 208},
        {"/result/data/device/belongDevice/localCmdPort", &Device::localCmdPort, 209},
        {"/result/data/device/belongDevice/localHttpPort", &Device::localHttpPort, 210},
        {"/result/data/device/belongDevice/localStreamPort", &Device::localStreamPort, 211},
        {"/result/data/device/belongDevice/netType", &Device::netType, 212},
        {"/result/data/device/belongDevice/ppvsAddr", &Device::ppvsAddr, "ppvs-213.example"},
        {"/result/data/device/belongDevice/ppvsPort", &Device::ppvsPort, 214},
        {"/result/data/device/belongDevice/casIp", &Device::casIp, "10.0.1.215"},
        {"/result/data/device/belongDevice/casPort", &Device::casPort, 216},
        {"/result/data/device/belongDevice/maskIp", &Device::maskIp, 217},
        {"/result/data/device/belongDevice/upnp", &Device::upnp, 218},
        {"/result/data/device/belongDevice/cloudServiceStatus", &Device::cloudServiceStatus, 219},
        {"/result/data/device/belongDevice/releaseVersion", &Device::releaseVersion, "VERSION_220"},
        {"/result/data/device/belongDevice/belongSerial", &Device::belongSerial, "G-serial-221"},
        {"/result/data/device/belongDevice/belongNo", &Device::belongNo, 222},
        {"/result/data/device/belongDevice/belongAdded", &Device::belongAdded, 223},
        {"/result/data/device/belongDevice/isEncrypt", &Device::isEncrypt, 224},
        {"/result/data/device/belongDevice/encryptPwd", &Device::encryptPwd, "password-225"},
        {"/result/data/device/belongDevice/belongState", &Device::belongState, 226},
        {"/result/data/device/belongDevice/vtmIp", &Device::vtmIp, "10.0.1.227"},
        {"/result/data/device/belongDevice/vtmPort", &Device::vtmPort, 228},
        {"/result/data/device/belongDevice/ttsIp", &Device::ttsIp, "10.0.1.229"},
        {"/result/data/device/belongDevice/ttsPort", &Device::ttsPort, 230},
        {"/result/data/device/belongDevice/deviceStatus", &Device::deviceStatus, 231},
        {"/result/data/device/belongDevice/supportExtShort", &Device::supportExtShort, "232|233|234"},
        {"/result/data/device/belongDevice/supportChannelNums", &Device::supportChannelNums, 235},
        {"/result/data/device/belongDevice/gbJtTtsIP", &Device::gbJtTtsIP, "10.0.1.236"},
        {"/result/data/device/belongDevice/gbJtTtsPort", &Device::gbJtTtsPort, 237},
        {"/result/data/device/belongDevice/publicKey", &Device::publicKey, "key-238"},
        {"/result/data/device/belongDevice/version", &Device::version, 239},
        {"/result/data/device/belongDevice/isOwner", &Device::isOwner, 240},
    };
    return fields;
}

const RecordFields<DevDetailInfo>& CapabilityFields() {
    static const RecordFields<DevDetailInfo> fields = {
        {"/result/data/device/supportExt/support_ptz", &DevDetailInfo::support_ptz, 146},
        {"/result/data/device/supportExt/support_talk", &DevDetailInfo::support_talk, 147},
        {"/result/data/device/supportExt/ptz_left_right", &DevDetailInfo::ptz_left_right, 148},
        {"/result/data/device/supportExt/ptz_top_bottom", &DevDetailInfo::ptz_top_bottom, 149},
        {"/result/data/device/supportExt/ptz_preset", &DevDetailInfo::ptz_preset, 150},
        {"/result/data/device/supportExt/support_replay_download", &DevDetailInfo::support_replay_download, 152},
        {"/result/data/device/supportExt/support_device_video_cover", &DevDetailInfo::support_device_video_cover, 153},
        {"/result/data/device/supportExt/support_seek_playback", &DevDetailInfo::support_seek_playback, 154},
        {"/result/data/device/supportExt/support_seek_v2", &DevDetailInfo::support_seek_v2, 155},
        {"/result/data/device/supportExt/support_quickplay_way", &DevDetailInfo::support_quickplay_way, 156},
        {"/result/data/device/supportExt/support_device_playback_small_speed",
         &DevDetailInfo::support_device_playback_small_speed, 157},
    };
    return fields;
}

std::string WholeDetailText() {
    std::ifstream file(TestData("platform/device-detail.json"), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

Json WholeDetail() { return Json::parse(WholeDetailText()); }

bool Same(const DevChannelInfo& left, const DevChannelInfo& right) {
    return ValuesOf(CameraFields(), left) == ValuesOf(CameraFields(), right) && left.iIsTrust == right.iIsTrust &&
           std::equal(left.videoQualityInfos.begin(), left.videoQualityInfos.end(), right.videoQualityInfos.begin(),
                      right.videoQualityInfos.end(), SameQuality);
}

bool Same(const BelongDevInfo& left, const BelongDevInfo& right) {
    return ValuesOf(DeviceFields(), left) == ValuesOf(DeviceFields(), right) &&
           std::equal(left.vtmBackups.begin(), left.vtmBackups.end(), right.vtmBackups.begin(), right.vtmBackups.end(),
                      SameServer);
}

bool Same(const DevDetailInfo& left, const DevDetailInfo& right) {
    const BelongDevInfo& leftDevice = left;
    const BelongDevInfo& rightDevice = right;
    return Same(leftDevice, rightDevice) && ValuesOf(CapabilityFields(), left) == ValuesOf(CapabilityFields(), right) &&
           left.iShareVerif == right.iShareVerif && left.support_ecdh_v2 == right.support_ecdh_v2;
}

}  // namespace vantix::test
