// One channel's detail: what goes over the wire, what comes back, and when the cache serves it instead.

#include <gmock/gmock.h>

#include "DetailFixture.h"
#include "support/ExpectedFeatureCode.h"
#include "support/FakeClock.h"

namespace vantix::test {
namespace {

using ::testing::ElementsAre;

class DeviceDetailTest : public DetailFixture {};

TEST_F(DeviceDetailTest, RequestIsAFormPostInKeyOrder) {
    ASSERT_EQ(Fetch(kRecorder, 3), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    const ReceivedRequest& request = requests[0];
    EXPECT_EQ(request.domain, "B");
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path, "/api/device/detail");
    EXPECT_EQ(request.query, "");
    EXPECT_EQ(request.body,
              "accessToken=" + Account("accessToken") + "&appKey=" + Account("appKey") +
                  "&cameraNo=3&clientType=19&clientVersion=v5.25.0&deviceSerial=R20000016&featureCode=" +
                  ExpectedFeatureCode() +
                  "&isNewVersion=true&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515&version=4.0");
}

TEST_F(DeviceDetailTest, RequestHasTheHeadersOfAFormAndNoOther) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    const ReceivedRequest& request = requests[0];
    EXPECT_THAT(request.HeaderNames(), ElementsAre("accept", "content-length", "content-type", "host"));
    EXPECT_EQ(request.Header("Content-Type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(request.Header("Accept"), "*/*");
    EXPECT_EQ(request.Header("Content-Length"), std::to_string(request.body.size()));
    EXPECT_EQ("https://" + request.Header("Host"), BDomain());
}

TEST_F(DeviceDetailTest, TokenAndAppIdGoUnescaped) {
    Center().setAppId("key=with%20 signs&more=1");
    Center().setAccessToken("a b/c+d");
    Fetch(kCamera, 1);
    const auto requests = Cloud().Requests();
    ASSERT_EQ(requests.size(), 1U);
    EXPECT_EQ(requests[0].body.rfind("accessToken=a b/c+d&appKey=key=with%20 signs&more=1&cameraNo=1&", 0), 0U);
}

TEST_F(DeviceDetailTest, AbsentChannelIsFetchedBehindTheFuture) {
    const FakeClock clock(1'800'000'000);
    const Asked asked = Ask(kCamera, 1);
    EXPECT_EQ(asked.returned, -1);
    ASSERT_TRUE(asked.started);
    EXPECT_EQ(asked.fetched, 0);
    EXPECT_EQ(DetailRequests(), 1U);
    ExpectStored(Cloud(), kCamera, 1, asked);
    EXPECT_FALSE(asked.device.isFromCache);
    EXPECT_FALSE(asked.device.isUpdate);
    EXPECT_EQ(asked.device.tCacheTime, 1'800'000'000);
}

TEST_F(DeviceDetailTest, EveryKindOfDeviceIsReadWhole) {
    // Some of them have their nested members as text, some as objects.
    const std::pair<const char*, int> channels[] = {{kCamera, 1},        {kRecorder, 16},    {kBehindOnline, 1},
                                                    {kBehindOffline, 1}, {kOtherRelease, 1}, {kOffline, 4},
                                                    {kShared, 1}};
    for (const auto& [serial, ch] : channels) {
        Detail detail;
        EXPECT_EQ(Fetch(serial, ch, detail), 0) << serial;
        ExpectStored(Cloud(), serial, ch, detail);
    }
}

TEST_F(DeviceDetailTest, CostIsTheElapsedTimeInWholeMilliseconds) {
    FakeClock clock;
    clock.SetSteadyStep(7'999'999);
    Detail detail;
    ASSERT_EQ(Fetch(kCamera, 1, detail), 0);
    EXPECT_EQ(detail.device.iRequestCost, 7);
}

TEST_F(DeviceDetailTest, CostIsStoredWhenTheRequestFails) {
    FakeClock clock;
    clock.SetSteadyStep(12'000'000);
    Cloud().Script({{"path", kDetailPath}, {"code", "20002"}});
    Detail refused;
    EXPECT_EQ(Fetch(kCamera, 1, refused), 320002);
    EXPECT_EQ(refused.device.iRequestCost, 12);
    Center().setDomain(Cloud().ClosedPort(), "");
    Detail unsent;
    EXPECT_EQ(Fetch(kCamera, 1, unsent), 100007);
    EXPECT_EQ(unsent.device.iRequestCost, 12);
}

TEST_F(DeviceDetailTest, CachedChannelIsServedAtNoCostAndWithoutARequest) {
    FakeClock clock;
    clock.SetSteadyStep(5'000'000);
    const Asked first = Ask(kCamera, 1);
    ASSERT_EQ(first.fetched, 0);
    EXPECT_EQ(first.device.iRequestCost, 5);
    Cloud().ForgetRequests();

    const Asked second = Ask(kCamera, 1);
    EXPECT_EQ(second.returned, 0);
    EXPECT_FALSE(second.started);
    EXPECT_TRUE(second.device.isFromCache);
    EXPECT_EQ(second.device.iRequestCost, 0);
    EXPECT_EQ(second.device.tCacheTime, first.device.tCacheTime);
    ExpectStored(Cloud(), kCamera, 1, second);
    EXPECT_EQ(Cloud().RequestCount(), 0U);
}

TEST_F(DeviceDetailTest, CacheHitLeavesTheCallersFutureAlone) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    std::promise<int32_t> promise;
    std::future<int32_t> future = promise.get_future();
    Detail detail;
    EXPECT_EQ(Center().getDevDetailInfo(kCamera, 1, detail.channel, detail.device, future), 0);
    promise.set_value(4711);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 4711);
}

TEST_F(DeviceDetailTest, MarkedChannelIsFoundAndFetchedAgain) {
    ASSERT_EQ(Ask(kCamera, 1).fetched, 0);
    EXPECT_EQ(Center().SetDevInfoCache(kCamera, 1), 0);
    EXPECT_TRUE(Cached(kCamera, 1).at("device").at("isUpdate"));
    Cloud().Put("/devices/C10000001/cameras/1", {{"videoLevel", 1}});

    const Asked again = Ask(kCamera, 1);
    EXPECT_EQ(again.returned, 0);
    ASSERT_TRUE(again.started);
    EXPECT_EQ(again.fetched, 0);
    EXPECT_EQ(again.channel.videoLevel, 1);
    EXPECT_FALSE(again.device.isFromCache);
    EXPECT_EQ(DetailRequests(), 2U);

    const Asked third = Ask(kCamera, 1);
    EXPECT_FALSE(third.started);
    EXPECT_FALSE(third.device.isUpdate);
    EXPECT_EQ(third.channel.videoLevel, 1);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, AbsentChannelCannotBeMarked) { EXPECT_EQ(Center().SetDevInfoCache(kCamera, 1), -1); }

TEST_F(DeviceDetailTest, EntryExpiresAfterTheCacheTimeAndNotAtIt) {
    FakeClock clock;
    Center().setCacheTime(5);
    ASSERT_EQ(Ask(kCamera, 1).fetched, 0);
    clock.AdvanceSeconds(300);
    EXPECT_FALSE(Ask(kCamera, 1).started);
    clock.AdvanceSeconds(1);
    const Asked expired = Ask(kCamera, 1);
    EXPECT_EQ(expired.returned, 0);
    EXPECT_TRUE(expired.started);
    EXPECT_EQ(expired.device.tCacheTime, clock.Wall());
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, ClockThatJumpsADayOnlyCostsARequest) {
    FakeClock clock;
    ASSERT_EQ(Ask(kCamera, 1).fetched, 0);
    clock.AdvanceSeconds(-86'400);
    EXPECT_FALSE(Ask(kCamera, 1).started);
    clock.AdvanceSeconds(172'800);  // two days
    EXPECT_FALSE(Ask(kCamera, 1).started);
    clock.AdvanceSeconds(1);
    EXPECT_TRUE(Ask(kCamera, 1).started);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, NothingExpiresForWantOfAClock) {
    FakeClock clock;
    ASSERT_EQ(Ask(kCamera, 1).fetched, 0);
    clock.Break();
    EXPECT_FALSE(Ask(kCamera, 1).started);
}

TEST_F(DeviceDetailTest, ClearDeviceInfoCacheDropsTheDeviceAndKeepsTheSerial) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(Center().ClearDeviceInfoCache(), 0);
    Detail detail;
    EXPECT_EQ(ReadCache(kCamera, 1, detail), -1);
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 1);
    EXPECT_EQ(ReadOrFetch(kCamera, 1, detail), 0);
    EXPECT_TRUE(detail.device.isFromCache);
    EXPECT_EQ(DetailRequests(), 1U);
    const Asked asked = Ask(kCamera, 1);
    EXPECT_EQ(asked.returned, -1);
    EXPECT_EQ(asked.fetched, 0);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, ClearAllCacheEmptiesAllThree) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(Center().ClearAllCache(), 0);
    Detail detail;
    EXPECT_EQ(ReadCache(kCamera, 1, detail), -1);
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 0);
    EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), -1);
    EXPECT_EQ(ReadOrFetch(kCamera, 1, detail), 0);
    EXPECT_FALSE(detail.device.isFromCache);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, OtherChannelOfACachedDeviceIsAMiss) {
    ASSERT_EQ(Fetch(kRecorder, 1), 0);
    Detail detail;
    EXPECT_EQ(ReadCache(kRecorder, 2, detail), -1);
    const Asked asked = Ask(kRecorder, 2);
    EXPECT_EQ(asked.returned, -1);
    EXPECT_EQ(asked.channel.cameraNo, 2);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, SynchronousFormServesAnyCachedCopyUnlessForced) {
    FakeClock clock;
    Center().setCacheTime(1);
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    Center().SetDevInfoCache(kCamera, 1);
    clock.AdvanceSeconds(86'400);
    Detail detail;
    EXPECT_EQ(ReadOrFetch(kCamera, 1, detail), 0);
    EXPECT_TRUE(detail.device.isFromCache);
    EXPECT_EQ(detail.device.iRequestCost, 0);
    EXPECT_EQ(DetailRequests(), 1U);
    EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
    EXPECT_FALSE(detail.device.isFromCache);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(DeviceDetailTest, AnotherReleaseIsFetchedAndNeverServed) {
    const Asked first = Ask(kOtherRelease, 1);
    EXPECT_EQ(first.returned, -1);
    EXPECT_EQ(first.fetched, 0);
    EXPECT_EQ(first.device.releaseVersion, "VERSION_16");
    Detail detail;
    EXPECT_EQ(ReadCache(kOtherRelease, 1, detail), 600001);

    const Asked second = Ask(kOtherRelease, 1);
    EXPECT_EQ(second.returned, 600001);
    ASSERT_TRUE(second.started);
    EXPECT_EQ(second.fetched, 0);
    EXPECT_EQ(ReadOrFetch(kOtherRelease, 1, detail), 0);
    EXPECT_FALSE(detail.device.isFromCache);
    EXPECT_EQ(DetailRequests(), 3U);
    EXPECT_EQ(Center().getDevDetailInfoByRelation(kOtherRelease, 1, detail.channel, detail.device), -1);
}

TEST_F(DeviceDetailTest, EmptyReleaseIsNeverServedEither) {
    Cloud().Put("/devices/C10000001", {{"device", {{"releaseVersion", ""}}}});
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    Detail detail;
    EXPECT_EQ(ReadCache(kCamera, 1, detail), 600001);
}

TEST_F(DeviceDetailTest, OfflineDeviceHasADetailLikeAnyOther) {
    const Asked asked = Ask(kOffline, 2);
    EXPECT_EQ(asked.fetched, 0);
    EXPECT_EQ(asked.device.deviceStatus, 2);
    EXPECT_EQ(asked.channel.status, 0);
    EXPECT_FALSE(Ask(kOffline, 2).started);
}

TEST_F(DeviceDetailTest, CapabilitiesAreReadFromTheSerialCache) {
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 0);
    Cloud().Put("/devices/C10000001", {{"device",
                                        {{"supportExtShort", ""},
                                         {"supportExt",
                                          {{"support_seek_playback", "1"},
                                           {"support_quickplay_way", "0"},
                                           {"support_device_playback_small_speed", "1"}}}}}});
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 1);
    for (const int speed : {-1, 0, 1, 4, 6, 8, 10, 100}) {
        EXPECT_EQ(Center().IsSupportPlaybackSpeed(kCamera, speed), 0) << speed;
    }
    for (const int speed : {2, 3, 5, 7, 9}) {
        EXPECT_EQ(Center().IsSupportPlaybackSpeed(kCamera, speed), 1) << speed;
    }
    EXPECT_EQ(Center().IsSupportSeekPlayback(kRecorder), 0);
    EXPECT_EQ(Center().IsSupportSeekPlayback(""), 0);
    EXPECT_EQ(Center().IsSupportPlaybackSpeed("", 2), 0);
    EXPECT_EQ(Cloud().RequestCount(), 1U);
}

TEST_F(DeviceDetailTest, QuickPlaybackNeedsNotBeExactlyOne) {
    Cloud().Put("/devices/C10000001", {{"device",
                                        {{"supportExtShort", ""},
                                         {"supportExt",
                                          {{"support_seek_playback", "2"},
                                           {"support_quickplay_way", "2"},
                                           {"support_device_playback_small_speed", "2"}}}}}});
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 0);
    EXPECT_EQ(Center().IsSupportPlaybackSpeed(kCamera, 4), 1);
    EXPECT_EQ(Center().IsSupportPlaybackSpeed(kCamera, 10), 1);
    EXPECT_EQ(Center().IsSupportPlaybackSpeed(kCamera, 5), 0);
}

TEST_F(DeviceDetailTest, ChannelCacheValueIsTheTrustAndCanBeOverwritten) {
    EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), -1);
    Center().setChannelCacheValue(kCamera, 1, 9);
    EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), -1);
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), 1);
    Center().setChannelCacheValue(kCamera, 1, -7);
    EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), -7);
    Detail detail;
    ASSERT_EQ(ReadCache(kCamera, 1, detail), 0);
    EXPECT_EQ(detail.channel.iIsTrust, -7);
    EXPECT_EQ(detail.channel.isTrust, "1");
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    EXPECT_EQ(Center().getChannelCacheValue(kCamera, 1), 1);
}

TEST_F(DeviceDetailTest, DeviceRecordComesAsItIsStored) {
    DevDetailInfo record;
    EXPECT_EQ(Center().getDeviceRecord(kOtherRelease, 1, record), -1);
    ASSERT_EQ(Fetch(kOtherRelease, 1), 0);
    EXPECT_EQ(Center().getDeviceRecord(kOtherRelease, 1, record), 0);
    EXPECT_EQ(record.deviceSerial, kOtherRelease);
    DevDetailInfo alternative;
    EXPECT_EQ(Center().getDeviceRecordAlt(kOtherRelease, 1, alternative), 0);
    EXPECT_EQ(ToJson(alternative), ToJson(record));
}

TEST_F(DeviceDetailTest, SettingsAndCachesAreSeenThroughEveryHandle) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    const Handle other = NewHandle();
    Detail detail;
    EXPECT_EQ(other->getDevInfoCache(kCamera, 1, detail.channel, detail.device), 0);
    EXPECT_EQ(other->getAccessToken(), Account("accessToken"));
    EXPECT_EQ(other->getDomain(kCamera, 1), BDomain());
}

}  // namespace
}  // namespace vantix::test
