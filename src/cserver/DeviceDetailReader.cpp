#include "cserver/DeviceDetailReader.h"

#include "base/NumberText.h"
#include "cserver/DeviceEntry.h"
#include "json/Fields.h"
#include "requests/DeviceCapabilities.h"
#include "requests/Envelope.h"
#include "requests/NestedObject.h"

namespace vantix::consumer {
namespace {

using json::JsonCppView;

constexpr json::Field<DevChannelInfo> kCameraFields[] = {
    {"channelNo", &DevChannelInfo::cameraNo},        {"cameraId", &DevChannelInfo::cameraId},
    {"deviceSerial", &DevChannelInfo::deviceSerial}, {"videoLevel", &DevChannelInfo::videoLevel},
    {"permission", &DevChannelInfo::permission},     {"streamBizUrl", &DevChannelInfo::streamBizUrl},
};
constexpr json::Field<BelongDevInfo> kVtmFields[] = {
    {"externalIp", &BelongDevInfo::vtmIp},
    {"port", &BelongDevInfo::vtmPort},
};
constexpr json::Field<VideoQualityInfo> kQualityFields[] = {
    {"videoLevel", &VideoQualityInfo::videoLevel},
    {"streamType", &VideoQualityInfo::streamType},
};
constexpr json::Field<BelongDevInfo> kDeviceFields[] = {
    {"deviceSerial", &BelongDevInfo::deviceSerial},
    {"channelNumber", &BelongDevInfo::supportChannelNums},
    {"isOwner", &BelongDevInfo::isOwner},
};
constexpr json::Field<BelongDevInfo> kConnectionFields[] = {
    {"netIp", &BelongDevInfo::deviceIP},
    {"netCmdPort", &BelongDevInfo::cmdPort},
    {"netHttpPort", &BelongDevInfo::httpPort},
    {"localIp", &BelongDevInfo::localIp},
    {"localCmdPort", &BelongDevInfo::localCmdPort},
    {"localHttpPort", &BelongDevInfo::localHttpPort},
    {"localStreamPort", &BelongDevInfo::localStreamPort},
    {"netType", &BelongDevInfo::netType},
    {"upnp", &BelongDevInfo::upnp},
    {"casIp", &BelongDevInfo::casIp},
    {"casPort", &BelongDevInfo::casPort},
};
constexpr json::Field<BelongDevInfo> kCloudFields[] = {
    {"status", &BelongDevInfo::cloudServiceStatus},
};
constexpr json::Field<BelongDevInfo> kStatusFields[] = {
    {"isEncrypt", &BelongDevInfo::isEncrypt},
    {"encryptPwd", &BelongDevInfo::encryptPwd},
};
constexpr json::Field<BelongDevInfo> kTtsFields[] = {
    {"externalIp", &BelongDevInfo::ttsIp},
    {"port", &BelongDevInfo::ttsPort},
};
constexpr json::Field<BelongDevInfo> kKeyFields[] = {
    {"publicKey", &BelongDevInfo::publicKey},
    {"version", &BelongDevInfo::version},
};
/// The key's other name, which counts when both are there.
constexpr json::Field<BelongDevInfo> kOtherKeyFields[] = {
    {"key", &BelongDevInfo::publicKey},
};

/// Reads the device's public key: members of the group's entry, or of an object "publicKey" in it.
void ReadKey(const JsonCppView& entry, DevDetailInfo& device) {
    for (const JsonCppView& place : {entry, entry.Member("publicKey")}) {
        json::ReadFields<kKeyFields>(place, device);
        json::ReadFields<kOtherKeyFields>(place, device);
    }
}

void ReadGroups(const JsonCppView& root, const std::string& serial, DevDetailInfo& device) {
    const auto entry = [&](const char* group) { return EntryOf(BesideOrInsideData(root, group), serial); };
    BelongDevInfo& fields = device;
    json::ReadFields<kConnectionFields>(entry("connectionInfos"), fields);
    std::string mask;
    if (entry("wifiInfos").Member("mask").Read(mask)) {
        device.maskIp = DecimalPrefix(mask);
    }
    json::ReadFields<kCloudFields>(entry("cloudInfos"), fields);
    json::ReadFields<kStatusFields>(entry("statusInfos"), fields);
    json::ReadFields<kTtsFields>(entry("ttsInfos"), fields);
    ReadKey(entry("kmsInfos"), device);
    ReadKey(entry("ttsInfos"), device);
}

/// The extension is one JSON text with capabilities by name and by number, so it is the short list as well.
void ReadCapabilities(const JsonCppView& supportExt, DevDetailInfo& device) {
    if (!supportExt.Read(device.supportExtShort)) {
        device.supportExtShort = supportExt.IsObject() ? supportExt.Compact() : std::string();
    }
    const NestedObject<json::JsonCppDocument> extension(supportExt);
    capabilities::ReadCapabilities(extension.Object(), device);
}

}  // namespace

bool ReadCamera(const JsonCppView& camera, const std::string& deviceSerial, ConsumerChannel& entry) {
    if (!camera.IsObject() || NamesAnother(camera, deviceSerial)) {
        return false;
    }
    json::ReadFields<kCameraFields>(camera, entry.channel);
    int32_t isShared = 0;
    if (camera.Member("isShared").Read(isShared)) {
        entry.channel.isShared = std::to_string(isShared);
    }
    const JsonCppView vtm = camera.Member("vtmInfo");
    vtm.Member("forceStreamType").Read(entry.channel.forceStreamType);
    json::ReadFields<kVtmFields>(vtm, entry.device);
    vtm.Member("internalIp").Read(entry.vtmInternalIp);
    json::AppendRecords<kQualityFields>(camera.Member("videoQualityInfos"), entry.channel.videoQualityInfos);
    return true;
}

void ReadDevice(const JsonCppView& root, const std::string& deviceSerial, DevDetailInfo& device) {
    const JsonCppView entry = EntryOf(BesideOrInsideData(root, "deviceInfos"), deviceSerial);
    json::ReadFields<kDeviceFields>(entry, device);
    ReadGroups(root, deviceSerial, device);
    ReadCapabilities(entry.Member("supportExt"), device);
}

}  // namespace vantix::consumer
