// Arguments that no sane host would hand in: which keys they have, and what is logged. What is sent of them stands in
// the fault matrix, tests/faults.

#include <gmock/gmock.h>

#include <climits>

#include "SurvivalFixture.h"
#include "support/LineMatcher.h"

namespace vantix::test {
namespace {

using ::testing::Contains;

class ArgumentTest : public SurvivalFixture {
protected:
    /// The body of the only request since the last call.
    std::string OnlyBody() const {
        const auto requests = Cloud().Requests();
        EXPECT_EQ(requests.size(), 1U);
        Cloud().ForgetRequests();
        return requests.empty() ? "" : requests[0].body;
    }
};

constexpr char kBadSerial[] = "设备序列号参数错误, Serial:";

TEST_F(ArgumentTest, EmptySerialIsLoggedSentAndRefused) {
    const LogCapture log;
    EXPECT_EQ(Fetch("", 1), 310001);
    EXPECT_NE(OnlyBody().find("&deviceSerial=&"), std::string::npos);
    Detail detail;
    EXPECT_EQ(ReadCache("", 7, detail), -1);
    EXPECT_THAT(log.Lines(), Contains(Line(5, "ERROR", "CVantixDataCenter::getDevDetailInfoMapKey",
                                           std::string(kBadSerial) + " Channel:7")));
    EXPECT_EQ(log.Count("m_mapDevDetailInfo not exist key = "), 1U);
    const Asked asked = Ask("", 1);
    EXPECT_EQ(asked.returned, -1);
    EXPECT_EQ(asked.fetched, 310001);
    EXPECT_EQ(Center().SetDevInfoCache("", 1), -1);
    EXPECT_EQ(Center().getChannelCacheValue("", 1), -1);
    Center().setChannelCacheValue("", 1, 5);
    EXPECT_EQ(Center().getDevDetailInfoByRelation("", 1, detail.channel, detail.device), 310001);
    ExpectCachesUnchanged();
    ExpectGoodCall();
}

TEST_F(ArgumentTest, SerialOf128CharactersHasAChannelInItsKey) {
    const std::string serial(128, 'S');
    Cloud().Put("/devices/" + serial, {{"nestedAsText", Json::array()}});
    const LogCapture log;
    ASSERT_EQ(Fetch(serial, 1), 0);
    Detail detail;
    EXPECT_EQ(ReadCache(serial, 1, detail), 0);
    EXPECT_EQ(ReadCache(serial, 2, detail), -1);
    EXPECT_FALSE(log.Contains(kBadSerial));
    EXPECT_EQ(log.Count("m_mapDevDetailInfo not exist key = " + serial + "_2"), 1U);
    ExpectCachesUnchanged();
}

TEST_F(ArgumentTest, SerialOf129CharactersIsItsOwnKeyForEveryChannel) {
    const std::string serial(129, 'S');
    Cloud().Put("/devices/" + serial, {{"nestedAsText", Json::array()}});
    const LogCapture log;
    ASSERT_EQ(Fetch(serial, 1), 0);
    EXPECT_NE(OnlyBody().find("&deviceSerial=" + serial + "&"), std::string::npos);
    Detail detail;
    EXPECT_EQ(ReadCache(serial, 2, detail), 0);
    EXPECT_EQ(detail.device.deviceSerial, serial);
    EXPECT_THAT(log.Lines(), Contains(Line(5, "ERROR", "CVantixDataCenter::getDevDetailInfoMapKey",
                                           kBadSerial + serial + " Channel:2")));
    EXPECT_EQ(Center().SetDevInfoCache(serial, 3), 0);
    ExpectCachesUnchanged();
}

TEST_F(ArgumentTest, SerialOfAMillionCharactersIsLoggedAsAnEmptyText) {
    const std::string serial(1'000'000, 'S');
    const LogCapture log;
    EXPECT_EQ(Fetch(serial, 1), 320002);
    EXPECT_EQ(Center().IsSupportSeekPlayback(serial), 0);
    EXPECT_FALSE(log.Contains("SSSS"));
}

TEST_F(ArgumentTest, ChannelsAtTheEndsOfTheirRangeHaveKeysOfTheirOwn) {
    const std::pair<int, const char*> channels[] = {
        {0, "0"}, {-1, "-1"}, {INT_MAX, "2147483647"}, {INT_MIN, "-2147483648"}};
    for (const auto& [channel, text] : channels) {
        SCOPED_TRACE(text);
        const LogCapture log;
        Detail detail;
        EXPECT_EQ(ReadCache(kCamera, channel, detail), -1);
        EXPECT_EQ(log.Count(std::string("m_mapDevDetailInfo not exist key = C10000001_") + text), 1U);
    }
}

TEST_F(ArgumentTest, BrokenTokenListsKeepTheOldOnes) {
    SetDeviceTokens();
    for (const std::string text : {"", "no json", "[{", "\xEF\xBB\xBF[]"}) {
        Center().SetDeviceTkTokens(text);
        Center().SetB2CTokens(text);
    }
    std::string token;
    EXPECT_EQ(Center().getDeviceTkTokens(token, 3, kCamera, 1), "tk.video-C10000001-1");
    EXPECT_EQ(Center().getB2CTokens(kCamera, 1, token), "b2c.C10000001");
    Center().SetDeviceTkTokens(R"([1,"x",null,{"deviceSerial":5,"channelNo":{}},{}])");
    Center().SetB2CTokens(R"({"not":"an array"})");
    EXPECT_EQ(Center().getDeviceTkTokens(token, 3, kCamera, 1), "");
    EXPECT_EQ(Center().getB2CTokens(kCamera, 1, token), "");
    ExpectCachesUnchanged();
}

TEST_F(ArgumentTest, NullTokenBufferIsRefused) {
    EXPECT_EQ(Center().GetStreamTokenFromQueue(Account("accessToken"), nullptr), -1);
}

}  // namespace
}  // namespace vantix::test
