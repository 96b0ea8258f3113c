// What a hit in the device caches costs, and of which kind they are.

#include <map>
#include <type_traits>
#include <unordered_map>

#include "support/FailingNew.h"
#include "unit/core/CoreTest.h"
#include "unit/core/TakenLocks.h"

namespace vantix::test {
namespace {

using HashOfChannels = GuardedMap<std::unordered_map<CacheKey, CachedChannel, CacheKey::Hash>>;
using OrderedDevices = GuardedMap<std::map<CacheKey, CachedDevice>>;
/// Compiles only when the caches are of these kinds; an explicit instantiation may name private members.
template <HashOfChannels DetailCaches::*kChannels, OrderedDevices DetailCaches::*kByChannel,
          OrderedDevices DetailCaches::*kBySerial>
struct KindsOfTheCaches {};
template struct KindsOfTheCaches<&DetailCaches::m_mapDevDetailInfo, &DetailCaches::m_mapDeviceInfoCache,
                                 &DetailCaches::m_mapSerialDetailInfo>;

class CacheHit : public CoreTest {
protected:
    CacheHit() {
        // One text in each record that needs memory of its own.
        DevChannelInfo channel;
        channel.deviceSerial = "C1";
        channel.cameraId = std::string(100, 'c');
        DevDetailInfo device;
        device.deviceSerial = "C1";
        device.releaseVersion = "VERSION_17";
        device.deviceIP = std::string(100, 'd');
        device.support_seek_playback = 1;
        Parts().caches.Store("C1", 1, channel, device, std::nullopt);
    }

    /// How many allocations `read` makes with two records to read into.
    template <class Read>
    static size_t AllocationsOf(Read read) {
        return WithEveryAllocationFailing(
            [&] {
                DevChannelInfo channel;
                DevDetailInfo device;
                try {
                    read(channel, device);
                } catch (const std::bad_alloc&) {
                    return;
                }
                EXPECT_TRUE(FailingNew::Fired() || device.deviceIP.size() == 100U);
            },
            [](size_t /*n*/) {});
    }

    DevChannelInfo unused;
    DevDetailInfo record;
};

TEST_F(CacheHit, TakesTwoLooksOneAfterTheOther) {
    void* const channels = OnlyLockOf([&] { core.getChannelCacheValue("C1", 1); });
    void* const devices = OnlyLockOf([&] { core.getDeviceRecord("C1", 1, record); });
    void* const serials = OnlyLockOf([&] { core.IsSupportSeekPlayback("C1"); });
    EXPECT_EQ(LocksTakenBy([&] { EXPECT_EQ(core.getDevInfoCache("C1", 1, unused, record), 0); }),
              (std::vector<void*>{channels, devices}));
    EXPECT_EQ(LocksTakenBy([&] { EXPECT_EQ(core.getDevDetailInfoSync("C1", 1, false, unused, record, false), 0); }),
              (std::vector<void*>{channels, serials}));
    EXPECT_EQ(transport.Count(), 0U);
}

TEST_F(CacheHit, CopiesEachRecordOnce) {
    EXPECT_EQ(AllocationsOf([&](DevChannelInfo& channel, DevDetailInfo& device) {
                  core.getDevInfoCache("C1", 1, channel, device);
              }),
              2U)
        << "a text of the channel, a text of the device";
    EXPECT_EQ(AllocationsOf([&](DevChannelInfo& channel, DevDetailInfo& device) {
                  Parts().caches.getDevDetailInfoFromLocal("C1", 1, channel, device);
              }),
              2U);
    EXPECT_EQ(AllocationsOf(
                  [&](DevChannelInfo& /*channel*/, DevDetailInfo& device) { core.getDeviceRecord("C1", 1, device); }),
              1U);
}

TEST_F(CacheHit, CapabilitiesAreReadWhateverReleaseAgeAndMark) {
    DevDetailInfo device;
    device.deviceSerial = "OLD";
    device.releaseVersion = "VERSION_1";
    device.isUpdate = true;
    device.tCacheTime = 1;
    device.support_seek_playback = 1;
    device.support_quickplay_way = 1;
    device.support_device_playback_small_speed = 1;
    Parts().caches.Store("OLD", 1, DevChannelInfo(), device, std::nullopt);
    core.setCacheTime(0);
    lines.Clear();
    EXPECT_EQ(core.IsSupportSeekPlayback("OLD"), 1);
    EXPECT_EQ(core.IsSupportPlaybackSpeed("OLD", 2), 1);
    EXPECT_EQ(core.IsSupportPlaybackSpeed("OLD", 4), 1);
    EXPECT_TRUE(lines.Lines().empty());
}

}  // namespace
}  // namespace vantix::test
