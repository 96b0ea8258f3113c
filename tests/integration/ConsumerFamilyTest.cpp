// Both server families describe the same devices: what they tell alike, and the fields that one of them cannot fill.

#include <optional>
#include <set>

#include "RecordJson.h"
#include "base/ProcessSwitches.h"
#include "cserver/DeviceDetail.h"
#include "cserver/P2P.h"
#include "cserver/Server.h"
#include "platform/DeviceDetail.h"
#include "platform/P2P.h"
#include "platform/Server.h"
#include "requests/CapabilityByNumber.h"
#include "support/CoreFixture.h"
#include "support/FakeClock.h"

namespace vantix::test {
namespace {

using Fields = std::set<std::string>;

/// Never filled by the consumer servers: such a field keeps its default.
const Fields kUntoldOfChannel = {"type", "capability", "status", "streamBiz", "isTrust"};
const Fields kUntoldOfDevice = {"devicePort",     "streamPort",   "localDevicePort", "ppvsAddr",    "ppvsPort",
                                "releaseVersion", "belongSerial", "belongNo",        "belongAdded", "belongState",
                                "deviceStatus",   "gbJtTtsIP",    "gbJtTtsPort",     "vtmBackups",  "iShareVerif"};
const Fields kUntoldOfServers = {"logAddr", "microCloudMode", "vtmBackups"};

class FamilyTest : public CoreFixture {
protected:
    Caller Platform() const { return {BDomain(), Account("accessToken"), Account("appKey")}; }
    Caller Consumer() const { return {CDomain(), Account("sessionId"), Account("appKey")}; }

    Json FromPlatform(const std::string& serial, int channel) const {
        Detail detail;
        std::optional<BelongDevInfo> parent;
        EXPECT_EQ(
            GetDevDetailInfoFromPlatformBySerial(Platform(), serial, channel, detail.channel, detail.device, parent),
            0);
        return ToJson(detail);
    }
    Json FromConsumer(const std::string& serial, int channel) const {
        Detail detail;
        EXPECT_EQ(GetDevDetailInfoFromCServerBySerial(Consumer(), serial, channel, detail.channel, detail.device), 0);
        return ToJson(detail);
    }
    /// The serial and number of every channel of the account.
    std::vector<std::pair<std::string, int>> Channels() const {
        std::vector<std::pair<std::string, int>> channels;
        const Json devices = Cloud().Get("/devices");
        for (const Json& device : devices) {
            for (const Json& camera : device.at("cameras")) {
                channels.emplace_back(device.at("deviceSerial"), camera.at("cameraNo"));
            }
        }
        return channels;
    }
    /// Holds both records against each other. `told` gathers the untold fields that the platform does tell.
    static void Compare(const Json& platform, const Json& consumer, const Json& fresh, const Fields& untold,
                        Fields& told) {
        for (const auto& [key, value] : platform.items()) {
            if (!untold.contains(key)) {
                EXPECT_EQ(consumer.at(key), value) << key;
                continue;
            }
            EXPECT_EQ(consumer.at(key), fresh.at(key)) << key;
            if (value != fresh.at(key)) {
                told.insert(key);
            }
        }
    }
    void ExpectSameDetails() const;

    FakeClock m_clock;
};

/// What the families tell in different forms is compared here and taken out of the records.
void CompareForms(Json& platform, Json& consumer) {
    EXPECT_EQ(platform.at("iIsTrust"), 1);
    EXPECT_EQ(consumer.at("iIsTrust"), 0) << "follows isTrust";
    for (Json& quality : platform["channel"]["videoQualityInfos"]) {
        EXPECT_NE(quality.at("videoQualityName"), "");
        quality["videoQualityName"] = "";  // the consumer servers name no quality
    }
    const std::string list = platform["device"]["supportExtShort"];
    const std::string object = consumer["device"]["supportExtShort"];
    for (const unsigned number : {149U, 257U, 585U, 836U, 263U, 270U, 271U}) {
        const bool isB2C = bB2CMode.exchange(true);  // a list that is an object counts in that mode only
        EXPECT_EQ(CapabilityByNumber(object, number), CapabilityByNumber(list, number)) << number;
        bB2CMode = isB2C;
    }
    platform["device"].erase("supportExtShort");
}

void FamilyTest::ExpectSameDetails() const {
    Fields toldOfChannel;
    Fields toldOfDevice;
    const Json fresh = ToJson(Detail());
    for (const auto& [serial, channel] : Channels()) {
        SCOPED_TRACE(serial + " " + std::to_string(channel));
        Json platform = FromPlatform(serial, channel);
        Json consumer = FromConsumer(serial, channel);
        CompareForms(platform, consumer);
        Compare(platform["channel"], consumer["channel"], fresh["channel"], kUntoldOfChannel, toldOfChannel);
        Compare(platform["device"], consumer["device"], fresh["device"], kUntoldOfDevice, toldOfDevice);
    }
    EXPECT_EQ(toldOfChannel, kUntoldOfChannel) << "the platform tells each of them of some channel";
    EXPECT_EQ(toldOfDevice, kUntoldOfDevice);
}

TEST_F(FamilyTest, DetailsOfEveryChannelAreTheSame) { ExpectSameDetails(); }

TEST_F(FamilyTest, DetailsAreTheSameInTheB2CModeToo) {
    SetPermissionMode(2);
    ExpectSameDetails();
}

TEST_F(FamilyTest, ReleaseIsUntoldSoThatNoCacheServesTheRecord) {
    EXPECT_EQ(FromPlatform("S60000006", 1).at("device").at("releaseVersion"), "VERSION_17");
    EXPECT_EQ(FromConsumer("S60000006", 1).at("device").at("releaseVersion"), "");
}

Json ToJson(const ServerInfo& info) {
    Json json = {{"stun1Addr", info.stun1Addr},
                 {"stun1Port", info.stun1Port},
                 {"stun2Addr", info.stun2Addr},
                 {"stun2Port", info.stun2Port},
                 {"ttsAddr", info.ttsAddr},
                 {"ttsPort", info.ttsPort},
                 {"vtmAddr", info.vtmAddr},
                 {"vtmPort", info.vtmPort},
                 {"authAddr", info.authAddr},
                 {"nodeJsAddr", info.nodeJsAddr},
                 {"nodeJsHttpPort", info.nodeJsHttpPort},
                 {"logAddr", info.logAddr},
                 {"pushAddr", info.pushAddr},
                 {"microCloudMode", info.microCloudMode},
                 {"pushDasDomain", info.pushDasDomain},
                 {"pushDasPort", info.pushDasPort},
                 {"vtmBackups", info.vtmBackups.size()},
                 {"iRequestCost", info.iRequestCost}};
    return json;
}

TEST_F(FamilyTest, ServersAreTheSame) {
    Json change;
    change["servers"]["microCloudMode"] = true;
    Cloud().Put("/account", change);
    ServerInfo platform;
    ServerInfo consumer;
    ASSERT_EQ(GetServerInfoFromPlatform(Platform(), platform), 0);
    ASSERT_EQ(GetServerInfoFromCServer(Consumer(), consumer), 0);
    Fields told;
    Compare(ToJson(platform), ToJson(consumer), ToJson(ServerInfo()), kUntoldOfServers, told);
    EXPECT_EQ(told, kUntoldOfServers);
}

TEST_F(FamilyTest, P2PUserIsTheSame) {
    P2PUserInfo platform;
    P2PUserInfo consumer;
    ASSERT_EQ(GetP2PUserInfoFromPlatform(Platform(), platform), 0);
    ASSERT_EQ(GetP2PUserInfoFromCServer(Consumer(), consumer), 0);
    EXPECT_NE(platform.userId, "");
    EXPECT_EQ(consumer.userId, platform.userId);
    EXPECT_NE(platform.data, "");
    EXPECT_EQ(consumer.data, platform.data);
    EXPECT_EQ(consumer.version, platform.version);
    EXPECT_EQ(consumer.saltIndex, platform.saltIndex);
}

/// The key differs by its source: the platform hands out the P2P key, the consumer servers that of their key service.
TEST_F(FamilyTest, P2PDeviceIsTheSameButForItsKey) {
    Json change;
    change["p2p"] = {{"secretKey", "one key"}, {"keyVersion", 9}, {"defaultKey", "one key"}, {"defaultKeyVer", "9"}};
    Cloud().Put("/devices/S60000006", change);
    P2PDevInfo platform;
    P2PDevInfo consumer;
    ASSERT_EQ(GetP2PDevInfoFromPlatform(Platform(), "S60000006", platform), 0);
    ASSERT_EQ(GetP2PDevInfoFromCServer(Consumer(), "S60000006", consumer), 0);
    EXPECT_EQ(consumer.defaultKey, platform.defaultKey);
    EXPECT_EQ(consumer.defaultKeyVer, platform.defaultKeyVer);
    EXPECT_EQ(consumer.strV3, platform.strV3);
    EXPECT_EQ(consumer.strV3Sec, platform.strV3Sec);
    EXPECT_EQ(consumer.strDirectPlayback_EndFlag, platform.strDirectPlayback_EndFlag);
    EXPECT_EQ(consumer.strV3Download, platform.strV3Download);
    EXPECT_EQ(consumer.strV3Playback, platform.strV3Playback);
    EXPECT_EQ(consumer.strV3Talk, platform.strV3Talk);
    ASSERT_EQ(consumer.serverInfos.size(), platform.serverInfos.size());
    for (size_t i = 0; i < platform.serverInfos.size(); ++i) {
        EXPECT_EQ(consumer.serverInfos[i].ip, platform.serverInfos[i].ip);
        EXPECT_EQ(consumer.serverInfos[i].port, platform.serverInfos[i].port);
    }
    EXPECT_EQ(consumer.deviceSerial, "S60000006");
    EXPECT_EQ(platform.deviceSerial, "") << "the one field that only the consumer servers fill";
}

}  // namespace
}  // namespace vantix::test
