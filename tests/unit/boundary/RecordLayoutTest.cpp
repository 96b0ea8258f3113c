// A host that was built before finds every field of a record where it was: offsets and sizes of this ABI, as numbers.

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/CloudFileQuery.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"
#include "vantix/records/VideoQualityInfo.h"
#include "vantix/records/VtmAddr.h"

// Another compiler family, or another standard library, lays records out in its own way.
#if defined(__GLIBCXX__) && defined(__x86_64__) && _GLIBCXX_USE_CXX11_ABI

namespace vantix::test {
namespace {

/// A field, where it is, and where hosts expect it.
struct Place {
    const char* field;
    size_t is;
    size_t expected;
};

template <class Record, class Field>
size_t OffsetIn(const Record& record, const Field& field) {
    return static_cast<size_t>(reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&record));
}

#define PLACE(field, offset) \
    Place { #field, OffsetIn(record, record.field), offset }

void ExpectLayout(size_t size, size_t expectedSize, const std::vector<Place>& places) {
    EXPECT_EQ(size, expectedSize);
    for (const Place& place : places) {
        EXPECT_EQ(place.is, place.expected) << place.field;
    }
}

TEST(RecordLayout, BWCheckInfo) {
    const BWCheckInfo record;
    ExpectLayout(sizeof(record), 104,
                 {
                     PLACE(id, 0),
                     PLACE(url, 32),
                     PLACE(publicKey, 64),
                     PLACE(version, 96),
                 });
}

TEST(RecordLayout, BelongDevInfo) {
    const BelongDevInfo record;
    ExpectLayout(sizeof(record), 568,
                 {
                     PLACE(deviceSerial, 0),
                     PLACE(deviceIP, 32),
                     PLACE(devicePort, 64),
                     PLACE(cmdPort, 68),
                     PLACE(httpPort, 72),
                     PLACE(streamPort, 76),
                     PLACE(localIp, 80),
                     PLACE(localDevicePort, 112),
                     PLACE(localCmdPort, 116),
                     PLACE(localHttpPort, 120),
                     PLACE(localStreamPort, 124),
                     PLACE(netType, 128),
                     PLACE(ppvsAddr, 136),
                     PLACE(ppvsPort, 168),
                     PLACE(casIp, 176),
                     PLACE(casPort, 208),
                     PLACE(maskIp, 212),
                     PLACE(upnp, 216),
                     PLACE(cloudServiceStatus, 220),
                     PLACE(releaseVersion, 224),
                     PLACE(belongSerial, 256),
                     PLACE(belongNo, 288),
                     PLACE(belongAdded, 292),
                     PLACE(isEncrypt, 296),
                     PLACE(encryptPwd, 304),
                     PLACE(belongState, 336),
                     PLACE(vtmIp, 344),
                     PLACE(vtmPort, 376),
                     PLACE(ttsIp, 384),
                     PLACE(ttsPort, 416),
                     PLACE(deviceStatus, 420),
                     PLACE(supportExtShort, 424),
                     PLACE(supportChannelNums, 456),
                     PLACE(gbJtTtsIP, 464),
                     PLACE(gbJtTtsPort, 496),
                     PLACE(publicKey, 504),
                     PLACE(version, 536),
                     PLACE(isOwner, 540),
                     PLACE(vtmBackups, 544),
                 });
}

TEST(RecordLayout, TimeSpan) {
    const TimeSpan record;
    ExpectLayout(sizeof(record), 64,
                 {
                     PLACE(startTime, 0),
                     PLACE(endTime, 32),
                 });
}

TEST(RecordLayout, CloudFileQuery) {
    const CloudFileQuery record;
    ExpectLayout(sizeof(record), 72,
                 {
                     PLACE(searchDate, 0),
                     PLACE(maxCreateTime, 32),
                     PLACE(detailFileCount, 64),
                 });
}

TEST(RecordLayout, ConfigInfo) {
    const ConfigInfo record;
    ExpectLayout(sizeof(record), 80,
                 {
                     PLACE(pushAddr, 0),
                     PLACE(pushAuthAddr, 32),
                     PLACE(streamType, 64),
                     PLACE(dataCollect, 68),
                     PLACE(openP2P, 72),
                 });
}

TEST(RecordLayout, DevChannelInfo) {
    const DevChannelInfo record;
    ExpectLayout(sizeof(record), 248,
                 {
                     PLACE(videoLevel, 0),
                     PLACE(type, 4),
                     PLACE(cameraNo, 8),
                     PLACE(status, 12),
                     PLACE(deviceSerial, 16),
                     PLACE(cameraId, 48),
                     PLACE(capability, 80),
                     PLACE(isShared, 112),
                     PLACE(streamBizUrl, 144),
                     PLACE(isTrust, 176),
                     PLACE(permission, 208),
                     PLACE(forceStreamType, 212),
                     PLACE(streamBiz, 216),
                     PLACE(iIsTrust, 220),
                     PLACE(videoQualityInfos, 224),
                 });
}

TEST(RecordLayout, DevDetailInfo) {
    const DevDetailInfo record;
    ExpectLayout(sizeof(record), 672,
                 {
                     PLACE(iShareVerif, 568),
                     PLACE(support_ptz, 572),
                     PLACE(support_talk, 576),
                     PLACE(ptz_left_right, 580),
                     PLACE(ptz_top_bottom, 584),
                     PLACE(ptz_preset, 588),
                     PLACE(support_ecdh_v2, 592),
                     PLACE(support_replay_download, 624),
                     PLACE(support_device_video_cover, 628),
                     PLACE(support_seek_playback, 632),
                     PLACE(support_seek_v2, 636),
                     PLACE(support_quickplay_way, 640),
                     PLACE(support_device_playback_small_speed, 644),
                     PLACE(iCloseBlong, 648),
                     PLACE(iRequestCost, 652),
                     PLACE(tCacheTime, 656),
                     PLACE(isUpdate, 664),
                     PLACE(isFromCache, 665),
                 });
}

TEST(RecordLayout, DeviceListItem) {
    const DeviceListItem record;
    ExpectLayout(sizeof(record), 144,
                 {
                     PLACE(deviceSerial, 0),
                     PLACE(channelNo, 32),
                     PLACE(name, 40),
                     PLACE(deviceName, 72),
                     PLACE(deviceType, 104),
                     PLACE(status, 136),
                     PLACE(isEncrypt, 140),
                 });
}

TEST(RecordLayout, DeviceList) {
    const DeviceList record;
    ExpectLayout(sizeof(record), 32,
                 {
                     PLACE(total, 0),
                     PLACE(devices, 8),
                 });
}

TEST(RecordLayout, P2PServerAddr) {
    const P2PServerAddr record;
    ExpectLayout(sizeof(record), 40,
                 {
                     PLACE(ip, 0),
                     PLACE(port, 32),
                 });
}

TEST(RecordLayout, P2PDevInfo) {
    const P2PDevInfo record;
    ExpectLayout(sizeof(record), 296,
                 {
                     PLACE(deviceSerial, 0),
                     PLACE(serverInfos, 32),
                     PLACE(defaultKey, 56),
                     PLACE(defaultKeyVer, 88),
                     PLACE(strV3, 96),
                     PLACE(strV3Sec, 128),
                     PLACE(strDirectPlayback_EndFlag, 160),
                     PLACE(strV3Download, 192),
                     PLACE(strV3Playback, 224),
                     PLACE(strV3Talk, 256),
                     PLACE(isUpdate, 288),
                     PLACE(iRequestCost, 292),
                 });
}

TEST(RecordLayout, P2PUserInfo) {
    const P2PUserInfo record;
    ExpectLayout(sizeof(record), 80,
                 {
                     PLACE(userId, 0),
                     PLACE(data, 32),
                     PLACE(version, 64),
                     PLACE(saltIndex, 68),
                     PLACE(iRequestCost, 72),
                 });
}

TEST(RecordLayout, RecordFile) {
    const RecordFile record;
    ExpectLayout(sizeof(record), 112,
                 {
                     PLACE(startTime, 0),
                     PLACE(endTime, 32),
                     PLACE(type, 64),
                     PLACE(size, 72),
                     PLACE(fileId, 80),
                 });
}

TEST(RecordLayout, RecordFileList) {
    const RecordFileList record;
    ExpectLayout(sizeof(record), 56,
                 {
                     PLACE(files, 0),
                     PLACE(strDeviceRecordList, 24),
                 });
}

TEST(RecordLayout, ServerInfo) {
    const ServerInfo record;
    ExpectLayout(sizeof(record), 376,
                 {
                     PLACE(stun1Addr, 0),
                     PLACE(stun1Port, 32),
                     PLACE(stun2Addr, 40),
                     PLACE(stun2Port, 72),
                     PLACE(ttsAddr, 80),
                     PLACE(ttsPort, 112),
                     PLACE(vtmAddr, 120),
                     PLACE(vtmPort, 152),
                     PLACE(authAddr, 160),
                     PLACE(nodeJsAddr, 192),
                     PLACE(nodeJsHttpPort, 224),
                     PLACE(logAddr, 232),
                     PLACE(pushAddr, 264),
                     PLACE(microCloudMode, 296),
                     PLACE(pushDasDomain, 304),
                     PLACE(pushDasPort, 336),
                     PLACE(vtmBackups, 344),
                     PLACE(iRequestCost, 368),
                 });
}

TEST(RecordLayout, TransparentMsgDetail) {
    const TransparentMsgDetail record;
    ExpectLayout(sizeof(record), 192,
                 {
                     PLACE(msgSeq, 0),
                     PLACE(msgType, 32),
                     PLACE(data, 64),
                     PLACE(destination, 96),
                     PLACE(sn, 128),
                     PLACE(createDate, 160),
                 });
}

TEST(RecordLayout, VideoQualityInfo) {
    const VideoQualityInfo record;
    ExpectLayout(sizeof(record), 40,
                 {
                     PLACE(videoQualityName, 0),
                     PLACE(videoLevel, 32),
                     PLACE(streamType, 36),
                 });
}

TEST(RecordLayout, VtmAddr) {
    const VtmAddr record;
    ExpectLayout(sizeof(record), 40,
                 {
                     PLACE(strVtmAddr, 0),
                     PLACE(iVtmPort, 32),
                 });
}

#undef PLACE

}  // namespace
}  // namespace vantix::test

#endif
