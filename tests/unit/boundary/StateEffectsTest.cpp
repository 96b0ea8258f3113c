// The slots below 60 that read or change what the core keeps: what is there before and after.

#include "support/DetailResponse.h"
#include "support/LocalFile.h"
#include "support/Operations.h"
#include "unit/boundary/EffectTest.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

class StateEffects : public HandleTest {
protected:
    StateEffects() {
        handle->setDomain("https://b.example", "https://c.example");
        handle->setAccessToken("access-token");
    }
    ~StateEffects() override { ServePrefetchedToken("access-token"); }
    StateEffects(const StateEffects&) = delete;
    StateEffects& operator=(const StateEffects&) = delete;

    /// Fetches the detail of a channel, with a channel value of 7 and this support of seeking, of other speeds and of
    /// small ones.
    void CacheDevice(const std::string& serial, int ch, const char* seek, const char* quick, const char* small) {
        nlohmann::json response = DetailResponse(serial, ch);
        nlohmann::json& data = response["result"]["data"];
        data["camera"]["isTrust"] = "7";
        data["device"]["deviceIP"] = "ip of " + serial + " " + std::to_string(ch);
        data["device"]["supportExt"] = {{"support_seek_playback", seek},
                                        {"support_quickplay_way", quick},
                                        {"support_device_playback_small_speed", small}};
        transport.Respond(response.dump());
        DevChannelInfo channel;
        DevDetailInfo device;
        ASSERT_EQ(handle->getDevDetailInfoSync(serial, ch, true, channel, device), 0);
    }
    /// The device of a channel as the device cache has it; empty when it is not there.
    std::string RecordOf(const std::string& serial, int ch) {
        DevDetailInfo device;
        return handle->getDeviceRecord(serial, ch, device) == 0 ? device.deviceIP : "";
    }
    /// Fetches servers, user and P2P device, and returns how many requests that took.
    size_t RequestsForTheOthers() {
        transport.DropScript();
        transport.Respond(R"({"resultCode":"200","serverResp":{"stun1Addr":"stun"}})");
        transport.Respond(R"({"resultCode":"200","result":{"data":{"userId":"user","data":"hush"}}})");
        transport.Respond(R"({"resultCode":"200","result":{"data":{"defaultKey":"key"}}})");
        const size_t before = transport.Count();
        ServerInfo servers;
        P2PUserInfo user;
        P2PDevInfo device;
        handle->getServerInfo("access-token", servers);
        handle->getP2PUserInfo("access-token", user);
        handle->getP2PDevInfo(device, "access-token", "C1");
        const size_t requests = transport.Count() - before;
        transport.DropScript();
        return requests;
    }
};

EFFECT_TEST(StateEffects, ChannelValueIsThatOfTheChannelAndTheHostsFromThenOn, "getChannelCacheValue",
            "setChannelCacheValue") {
    CacheDevice("C1", 1, "0", "0", "0");
    CacheDevice("C1", 2, "0", "0", "0");
    EXPECT_EQ(handle->getChannelCacheValue("C1", 1), 7);
    handle->setChannelCacheValue("C1", 1, -3);
    EXPECT_EQ(handle->getChannelCacheValue("C1", 1), -3);
    EXPECT_EQ(handle->getChannelCacheValue("C1", 2), 7);
    DevChannelInfo channel;
    DevDetailInfo device;
    ASSERT_EQ(handle->getDevInfoCache("C1", 1, channel, device), 0);
    EXPECT_EQ(channel.iIsTrust, -3);
}

EFFECT_TEST(StateEffects, CapabilitiesAreThoseOfTheDevice, "IsSupportSeekPlayback", "IsSupportPlaybackSpeed") {
    CacheDevice("SEEKS", 1, "1", "0", "0");
    CacheDevice("QUICK", 1, "0", "5", "0");
    CacheDevice("SMALL", 1, "0", "0", "1");
    const struct {
        const char* serial;
        int seeks;
        int atFour;
        int atFive;
    } rows[] = {{"SEEKS", 1, 0, 0}, {"QUICK", 0, 1, 0}, {"SMALL", 0, 0, 1}, {"ABSENT", 0, 0, 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(handle->IsSupportSeekPlayback(row.serial), row.seeks) << row.serial;
        EXPECT_EQ(handle->IsSupportPlaybackSpeed(row.serial, 4), row.atFour) << row.serial;
        EXPECT_EQ(handle->IsSupportPlaybackSpeed(row.serial, 5), row.atFive) << row.serial;
    }
}

EFFECT_TEST(StateEffects, BothRecordSlotsCopyTheChannelsDeviceOut, "getDeviceRecord", "getDeviceRecordAlt") {
    CacheDevice("C1", 1, "0", "0", "0");
    CacheDevice("C1", 2, "0", "0", "0");
    DevDetailInfo device;
    EXPECT_EQ(handle->getDeviceRecord("C1", 2, device), 0);
    EXPECT_EQ(device.deviceIP, "ip of C1 2");
    EXPECT_EQ(handle->getDeviceRecordAlt("C1", 1, device), 0);
    EXPECT_EQ(device.deviceIP, "ip of C1 1");
    EXPECT_EQ(handle->getDeviceRecordAlt("C1", 3, device), -1);
    EXPECT_EQ(handle->getDeviceRecord("C1", 3, device), -1);
    EXPECT_EQ(device.deviceIP, "ip of C1 1");
}

EFFECT_TEST(StateEffects, ClearingTheDevicesEmptiesThatCacheAlone, "ClearDeviceInfoCache") {
    CacheDevice("C1", 1, "1", "0", "0");
    EXPECT_EQ(RequestsForTheOthers(), 3U);
    EXPECT_EQ(handle->ClearDeviceInfoCache(), 0);
    EXPECT_EQ(RecordOf("C1", 1), "");
    EXPECT_EQ(handle->getChannelCacheValue("C1", 1), 7);
    EXPECT_EQ(handle->IsSupportSeekPlayback("C1"), 1);
    EXPECT_EQ(RequestsForTheOthers(), 0U);
}

EFFECT_TEST(StateEffects, ClearingAllEmptiesEveryCache, "ClearAllCache") {
    CacheDevice("C1", 1, "1", "0", "0");
    EXPECT_EQ(RequestsForTheOthers(), 3U);
    EXPECT_EQ(RequestsForTheOthers(), 0U);
    EXPECT_EQ(handle->ClearAllCache(), 0);
    EXPECT_EQ(RecordOf("C1", 1), "");
    EXPECT_EQ(handle->getChannelCacheValue("C1", 1), -1);
    EXPECT_EQ(handle->IsSupportSeekPlayback("C1"), 0);
    EXPECT_EQ(RequestsForTheOthers(), 3U);
    EXPECT_EQ(handle->getAccessToken(), "access-token");
}

EFFECT_TEST(StateEffects, ServersExpireAfterTwoMinutesAndNothingElseDoes, "expireServerInfo") {
    CacheDevice("C1", 1, "1", "0", "0");
    EXPECT_EQ(RequestsForTheOthers(), 3U);
    clock.AdvanceSeconds(120);
    handle->expireServerInfo();
    EXPECT_EQ(RequestsForTheOthers(), 0U);
    clock.AdvanceSeconds(1);
    handle->expireServerInfo();
    EXPECT_EQ(RequestsForTheOthers(), 1U) << "for the servers";
    EXPECT_EQ(RecordOf("C1", 1), "ip of C1 1");
}

EFFECT_TEST(StateEffects, PrefetchedTokenIsFetchedOnceAndServedOnce, "GetStreamTokenFast", "GetStreamTokenFromQueue") {
    std::array<char, 4097> buffer{};
    EXPECT_EQ(handle->GetStreamTokenFromQueue("access-token", buffer.data()), -1);
    transport.Respond(R"({"resultCode":"200","tokenArray":["stream-1"]})");
    EXPECT_EQ(handle->GetStreamTokenFast(), 0);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_EQ(handle->GetStreamTokenFast(), 0);
    EXPECT_EQ(transport.Count(), 1U) << "one is there";
    EXPECT_EQ(handle->GetStreamTokenFromQueue("another token", buffer.data()), -1);
    EXPECT_STREQ(buffer.data(), "");
    EXPECT_EQ(handle->GetStreamTokenFromQueue("access-token", buffer.data()), 0);
    EXPECT_STREQ(buffer.data(), R"({"resultCode":"200","tokenArray":["stream-1"]})");
    EXPECT_EQ(handle->GetStreamTokenFromQueue("access-token", buffer.data()), -1);
}

TEST_F(StateEffects, RenewedCredentialsAreTheCoresFromThenOn) {
    handle->setAuthAddr("https://a.example");
    handle->setAppId("app");
    handle->setRefreshToken("refresh");
    handle->setOpenID("open");
    std::string token;
    transport.Fail(7);
    transport.Respond(R"({"result":{"code":"200","data":{"access_token":"renewed","openId":"open",
                                                         "refresh_token":"next","expires_in":7200}}})");
    EXPECT_EQ(handle->RefreshToken(token), -1);
    EXPECT_EQ(handle->getAccessToken(), "access-token");
    EXPECT_EQ(handle->RefreshToken(token), 0);
    EXPECT_EQ(token, "renewed");
    EXPECT_EQ(handle->getAccessToken(), "renewed");
    EXPECT_EQ(handle->getTokenExpireTime(), "7200");
}

TEST_F(StateEffects, QueuedStreamTokensAreServedWithoutARequest) {
    transport.Respond(R"({"resultCode":"200","tokenArray":["stream-1","stream-2"]})");
    std::string token;
    EXPECT_EQ(handle->getOneStreamToken("new-owner", token), 0);
    EXPECT_EQ(token, "stream-1");
    EXPECT_EQ(handle->getAccessToken(), "new-owner");
    EXPECT_EQ(handle->getOneStreamToken("new-owner", token), 0);
    EXPECT_EQ(token, "stream-2");
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(StateEffects, ConfigurationOfThePlatformBecomesTheCores) {
    EXPECT_TRUE(handle->isVTDUType1());
    transport.Respond(R"({"result":{"code":"200","data":{"streamType":2,"dataCollect":1,"openP2P":0}}})");
    ConfigInfo config;
    EXPECT_EQ(handle->getConfigInfo(config), 0);
    EXPECT_FALSE(handle->isVTDUType1());
    EXPECT_TRUE(handle->isOpenP2P()) << "which the host alone sets";
    transport.Respond(R"({"result":{"code":"200","data":{"streamType":1,"dataCollect":2,"openP2P":1}}})");
    EXPECT_EQ(handle->getConfigInfo(config), 0);
    EXPECT_TRUE(handle->isVTDUType1());
}

EFFECT_TEST(StateEffects, UploadIsSentAndItsResultReturned, "UploadCloudPicFile") {
    const LocalFile picture(u8"gate.jpg");
    transport.Respond("");
    EXPECT_EQ(handle->UploadCloudPicFile("https://u.example/put", picture.Path()), 0);
    ASSERT_EQ(transport.Count(), 1U);
    EXPECT_EQ(transport.Sent()[0].url, "https://u.example/put");
}

}  // namespace
}  // namespace vantix::test
