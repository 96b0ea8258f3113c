// The types of the fields that the caches read and write, and the order of the records' members, under every ABI.

#include <gtest/gtest.h>

#include <cstdint>
#include <type_traits>
#include <vector>

#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"
#include "vantix/records/ServerInfo.h"

namespace vantix::test {
namespace {

template <class Field>
constexpr bool kIsNumber = std::is_same_v<Field, int32_t>;

static_assert(std::is_same_v<decltype(DevDetailInfo::tCacheTime), int64_t>);
static_assert(std::is_same_v<decltype(DevDetailInfo::isUpdate), bool> && sizeof(DevDetailInfo::isUpdate) == 1);
static_assert(std::is_same_v<decltype(DevDetailInfo::isFromCache), bool> && sizeof(DevDetailInfo::isFromCache) == 1);
static_assert(kIsNumber<decltype(DevDetailInfo::iRequestCost)>);
static_assert(kIsNumber<decltype(DevDetailInfo::iCloseBlong)>);
static_assert(kIsNumber<decltype(DevDetailInfo::support_seek_playback)>);
static_assert(kIsNumber<decltype(DevDetailInfo::support_quickplay_way)>);
static_assert(kIsNumber<decltype(DevDetailInfo::support_device_playback_small_speed)>);
static_assert(kIsNumber<decltype(BelongDevInfo::belongNo)>);
static_assert(kIsNumber<decltype(BelongDevInfo::belongState)>);
static_assert(kIsNumber<decltype(BelongDevInfo::isEncrypt)>);
static_assert(kIsNumber<decltype(BelongDevInfo::deviceStatus)>);
static_assert(kIsNumber<decltype(DevChannelInfo::videoLevel)>);
static_assert(kIsNumber<decltype(DevChannelInfo::type)>);
static_assert(kIsNumber<decltype(DevChannelInfo::cameraNo)>);
static_assert(kIsNumber<decltype(DevChannelInfo::status)>);
static_assert(kIsNumber<decltype(DevChannelInfo::iIsTrust)>);
static_assert(std::is_same_v<decltype(DevChannelInfo::videoQualityInfos), std::vector<VideoQualityInfo>>);

/// Expects each address behind the one before it.
void ExpectInOrder(const std::vector<const void*>& addresses) {
    for (size_t i = 1; i < addresses.size(); ++i) {
        EXPECT_LT(addresses[i - 1], addresses[i]) << "member " << i;
    }
}

TEST(RecordOrder, ChannelBeginsWithFourNumbersAndEndsWithANumberAndAList) {
    const DevChannelInfo record;
    const int32_t* const first = &record.videoLevel;
    EXPECT_EQ(static_cast<const void*>(&record), first);
    EXPECT_EQ(&record.type, first + 1);
    EXPECT_EQ(&record.cameraNo, first + 2);
    EXPECT_EQ(&record.status, first + 3);
    EXPECT_EQ(static_cast<const void*>(&record.deviceSerial), first + 4);
    ExpectInOrder({&record.deviceSerial, &record.streamBiz, &record.iIsTrust, &record.videoQualityInfos});
    EXPECT_EQ(reinterpret_cast<const char*>(&record.videoQualityInfos + 1), reinterpret_cast<const char*>(&record + 1));
    EXPECT_LE(
        reinterpret_cast<const char*>(&record.videoQualityInfos) - reinterpret_cast<const char*>(&record.iIsTrust + 1),
        4)
        << "nothing but room for alignment stands between";
}

TEST(RecordOrder, DeviceBeginsWithItsSerialAndHasThePlaybackCapabilitiesInThisOrder) {
    const DevDetailInfo record;
    EXPECT_EQ(static_cast<const void*>(&record), &record.deviceSerial);
    ExpectInOrder(
        {&record.support_seek_playback, &record.support_quickplay_way, &record.support_device_playback_small_speed});
}

TEST(RecordOrder, ServersStandInTheOrderInWhichTheyAreDocumented) {
    const ServerInfo record;
    ExpectInOrder({&record.stun1Addr, &record.stun1Port, &record.stun2Addr, &record.stun2Port, &record.ttsAddr,
                   &record.ttsPort, &record.vtmAddr, &record.vtmPort, &record.authAddr, &record.nodeJsAddr,
                   &record.nodeJsHttpPort, &record.logAddr, &record.pushAddr, &record.microCloudMode,
                   &record.pushDasDomain, &record.pushDasPort, &record.vtmBackups});
}

}  // namespace
}  // namespace vantix::test
