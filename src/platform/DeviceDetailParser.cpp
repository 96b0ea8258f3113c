#include "platform/DeviceDetailParser.h"

#include <utility>

#include "base/NumberText.h"
#include "json/Json11Reader.h"
#include "log/Logger.h"
#include "platform/DeviceDetailFields.h"
#include "requests/DeviceCapabilities.h"
#include "requests/Envelope.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::Json11View;

/// A member that carries nested JSON, either as an object or as a text that holds one.
class NestedObject {
public:
    explicit NestedObject(const Json11View& member) {
        if (member.IsObject()) {
            m_object = member;
        } else if (const std::string* text = member.Text()) {
            m_failed = !m_document.Parse(*text) || !m_document.Root().IsObject();
            m_object = m_failed ? Json11View() : m_document.Root();
        } else {
            m_failed = !member.IsNull();
        }
    }

    /// The member is there, but no object could be had from it.
    bool Failed() const { return m_failed; }
    /// The object, or nothing.
    const Json11View& Object() const { return m_object; }

private:
    json::Json11Document m_document;
    Json11View m_object;
    bool m_failed = false;
};

DevChannelInfo ReadChannel(const Json11View& camera) {
    DevChannelInfo channel;
    json::ReadFields(camera, detail_fields::kCamera, channel);
    channel.iIsTrust = DecimalPrefix(channel.isTrust);
    const Json11View qualities = camera.Member("videoQualityInfos");
    for (size_t i = 0; i < qualities.Size(); ++i) {
        json::ReadFields(qualities.Element(i), detail_fields::kVideoQuality, channel.videoQualityInfos.emplace_back());
    }
    return channel;
}

void ReadDevice(const Json11View& object, BelongDevInfo& device) {
    json::ReadFields(object, detail_fields::kDevice, device);
    const Json11View backups = object.Member("vtmBackups");
    for (size_t i = 0; i < backups.Size(); ++i) {
        if (backups.Element(i).IsObject()) {
            json::ReadFields(backups.Element(i), detail_fields::kVtmBackup, device.vtmBackups.emplace_back());
        }
    }
}

void ReadShareVerification(const CallSite& site, const Json11View& extension, DevDetailInfo& device) {
    std::string verify;
    if (extension.Member("ShareVerify").Read(verify)) {
        device.iShareVerif = DecimalPrefix(verify);
        VANTIX_LOG_ERROR(site, level::kError, "iShareVerif = [%d]", device.iShareVerif);
    }
}

void ReadCapabilities(const CallSite& site, const Json11View& extension, DevDetailInfo& device) {
    using namespace capabilities;
    for (const Capability& control : kControls) {
        ReadCapability(extension, control, device);
    }
    extension.Member(kEncryption).Read(device.support_ecdh_v2);
    VANTIX_LOG_INFO(site, level::kInfo, "support_ecdh_v2:%s", device.support_ecdh_v2.c_str());
    ReadCapability(extension, kReplayDownload, device);
    ReadCapability(extension, kVideoCover, device);
    VANTIX_LOG_INFO(site, level::kInfo, "support_device_video_cover:%d", device.support_device_video_cover);
    ReadCapability(extension, kSeekPlayback, device);
    VANTIX_LOG_INFO(site, level::kInfo, "iSupportSeekPlayback:%d", device.support_seek_playback);
    ReadCapability(extension, kSeekV2, device);
    VANTIX_LOG_INFO(site, level::kInfo, "iSupportSeek2Playback:%d", device.support_seek_v2);
    for (const Capability& speed : kSpeeds) {
        ReadCapability(extension, speed, device);
    }
    VANTIX_LOG_INFO(site, level::kInfo, "DeviceSerial = %s,  support_replay_download:%d", device.deviceSerial.c_str(),
                    device.support_replay_download);
}

/// Reads the three members that carry nested JSON. One that is malformed is logged and skipped.
void ReadNested(const CallSite& site, const std::string& body, const Json11View& object, DevDetailInfo& device,
                std::optional<BelongDevInfo>& parent) {
    const NestedObject share(object.Member("qxDeviceSupportExt"));
    if (share.Failed()) {
        VANTIX_LOG_ERROR(site, level::kError, "platform response , szInfo = %s", body.c_str());
    }
    ReadShareVerification(site, share.Object(), device);

    const NestedObject extension(object.Member("supportExt"));
    if (extension.Failed()) {
        VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s", body.c_str());
    } else {
        ReadCapabilities(site, extension.Object(), device);  // without the member, the short list alone tells
    }

    const NestedObject belong(object.Member("belongDevice"));
    if (belong.Failed()) {
        VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s", body.c_str());
    } else if (belong.Object().IsObject()) {
        ReadDevice(belong.Object(), parent.emplace());
    }
}

/// Carries the bookkeeping of the caller's record over into the one that replaces it.
void KeepBookkeeping(const DevDetailInfo& from, DevDetailInfo& to) {
    to.iCloseBlong = from.iCloseBlong;
    to.iRequestCost = from.iRequestCost;
    to.tCacheTime = from.tCacheTime;
    to.isUpdate = from.isUpdate;
    to.isFromCache = from.isFromCache;
}

int ParseDetail(const CallSite& site, const std::string& body, DevChannelInfo& channel, DevDetailInfo& device,
                std::optional<BelongDevInfo>& parent) {
    json::Json11Document document;
    if (!document.Parse(body)) {
        VANTIX_LOG_ERROR(site, level::kError, "platform response bad, szInfo = %s", body.c_str());
        return VANTIX_RESP_NOT_JSON;
    }
    if (const int code = json::EnvelopeCode(document.Root()); code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "Platform Response Error:%d, Resp:%s", code, body.c_str());
        return code;
    }
    const Json11View data = document.Root().Member("result").Member("data");
    if (!data.IsObject()) {
        VANTIX_LOG_ERROR(site, level::kError, "platform response invalid, szInfo = %s", body.c_str());
        return VANTIX_RESP_BAD_FORMAT;
    }
    channel = ReadChannel(data.Member("camera"));
    const Json11View object = data.Member("device");
    DevDetailInfo fresh;
    ReadDevice(object, fresh);
    ReadNested(site, body, object, fresh, parent);
    KeepBookkeeping(device, fresh);
    device = std::move(fresh);
    return VANTIX_NOERROR;
}

}  // namespace

int ParseDevDetailInfoFromPlatform(const std::string& body, DevChannelInfo& channel, DevDetailInfo& device,
                                   std::optional<BelongDevInfo>& parent) {
    return ParseDetail(VANTIX_HERE, body, channel, device, parent);
}

int ParseDeviceDetailInfoFromPlatform(const std::string& body, DevChannelInfo& channel, DevDetailInfo& device,
                                      std::optional<BelongDevInfo>& parent) {
    return ParseDetail(VANTIX_HERE, body, channel, device, parent);
}

}  // namespace vantix
