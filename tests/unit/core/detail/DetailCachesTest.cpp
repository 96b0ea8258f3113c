// The three device caches: keys, reads, marks, clearing.

#include "core/detail/DetailCaches.h"

#include "core/detail/ChannelKey.h"

#include <climits>
#include <set>

#include "support/LineMatcher.h"
#include "unit/core/FetchTest.h"

namespace vantix::test {
namespace {

class DeviceCaches : public CoreTest {
protected:
    DeviceCaches() { Configure(); }

    /// A detail response with one member of the device set.
    static nlohmann::json WithDevice(const std::string& serial, int ch, const std::string& key,
                                     const nlohmann::json& value) {
        nlohmann::json response = DetailResponse(serial, ch);
        response["result"]["data"]["device"][key] = value;
        return response;
    }

    DevChannelInfo channel;
    DevDetailInfo device;
};

// ---- Keys

TEST_F(DeviceCaches, KeyIsSerialAndChannel) {
    EXPECT_EQ(getDevDetailInfoMapKey("C12345678", 1), "C12345678_1");
    EXPECT_EQ(getDevDetailInfoMapKey("S", 0), "S_0");
    EXPECT_EQ(getDevDetailInfoMapKey("S", -1), "S_-1");
    EXPECT_EQ(getDevDetailInfoMapKey("S", INT_MIN), "S_-2147483648");
    EXPECT_EQ(getDevDetailInfoMapKey("S", INT_MAX), "S_2147483647");
    EXPECT_EQ(getDevDetailInfoMapKey("%s%d%n", 1), "%s%d%n_1");
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(DeviceCaches, SerialOf128CharactersIsTheLongest) {
    const std::string longest(128, 's');
    EXPECT_EQ(getDevDetailInfoMapKey(longest, INT_MIN), longest + "_-2147483648");
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(DeviceCaches, SerialOf129CharactersOrNoneIsItselfTheKey) {
    for (const size_t length : {0U, 129U, 1000U}) {
        const std::string serial(length, 's');
        lines.Clear();
        EXPECT_EQ(getDevDetailInfoMapKey(serial, 7), serial) << length;
        EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::getDevDetailInfoMapKey",
                                           "设备序列号参数错误, Serial:" + serial + " Channel:7"));
        EXPECT_EQ(lines.Lines().size(), 1U);
    }
}

// ---- The plain read

TEST_F(DeviceCaches, ReadOfAnAbsentChannelFails) {
    channel.cameraId = "kept";
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), VANTIX_ERROR);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::getDevInfoCache", "m_mapDevDetailInfo not exist key = C1_1"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(channel.cameraId, "kept");
}

TEST_F(DeviceCaches, ReadServesCopiesMarkedAsCached) {
    clock.SetSteadyStep(5'000'000);
    Cache("C1", 1, WithDevice("C1", 1, "deviceIP", "10.0.0.1"));
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), VANTIX_NOERROR);
    EXPECT_TRUE(lines.Lines().empty());
    EXPECT_EQ(channel.deviceSerial, "C1");
    EXPECT_EQ(channel.cameraNo, 1);
    EXPECT_EQ(device.deviceIP, "10.0.0.1");
    EXPECT_EQ(device.iRequestCost, 0);
    EXPECT_TRUE(device.isFromCache);
    EXPECT_FALSE(device.isUpdate);
    EXPECT_EQ(device.tCacheTime, clock.Wall());
    device.deviceIP = "changed";
    DevDetailInfo again;
    core.getDevInfoCache("C1", 1, channel, again);
    EXPECT_EQ(again.deviceIP, "10.0.0.1");
}

TEST_F(DeviceCaches, ReadAfterClearingTheDevicesNamesTheOtherCache) {
    Cache("C1", 1, WithDevice("C1", 1, "supportExt", {{"support_seek_playback", "1"}}));
    EXPECT_EQ(core.ClearDeviceInfoCache(), 0);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::ClearDeviceInfoCache", "m_mapDeviceInfoCache clear"));
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), VANTIX_ERROR);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::getDevInfoCache", "m_mapDeviceInfoCache not exist key = C1_1"));
    EXPECT_EQ(channel.deviceSerial, "C1") << "the channel was read before the device was missed";
    EXPECT_EQ(core.IsSupportSeekPlayback("C1"), 1) << "the cache by serial is another";
}

TEST_F(DeviceCaches, OtherReleaseIsNeverServed) {
    for (const char* release : {"", "VERSION_16", "VERSION_170", "version_17", " VERSION_17", "VERSION_17 "}) {
        Cache("C1", 1, WithDevice("C1", 1, "releaseVersion", release));
        device = DevDetailInfo();
        device.deviceIP = "kept";
        EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), VANTIX_DEV_RELEASE_MISMATCH) << release;
        EXPECT_TRUE(lines.Lines().empty());
        EXPECT_EQ(device.deviceIP, "kept");
    }
    auto missing = DetailResponse("C1", 1);
    missing["result"]["data"]["device"].erase("releaseVersion");
    Cache("C1", 1, missing);
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), 600001);
}

TEST_F(DeviceCaches, DeviceRecordIsReadWhateverItsRelease) {
    EXPECT_EQ(core.getDeviceRecord("C1", 1, device), -1);
    Cache("C1", 1, WithDevice("C1", 1, "releaseVersion", "VERSION_1"));
    EXPECT_EQ(core.getDeviceRecord("C1", 1, device), 0);
    EXPECT_EQ(device.releaseVersion, "VERSION_1");
    EXPECT_EQ(core.getDeviceRecord("C1", 2, device), -1);
}

TEST_F(DeviceCaches, SerialsThatAreTooLongAreCachedUnderThemselves) {
    const std::string serial(129, 's');
    Cache(serial, 1, DetailResponse(serial, 1));
    EXPECT_EQ(core.getDevInfoCache(serial, 1, channel, device), 0);
    EXPECT_EQ(core.getDevInfoCache(serial, 2, channel, device), 0) << "the key has no channel";
}

// ---- Marks and clearing

TEST_F(DeviceCaches, MarkingAnAbsentDeviceFails) {
    EXPECT_EQ(core.SetDevInfoCache("C1", 1), -1);
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::SetDevInfoCache", "key not exist strKey= C1_1"));
}

TEST_F(DeviceCaches, MarkIsServedAndClearedByTheNextRefill) {
    Cache("C1", 1, DetailResponse("C1", 1));
    EXPECT_EQ(core.SetDevInfoCache("C1", 1), 0);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::SetDevInfoCache", "Update status successful strKey= C1_1"));
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), 0);
    EXPECT_TRUE(device.isUpdate);
    Cache("C1", 1, DetailResponse("C1", 1));
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), 0);
    EXPECT_FALSE(device.isUpdate);
}

TEST_F(DeviceCaches, MarkConcernsOneChannel) {
    Cache("C1", 1, DetailResponse("C1", 1));
    Cache("C1", 2, DetailResponse("C1", 2));
    core.SetDevInfoCache("C1", 2);
    core.getDevInfoCache("C1", 1, channel, device);
    EXPECT_FALSE(device.isUpdate);
    core.getDevInfoCache("C1", 2, channel, device);
    EXPECT_TRUE(device.isUpdate);
}

TEST_F(DeviceCaches, ClearingAllEmptiesAllThree) {
    auto response = WithDevice("C1", 1, "supportExt", {{"support_seek_playback", "1"}});
    response["result"]["data"]["camera"]["isTrust"] = "5";
    Cache("C1", 1, response);
    EXPECT_EQ(core.ClearAllCache(), 0);
    EXPECT_EQ(lines.Messages().back(), "m_mapDeviceInfoCache clear");
    EXPECT_EQ(core.getChannelCacheValue("C1", 1), -1);
    EXPECT_EQ(core.IsSupportSeekPlayback("C1"), 0);
    EXPECT_EQ(core.getDeviceRecord("C1", 1, device), -1);
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, device), -1);
}

/// The caches of fetches beside the device's, and what is none.
using AllCaches = FetchTest;

TEST_F(AllCaches, ClearingAllEndsServersUserAndP2PDevices) {
    ServerInfo servers;
    P2PUserInfo user;
    P2PDevInfo device;
    const auto fetch = [&] {
        transport.DropScript();
        for (const char* response : {kPlatformServers, kPlatformUser, kPlatformDevice}) {
            transport.Respond(response);
        }
        const size_t before = transport.Count();
        EXPECT_EQ(core.getServerInfo("own-token", servers, false), 0);
        EXPECT_EQ(core.getP2PUserInfo("own-token", user, false), 0);
        EXPECT_EQ(core.getP2PDevInfo(device, "own-token", "OWN", false), 0);
        return transport.Count() - before;
    };
    EXPECT_EQ(fetch(), 3U);
    EXPECT_EQ(fetch(), 0U);
    EXPECT_EQ(core.ClearDeviceInfoCache(), 0);
    EXPECT_EQ(fetch(), 0U) << "that one is another cache";
    lines.Clear();
    EXPECT_EQ(core.ClearAllCache(), 0);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::ClearDeviceInfoCache", "m_mapDeviceInfoCache clear"));
    EXPECT_EQ(lines.Lines().size(), 1U);
    EXPECT_EQ(fetch(), 3U);
}

TEST_F(AllCaches, ClearingAllKeepsTokensAndSettings) {
    core.setGlobalTkToken("global");
    core.setSharedAccessToken("shared-by-token");
    core.setTokenExpireTime("time");
    core.setCacheTime(5);
    core.setPermissionMode(2);
    EXPECT_EQ(core.ClearAllCache(), 0);
    EXPECT_EQ(core.getDeviceTkTokens(2, "C1", 1), "tk-device");
    EXPECT_EQ(core.getB2CTokens("OWN", 1), "own-token");
    EXPECT_TRUE(core.isB2CSharedDevice("shared-by-token"));
    EXPECT_EQ(core.getGlobalTkToken(), "global");
    EXPECT_EQ(core.getAccessToken(), "access-token");
    EXPECT_EQ(core.getSessionId(), "old-session");
    EXPECT_EQ(core.getTokenExpireTime(), "time");
    EXPECT_EQ(core.getCacheTime(), 300);
    EXPECT_EQ(*core.getPermissionMode(), 2);
    EXPECT_EQ(core.getDomain("SHARED", 1), "https://c.example");
}

TEST_F(DeviceCaches, ClearingEmptyCachesIsFine) {
    EXPECT_EQ(core.ClearAllCache(), 0);
    EXPECT_EQ(core.ClearDeviceInfoCache(), 0);
}

// ---- The channel's value

TEST_F(DeviceCaches, ChannelValueIsTheTrailingInteger) {
    auto response = DetailResponse("C1", 1);
    response["result"]["data"]["camera"]["isTrust"] = "42";
    Cache("C1", 1, response);
    EXPECT_EQ(core.getChannelCacheValue("C1", 1), 42);
    core.setChannelCacheValue("C1", 1, -7);
    EXPECT_EQ(core.getChannelCacheValue("C1", 1), -7);
    core.getDevInfoCache("C1", 1, channel, device);
    EXPECT_EQ(channel.iIsTrust, -7);
    EXPECT_EQ(channel.isTrust, "42");
}

TEST_F(DeviceCaches, ChannelValueOfAnAbsentChannelIsMinusOneAndCannotBeSet) {
    core.setChannelCacheValue("C1", 1, 5);
    EXPECT_EQ(core.getChannelCacheValue("C1", 1), -1);
    EXPECT_TRUE(lines.Lines().empty());
}

// ---- Capability queries

TEST_F(DeviceCaches, SeekingIsSupportedWhenTheCapabilityIsExactlyOne) {
    for (const auto& [value, supported] : {std::pair("1", 1), {"2", 0}, {"-1", 0}, {"0", 0}}) {
        Cache("C1", 1, WithDevice("C1", 1, "supportExt", {{"support_seek_playback", value}}));
        EXPECT_EQ(core.IsSupportSeekPlayback("C1"), supported) << value;
    }
    EXPECT_EQ(core.IsSupportSeekPlayback("absent"), 0);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(DeviceCaches, EmptySerialIsLoggedByBothQueries) {
    EXPECT_EQ(core.IsSupportSeekPlayback(""), 0);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::IsSupportSeekPlayback", "strSerial invalid, Serial:"));
    lines.Clear();
    EXPECT_EQ(core.IsSupportPlaybackSpeed("", 2), 0);
    EXPECT_THAT(lines.Lines(),
                HasLine(5, "ERROR", "CVantixDataCenter::IsSupportPlaybackSpeed", "strSerial invalid, Serial:"));
}

TEST_F(DeviceCaches, SmallSpeedsNeedExactlyOneAndAllOthersMerelyNotZero) {
    const std::set<int> small{2, 3, 5, 7, 9};
    for (const char* value : {"0", "1", "2", "-1"}) {
        nlohmann::json onlySmall = {{"support_device_playback_small_speed", value}};
        nlohmann::json onlyQuick = {{"support_quickplay_way", value}};
        Cache("SMALL", 1, WithDevice("SMALL", 1, "supportExt", onlySmall));
        Cache("QUICK", 1, WithDevice("QUICK", 1, "supportExt", onlyQuick));
        const bool isOne = std::string(value) == "1";
        const bool isNotZero = std::string(value) != "0";
        for (const int speed : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 34, 37, INT_MAX}) {
            SCOPED_TRACE(std::string(value) + " at speed " + std::to_string(speed));
            const bool isSmall = small.contains(speed);
            EXPECT_EQ(core.IsSupportPlaybackSpeed("SMALL", speed), isSmall && isOne ? 1 : 0);
            EXPECT_EQ(core.IsSupportPlaybackSpeed("QUICK", speed), !isSmall && isNotZero ? 1 : 0);
        }
    }
    EXPECT_EQ(core.IsSupportPlaybackSpeed("absent", 2), 0);
    EXPECT_EQ(core.IsSupportPlaybackSpeed("absent", 4), 0);
}

}  // namespace
}  // namespace vantix::test
