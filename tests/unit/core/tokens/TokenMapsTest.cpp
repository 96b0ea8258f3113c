// What both token maps have in common: their kind, their locks, how they are made and how long they last.

#include <type_traits>

#include "core/tokens/TokenText.h"
#include "unit/core/CoreTest.h"
#include "unit/core/TakenLocks.h"

namespace vantix::test {
static_assert(std::is_same_v<B2CTokenMap, std::unordered_map<std::string, B2CToken>>, "look-ups by key are by hash");
static_assert(std::is_same_v<DeviceTkTokenMap, std::unordered_map<std::string, DeviceTkTokens>>);

using TkMap = Guarded<std::shared_ptr<const DeviceTkTokenMap>>;
const TkMap& TkMapOf(const vantix::TkTokens& tokens);

/// Only the class reaches its map; an explicit instantiation may name a private member.
template <TkMap vantix::TkTokens::*kMap>
struct PrivateTkMap {
    friend const TkMap& TkMapOf(const vantix::TkTokens& tokens) { return tokens.*kMap; }
};
template struct PrivateTkMap<&vantix::TkTokens::m_mapDeviceTkTokens>;

namespace {

constexpr char kTk[] = R"([{"deviceTkToken":"tk","deviceSerial":"A","channelNo":"1"}])";
constexpr char kB2C[] = R"([{"token":"b2c","deviceSerial":"A","channelNo":"1","isShared":1}])";

class TokenMaps : public CoreTest {
protected:
    void SetBoth() {
        core.SetDeviceTkTokens(kTk);
        core.SetB2CTokens(kB2C);
        lines.Clear();
    }
    void* TkLock() {
        return OnlyLockOf([&] { TkMapOf(Parts().tkTokens).Copy(); });
    }
    void* B2CLock() {
        return OnlyLockOf([&] { Parts().b2cTokens.Current(); });
    }
};

TEST(TokenRecords, MembersStandInTheOrderInWhichTheHostNamesThem) {
    const DeviceTkTokens tk;
    const std::string* const texts[] = {
        &tk.deviceTkToken, &tk.deviceVideoTkToken, &tk.previewTkToken, &tk.playTackTkToken,
        &tk.talkTkToken,   &tk.deviceSerial,       &tk.channelNo,
    };
    for (size_t i = 0; i < std::size(texts); ++i) {
        EXPECT_EQ(texts[i], texts[0] + i) << i;
    }
    EXPECT_EQ(sizeof(tk), 7 * sizeof(std::string)) << "and nothing else";
    const B2CToken b2c;
    EXPECT_EQ(&b2c.deviceSerial, &b2c.token + 1);
    EXPECT_EQ(&b2c.channelNo, &b2c.token + 2);
    static_assert(std::is_same_v<decltype(b2c.isShared), int32_t>);
}

TEST_F(TokenMaps, NewOnesBeginWithEightBuckets) {
    static_assert(kTokenBuckets == 8);
    SetBoth();
    const auto tk = TkMapOf(Parts().tkTokens).Copy();
    EXPECT_EQ(tk->bucket_count(), DeviceTkTokenMap(8).bucket_count());
    EXPECT_EQ(tk->max_load_factor(), 1.0F);
    const auto b2c = Parts().b2cTokens.Current();
    EXPECT_EQ(b2c->bucket_count(), B2CTokenMap(8).bucket_count());
    EXPECT_EQ(b2c->max_load_factor(), 1.0F);
}

TEST_F(TokenMaps, HaveOneLockEachWhichIsTakenOnce) {
    EXPECT_NE(TkLock(), B2CLock());
    EXPECT_EQ(OnlyLockOf([&] { core.SetDeviceTkTokens(kTk); }), TkLock());
    EXPECT_EQ(OnlyLockOf([&] { core.SetB2CTokens(kB2C); }), B2CLock());
    EXPECT_EQ(OnlyLockOf([&] { core.getB2CTokens("A", 1); }), B2CLock());
    EXPECT_EQ(OnlyLockOf([&] { core.isB2CSharedDevice("A", 1); }), B2CLock());
    const std::vector<void*> taken = LocksTakenBy([&] { core.getDeviceTkTokens(2, "A", 1); });
    EXPECT_EQ(std::count(taken.begin(), taken.end(), TkLock()), 1);
}

TEST_F(TokenMaps, AreReadAndBuiltBeforeTheirLockIsTakenAndCountedAfterIt) {
    iLogLevel = level::kTrace;
    using Messages = std::vector<std::string>;
    std::vector<Messages> seen;
    const LockRecorder recorder([&] { seen.push_back(lines.Messages()); });
    core.SetB2CTokens(kB2C);
    const Messages built{"setB2CTokens key = A_1 isShared = 1"};
    EXPECT_EQ(seen, (std::vector<Messages>{built, built}));
    seen.clear();
    lines.Clear();
    core.SetDeviceTkTokens(kTk);
    const Messages tkBuilt{"SetDeviceTkTokens key = A1 "};
    EXPECT_EQ(seen, (std::vector<Messages>{tkBuilt, tkBuilt}));
    EXPECT_EQ(lines.Messages().back(), "m_mapDeviceTkTokens size = 1 ");
}

TEST_F(TokenMaps, StandHoweverLateItIs) {
    SetBoth();
    core.setCacheTime(0);
    clock.AdvanceSeconds(int64_t{50} * 365 * 86'400);
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "tk");
    EXPECT_EQ(core.getB2CTokens("A", 1), "b2c");
    EXPECT_TRUE(core.isB2CSharedDevice("A", 1));
    EXPECT_TRUE(core.isB2CSharedDevice("b2c"));
    clock.Break();
    EXPECT_EQ(core.getDeviceTkTokens(2, "A", 1), "tk");
    EXPECT_EQ(core.getB2CTokens("A", 1), "b2c");
}

TEST_F(TokenMaps, ChannelsAreTextsAsTheHostWroteThem) {
    core.SetDeviceTkTokens(R"([{"deviceTkToken":"tk","deviceSerial":"ABC123","channelNo":"01"}])");
    core.SetB2CTokens(R"([{"token":"b2c","deviceSerial":"ABC123","channelNo":"01","isShared":1}])");
    EXPECT_EQ(core.getDeviceTkTokens(2, "ABC123", "01"), "tk");
    EXPECT_EQ(core.getDeviceTkTokens(2, "ABC1230", "1"), "tk") << "one key, ABC12301";
    EXPECT_EQ(core.getDeviceTkTokens(2, "ABC123", 1), "");
    EXPECT_EQ(core.getDeviceTkTokens(2, "ABC123", "1"), "");
    EXPECT_EQ(core.getB2CTokens("ABC123", "01"), "b2c");
    EXPECT_EQ(core.getB2CTokens("ABC123", 1), "");
    EXPECT_FALSE(core.isB2CSharedDevice("ABC123", 1));
}

TEST_F(TokenMaps, SharedAccessTokenCountsBeforeTheMap) {
    core.SetB2CTokens(R"([{"token":"twice","deviceSerial":"A","channelNo":"1","isShared":0}])");
    core.setAccessToken("mine");
    EXPECT_FALSE(core.isB2CSharedDevice("twice"));
    core.setSharedAccessToken("twice");
    EXPECT_TRUE(core.isB2CSharedDevice("twice"));
}

}  // namespace
}  // namespace vantix::test
