#include "platform/DeviceDetailParser.h"

#include <utility>

#include "base/NumberText.h"
#include "json/Json11Reader.h"
#include "log/Logger.h"
#include "platform/DeviceDetailFields.h"
#include "requests/DeviceBookkeeping.h"
#include "requests/DeviceCapabilities.h"
#include "requests/Envelope.h"
#include "requests/NestedObject.h"
#include "requests/ResponseReader.h"

namespace vantix {
namespace {

using json::Json11View;

DevChannelInfo ReadChannel(const Json11View& camera) {
    DevChannelInfo channel;
    json::ReadFields<detail_fields::kCamera>(camera, channel);
    channel.iIsTrust = DecimalPrefix(channel.isTrust);
    json::AppendRecords<detail_fields::kVideoQuality>(camera.Member("videoQualityInfos"), channel.videoQualityInfos);
    return channel;
}

void ReadDevice(const Json11View& object, BelongDevInfo& device) {
    json::ReadFields<detail_fields::kDevice>(object, device);
    json::ForEachObject(object.Member("vtmBackups"), [&](const Json11View& backup) {
        json::ReadFields<detail_fields::kVtmBackup>(backup, device.vtmBackups.emplace_back());
    });
}

void ReadShareVerification(const CallSite& site, const Json11View& extension, DevDetailInfo& device) {
    std::string verify;
    if (extension.Member("ShareVerify").Read(verify)) {
        device.iShareVerif = DecimalPrefix(verify);
        VANTIX_LOG_ERROR(site, level::kError, "iShareVerif = [%d]", device.iShareVerif);
    }
}

void ReadCapabilities(const CallSite& site, const Json11View& extension, DevDetailInfo& device) {
    capabilities::ReadCapabilities(extension, device);
    VANTIX_LOG_INFO(site, level::kInfo, "support_ecdh_v2:%s", device.support_ecdh_v2.c_str());
    VANTIX_LOG_INFO(site, level::kInfo, "support_device_video_cover:%d", device.support_device_video_cover);
    VANTIX_LOG_INFO(site, level::kInfo, "iSupportSeekPlayback:%d", device.support_seek_playback);
    VANTIX_LOG_INFO(site, level::kInfo, "iSupportSeek2Playback:%d", device.support_seek_v2);
    VANTIX_LOG_INFO(site, level::kInfo, "DeviceSerial = %s,  support_replay_download:%d", device.deviceSerial.c_str(),
                    device.support_replay_download);
}

using Nested = NestedObject<json::Json11Document>;

/// Reads the three members that hold nested JSON. One that is malformed is logged and skipped.
void ReadNested(const CallSite& site, TextView body, const Json11View& object, DevDetailInfo& device,
                std::optional<BelongDevInfo>& parent) {
    const Nested share(object.Member("qxDeviceSupportExt"));
    if (share.Failed()) {
        VANTIX_LOG_ERROR(site, level::kError, "platform response , szInfo = %s", body.c_str());
    }
    ReadShareVerification(site, share.Object(), device);

    const Nested extension(object.Member("supportExt"));
    if (extension.Failed()) {
        LogMalformed(site, body);
    } else {
        ReadCapabilities(site, extension.Object(), device);  // without the member, the short list alone counts
    }

    const Nested belong(object.Member("belongDevice"));
    if (belong.Failed()) {
        LogMalformed(site, body);
    } else if (belong.Object().IsObject()) {
        ReadDevice(belong.Object(), parent.emplace());
    }
}

int ParseDetail(const CallSite& site, TextView body, DevChannelInfo& channel, DevDetailInfo& device,
                std::optional<BelongDevInfo>& parent) {
    return ReadObjectResponse(site, body, EnvelopeCode, ResultData, [&](const Json11View& data) {
        channel = ReadChannel(data.Member("camera"));
        const Json11View object = data.Member("device");
        DevDetailInfo fresh;
        ReadDevice(object, fresh);
        ReadNested(site, body, object, fresh, parent);
        TakeOver(std::move(fresh), device);
    });
}

}  // namespace

int ParseDevDetailInfoFromPlatform(TextView body, DevChannelInfo& channel, DevDetailInfo& device,
                                   std::optional<BelongDevInfo>& parent) {
    return ParseDetail(VANTIX_HERE, body, channel, device, parent);
}

int ParseDeviceDetailInfoFromPlatform(TextView body, DevChannelInfo& channel, DevDetailInfo& device,
                                      std::optional<BelongDevInfo>& parent) {
    return ParseDetail(VANTIX_HERE, body, channel, device, parent);
}

}  // namespace vantix
