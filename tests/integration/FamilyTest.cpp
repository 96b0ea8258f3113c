// Both server families describe the same devices: what they return alike, and the fields that one of them cannot fill.

#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "OperationFixture.h"
#include "support/DetailJson.h"
#include "support/FakeClock.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

using Fields = std::set<std::string>;

// Never filled by the consumer servers: such a field keeps its default.
const Fields kOfThePlatformsChannel = {"type", "capability", "status", "streamBiz", "isTrust"};
const Fields kOfThePlatformsDevice = {"devicePort",  "streamPort",     "localDevicePort", "ppvsAddr",
                                      "ppvsPort",    "releaseVersion", "belongSerial",    "belongNo",
                                      "belongAdded", "belongState",    "deviceStatus",    "gbJtTtsIP",
                                      "gbJtTtsPort", "vtmBackups",     "iShareVerif"};
const Fields kOfThePlatformsServers = {"logAddr", "microCloudMode", "vtmBackups"};

class FamilyTest : public OperationFixture {
protected:
    enum Family { kPlatform, kConsumer };

    /// Makes all devices the account's own, or devices that others share with it. Only the latter are asked for on the
    /// consumer servers, and only in mode 2.
    void Choose(Family family, int mode) const {
        Json tokens = Json::array();
        for (const auto& [serial, ch] : Channels()) {
            tokens.push_back({{"token", std::string("b2c.").append(serial)},
                              {"deviceSerial", serial},
                              {"channelNo", std::to_string(ch)},
                              {"isShared", family == kConsumer ? 1 : 0}});
        }
        Cloud().Put("/account", {{"b2cTokens", tokens}});
        Center().SetB2CTokens(tokens.dump());
        SetPermissionMode(mode);
        Center().ClearAllCache();
    }
    Outputs Succeed(const char* operation, const Arguments& arguments) const {
        Outputs outputs;
        EXPECT_EQ(Call(Center(), operation, arguments, outputs).result, 0) << operation;
        return outputs;
    }
    Json DetailOf(const std::string& serial, int ch) const {
        const Outputs outputs = Succeed("getDevDetailInfoSync", {.serial = serial, .ch = ch, .force = true});
        return ToJson(Detail{outputs.channel, outputs.detail});
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
    /// Compares both records. `filled` gathers those of the platform's own fields that it does fill.
    static void Compare(const Json& platform, const Json& consumer, const Json& fresh, const Fields& ofThePlatform,
                        Fields& filled) {
        for (const auto& [key, value] : platform.items()) {
            if (!ofThePlatform.contains(key)) {
                EXPECT_EQ(consumer.at(key), value) << key;
                continue;
            }
            EXPECT_EQ(consumer.at(key), fresh.at(key)) << key;
            if (value != fresh.at(key)) {
                filled.insert(key);
            }
        }
    }
    void ExpectSameDetails(int platformMode) const;

    FakeClock m_clock;
};

/// The platform lists the values of all capabilities, the consumer servers name those that are there.
void CompareCapabilities(const std::string& list, const std::string& object) {
    std::vector<std::string> values(1);
    std::istringstream stream(list);
    for (std::string value; std::getline(stream, value, '|');) {
        values.push_back(value);
    }
    const Json named = Json::parse(object);
    ASSERT_GT(values.size(), 836U);
    for (const size_t number : {149U, 257U, 585U, 836U, 263U}) {
        EXPECT_EQ(named.at(std::to_string(number)), values[number]) << number;
        EXPECT_NE(values[number], "0") << number;
    }
}

/// What the families return in different forms is compared here and taken out of the records.
void CompareForms(Json& platform, Json& consumer) {
    EXPECT_EQ(platform.at("iIsTrust"), 1);
    EXPECT_EQ(consumer.at("iIsTrust"), 0) << "follows isTrust";
    for (Json& quality : platform["channel"]["videoQualityInfos"]) {
        EXPECT_NE(quality.at("videoQualityName"), "");
        quality["videoQualityName"] = "";  // the consumer servers name no quality
    }
    CompareCapabilities(platform["device"]["supportExtShort"], consumer["device"]["supportExtShort"]);
    platform["device"].erase("supportExtShort");
}

void FamilyTest::ExpectSameDetails(int platformMode) const {
    Fields filledOfChannel;
    Fields filledOfDevice;
    const Json fresh = ToJson(Detail());
    for (const auto& [serial, ch] : Channels()) {
        SCOPED_TRACE(std::string(serial).append(" ").append(std::to_string(ch)));
        Choose(kPlatform, platformMode);
        Json platform = DetailOf(serial, ch);
        Choose(kConsumer, 2);
        Json consumer = DetailOf(serial, ch);
        CompareForms(platform, consumer);
        Compare(platform["channel"], consumer["channel"], fresh["channel"], kOfThePlatformsChannel, filledOfChannel);
        Compare(platform["device"], consumer["device"], fresh["device"], kOfThePlatformsDevice, filledOfDevice);
    }
    EXPECT_EQ(filledOfChannel, kOfThePlatformsChannel) << "the platform fills each of them for some channel";
    EXPECT_EQ(filledOfDevice, kOfThePlatformsDevice);
}

TEST_F(FamilyTest, DetailsOfEveryChannelAreTheSame) { ExpectSameDetails(0); }

TEST_F(FamilyTest, DetailsAreTheSameInTheB2CModeToo) { ExpectSameDetails(2); }

TEST_F(FamilyTest, ConsumerServersNameNoReleaseSoThatNoCacheServesTheRecord) {
    Choose(kPlatform, 0);
    EXPECT_EQ(DetailOf(kShared, 1).at("device").at("releaseVersion"), "VERSION_17");
    Choose(kConsumer, 2);
    EXPECT_EQ(DetailOf(kShared, 1).at("device").at("releaseVersion"), "");
    EXPECT_EQ(Call(Center(), "getDevInfoCache", {.serial = kShared}), 600001);
}

TEST_F(FamilyTest, ServersAreTheSame) {
    Json change;
    change["servers"]["microCloudMode"] = true;
    Cloud().Put("/account", change);
    Choose(kPlatform, 0);
    const Json platform = ToJson(Succeed("getServerInfoSync", {.token = Account("accessToken")}).servers);
    Choose(kConsumer, 2);
    const Json consumer = ToJson(Succeed("getServerInfoSync", {.token = "b2c.S60000006"}).servers);
    EXPECT_EQ(Count("/v3/configurations/system/info"), 1U);
    Fields filled;
    Compare(platform, consumer, ToJson(ServerInfo()), kOfThePlatformsServers, filled);
    EXPECT_EQ(filled, kOfThePlatformsServers);
}

TEST_F(FamilyTest, P2PUserIsTheSame) {
    Choose(kPlatform, 0);
    const Json platform = ToJson(Succeed("getP2PUserInfoByToken", {.token = Account("accessToken")}).user);
    Choose(kConsumer, 2);
    const Json consumer = ToJson(Succeed("getP2PUserInfoByToken", {.token = "b2c.S60000006"}).user);
    EXPECT_EQ(Count("/v3/users/info"), 1U);
    EXPECT_EQ(consumer, platform);
    EXPECT_EQ(platform.at("userId"), "u-10001");
    EXPECT_EQ(platform.at("data"), "p2p-user-secret-1b2c3d4e");
}

/// The key differs by its source: the platform hands out the P2P key, the consumer servers that of their key service.
TEST_F(FamilyTest, P2PDeviceIsTheSameButForItsKey) {
    Json change;
    change["p2p"] = {{"secretKey", "one key"}, {"keyVersion", 9}, {"defaultKey", "one key"}, {"defaultKeyVer", "9"}};
    Cloud().Put("/devices/S60000006", change);
    Choose(kPlatform, 0);
    Json platform =
        ToJson(Succeed("getP2PDevInfoBySerial", {.serial = kShared, .token = Account("accessToken")}).p2pDevice);
    Choose(kConsumer, 2);
    const Json consumer =
        ToJson(Succeed("getP2PDevInfoBySerial", {.serial = kShared, .token = "b2c.S60000006"}).p2pDevice);
    EXPECT_EQ(Count("/v3/userdevices/v1/devices/pagelist"), 1U);
    EXPECT_EQ(consumer, platform);
    EXPECT_EQ(platform.at("defaultKey"), "one key");
    EXPECT_EQ(platform.at("serverInfos").size(), 2U);
}

}  // namespace
}  // namespace vantix::test
