#include "records/RecordFields.h"

#include <vantix/records/DevChannelInfo.h>
#include <vantix/records/DevDetailInfo.h>
#include <vantix/records/VideoQualityInfo.h>
#include <vantix/records/VtmAddr.h>

namespace vantix::ctl {
namespace {

constexpr std::array kBelongDevInfo = {
    Row<&BelongDevInfo::deviceSerial>("deviceSerial"),
    Row<&BelongDevInfo::deviceIP>("deviceIP"),
    Row<&BelongDevInfo::devicePort>("devicePort"),
    Row<&BelongDevInfo::cmdPort>("cmdPort"),
    Row<&BelongDevInfo::httpPort>("httpPort"),
    Row<&BelongDevInfo::streamPort>("streamPort"),
    Row<&BelongDevInfo::localIp>("localIp"),
    Row<&BelongDevInfo::localDevicePort>("localDevicePort"),
    Row<&BelongDevInfo::localCmdPort>("localCmdPort"),
    Row<&BelongDevInfo::localHttpPort>("localHttpPort"),
    Row<&BelongDevInfo::localStreamPort>("localStreamPort"),
    Row<&BelongDevInfo::netType>("netType"),
    Row<&BelongDevInfo::ppvsAddr>("ppvsAddr"),
    Row<&BelongDevInfo::ppvsPort>("ppvsPort"),
    Row<&BelongDevInfo::casIp>("casIp"),
    Row<&BelongDevInfo::casPort>("casPort"),
    Row<&BelongDevInfo::maskIp>("maskIp"),
    Row<&BelongDevInfo::upnp>("upnp"),
    Row<&BelongDevInfo::cloudServiceStatus>("cloudServiceStatus"),
    Row<&BelongDevInfo::releaseVersion>("releaseVersion"),
    Row<&BelongDevInfo::belongSerial>("belongSerial"),
    Row<&BelongDevInfo::belongNo>("belongNo"),
    Row<&BelongDevInfo::belongAdded>("belongAdded"),
    Row<&BelongDevInfo::isEncrypt>("isEncrypt"),
    Row<&BelongDevInfo::encryptPwd>("encryptPwd"),
    Row<&BelongDevInfo::belongState>("belongState"),
    Row<&BelongDevInfo::vtmIp>("vtmIp"),
    Row<&BelongDevInfo::vtmPort>("vtmPort"),
    Row<&BelongDevInfo::ttsIp>("ttsIp"),
    Row<&BelongDevInfo::ttsPort>("ttsPort"),
    Row<&BelongDevInfo::deviceStatus>("deviceStatus"),
    Row<&BelongDevInfo::supportExtShort>("supportExtShort"),
    Row<&BelongDevInfo::supportChannelNums>("supportChannelNums"),
    Row<&BelongDevInfo::gbJtTtsIP>("gbJtTtsIP"),
    Row<&BelongDevInfo::gbJtTtsPort>("gbJtTtsPort"),
    Row<&BelongDevInfo::publicKey>("publicKey"),
    Row<&BelongDevInfo::version>("version"),
    Row<&BelongDevInfo::isOwner>("isOwner"),
    Row<&BelongDevInfo::vtmBackups>("vtmBackups"),
};

constexpr std::array kDevChannelInfo = {
    Row<&DevChannelInfo::videoLevel>("videoLevel"),
    Row<&DevChannelInfo::type>("type"),
    Row<&DevChannelInfo::cameraNo>("cameraNo"),
    Row<&DevChannelInfo::status>("status"),
    Row<&DevChannelInfo::deviceSerial>("deviceSerial"),
    Row<&DevChannelInfo::cameraId>("cameraId"),
    Row<&DevChannelInfo::capability>("capability"),
    Row<&DevChannelInfo::isShared>("isShared"),
    Row<&DevChannelInfo::streamBizUrl>("streamBizUrl"),
    Row<&DevChannelInfo::isTrust>("isTrust"),
    Row<&DevChannelInfo::permission>("permission"),
    Row<&DevChannelInfo::forceStreamType>("forceStreamType"),
    Row<&DevChannelInfo::streamBiz>("streamBiz"),
    Row<&DevChannelInfo::iIsTrust>("iIsTrust"),
    Row<&DevChannelInfo::videoQualityInfos>("videoQualityInfos"),
};

constexpr std::array kDevDetailInfo = {
    Row<&DevDetailInfo::iShareVerif>("iShareVerif"),
    Row<&DevDetailInfo::support_ptz>("support_ptz"),
    Row<&DevDetailInfo::support_talk>("support_talk"),
    Row<&DevDetailInfo::ptz_left_right>("ptz_left_right"),
    Row<&DevDetailInfo::ptz_top_bottom>("ptz_top_bottom"),
    Row<&DevDetailInfo::ptz_preset>("ptz_preset"),
    Row<&DevDetailInfo::support_ecdh_v2>("support_ecdh_v2"),
    Row<&DevDetailInfo::support_replay_download>("support_replay_download"),
    Row<&DevDetailInfo::support_device_video_cover>("support_device_video_cover"),
    Row<&DevDetailInfo::support_seek_playback>("support_seek_playback"),
    Row<&DevDetailInfo::support_seek_v2>("support_seek_v2"),
    Row<&DevDetailInfo::support_quickplay_way>("support_quickplay_way"),
    Row<&DevDetailInfo::support_device_playback_small_speed>("support_device_playback_small_speed"),
    Row<&DevDetailInfo::iCloseBlong>("iCloseBlong"),
    Row<&DevDetailInfo::iRequestCost>("iRequestCost"),
    Row<&DevDetailInfo::tCacheTime>("tCacheTime"),
    Row<&DevDetailInfo::isUpdate>("isUpdate"),
    Row<&DevDetailInfo::isFromCache>("isFromCache"),
};

constexpr std::array kVideoQualityInfo = {
    Row<&VideoQualityInfo::videoQualityName>("videoQualityName"),
    Row<&VideoQualityInfo::videoLevel>("videoLevel"),
    Row<&VideoQualityInfo::streamType>("streamType"),
};

constexpr std::array kVtmAddr = {
    Row<&VtmAddr::strVtmAddr>("strVtmAddr"),
    Row<&VtmAddr::iVtmPort>("iVtmPort"),
};

}  // namespace

Json ToJson(const BelongDevInfo& record) { return AsObject(record, kBelongDevInfo); }
Json ToJson(const DevChannelInfo& record) { return AsObject(record, kDevChannelInfo); }
Json ToJson(const VideoQualityInfo& record) { return AsObject(record, kVideoQualityInfo); }
Json ToJson(const VtmAddr& record) { return AsObject(record, kVtmAddr); }

Json ToJson(const DevDetailInfo& record) {
    Json object = ToJson(static_cast<const BelongDevInfo&>(record));
    object.update(AsObject(record, kDevDetailInfo));
    return object;
}

}  // namespace vantix::ctl
