// Modes, switches, the cache time and the expiry test.

#include <climits>

#include "unit/core/CoreTest.h"

namespace vantix::test {
namespace {

using Switches = CoreTest;

TEST_F(Switches, DefaultsOfAFreshCore) {
    EXPECT_TRUE(core.isVTDUType1());
    EXPECT_TRUE(core.isOpenP2P());
    EXPECT_EQ(core.getCacheTime(), 86400);
    EXPECT_EQ(core.getLogLevel(), 3);
    EXPECT_FALSE(core.isDataUtf8());
    EXPECT_FALSE(core.isCloseBelongSerial());
    EXPECT_EQ(*core.getPermissionMode(), 0);
    EXPECT_FALSE(bB2CMode);
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(Switches, CloseP2PLogsOldAndNewBeforeItStores) {
    core.setCloseP2P(1);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setCloseP2P", "Judge OldOpenP2P:1, NewCloseP2P:1"));
    EXPECT_FALSE(core.isOpenP2P());
    core.setCloseP2P(2);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setCloseP2P", "Judge OldOpenP2P:0, NewCloseP2P:2"));
    EXPECT_TRUE(core.isOpenP2P());
    EXPECT_EQ(lines.Lines().size(), 2U);
}

TEST_F(Switches, CacheTimeIsLoggedInMinutesAndStoredInSeconds) {
    for (const auto& [minutes, seconds] :
         {std::pair(5, 300), {0, 0}, {-1, -60}, {1440, 86400}, {35'791'394, 2'147'483'640}}) {
        core.setCacheTime(minutes);
        EXPECT_EQ(core.getCacheTime(), seconds);
        EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setCacheTime",
                                           "Set iCacheTime = " + std::to_string(minutes)));
    }
}

TEST_F(Switches, CacheTimeWrapsAroundIn32Bits) {
    for (const auto& [minutes, seconds] : {std::pair(35'791'395, -2'147'483'596), {INT_MAX, -60}, {INT_MIN, 0}}) {
        core.setCacheTime(minutes);
        EXPECT_EQ(core.getCacheTime(), seconds) << "minutes * 60, wrapped to 32 bits";
    }
}

TEST_F(Switches, LogLevelIsLoggedUnderTheOldThreshold) {
    core.setLogLevel(5);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setLogLevel", "Set LogLevel, OldLogLevel:3, iLogLevel:5"));
    EXPECT_EQ(core.getLogLevel(), 5);
    lines.Clear();
    core.setLogLevel(1);
    EXPECT_TRUE(lines.Lines().empty()) << "level 3 is below the old threshold of 5";
    core.setLogLevel(2);
    EXPECT_THAT(lines.Lines(),
                HasLine(3, "INFO ", "CVantixDataCenter::setLogLevel", "Set LogLevel, OldLogLevel:1, iLogLevel:2"));
}

TEST_F(Switches, LogLevelTakesAnyNumber) {
    for (const int newLevel : {-1, 0, 6, INT_MIN, INT_MAX}) {
        core.setLogLevel(newLevel);
        EXPECT_EQ(core.getLogLevel(), newLevel);
    }
}

TEST_F(Switches, Utf8IsStoredBeforeItIsLogged) {
    core.setDataUtf8(1);
    EXPECT_TRUE(core.isDataUtf8());
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setDataUtf8", "Judge iDataUtf8:1, bUtf8:1"));
    core.setDataUtf8(2);
    EXPECT_FALSE(core.isDataUtf8());
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setDataUtf8", "Judge iDataUtf8:2, bUtf8:0"));
}

TEST_F(Switches, CloseBelongSerialLogsOldAndNewBeforeItStores) {
    core.setCloseBelongSerial(1);
    EXPECT_TRUE(core.isCloseBelongSerial());
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setCloseBelongSerial",
                                       "Set OldCloseBlong:[0],NewCloseBlong:1"));
    core.setCloseBelongSerial(5);
    EXPECT_FALSE(core.isCloseBelongSerial());
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::setCloseBelongSerial",
                                       "Set OldCloseBlong:[1],NewCloseBlong:5"));
}

TEST_F(Switches, PermissionModeTwoIsTheB2CModeOfTheProcess) {
    for (const int mode : {2, 1, 2, 0, 3, -2, INT_MAX}) {
        core.setPermissionMode(mode);
        EXPECT_EQ(*core.getPermissionMode(), mode);
        EXPECT_EQ(bB2CMode, mode == 2) << mode;
    }
    EXPECT_TRUE(lines.Lines().empty());
}

// ---- Expiry

TEST_F(Switches, EntryIsExpiredOneSecondAfterTheCacheTime) {
    core.setCacheTime(5);
    const int64_t stored = clock.Wall();
    clock.AdvanceSeconds(300);
    EXPECT_FALSE(core.isExpired(stored));
    EXPECT_EQ(lines.Count("Cache timeout "), 0U);
    clock.AdvanceSeconds(1);
    EXPECT_TRUE(core.isExpired(stored));
    EXPECT_THAT(lines.Lines(), HasLine(3, "INFO ", "CVantixDataCenter::isExpired", "Cache timeout "));
}

TEST_F(Switches, DefaultCacheTimeIsADay) {
    const int64_t stored = clock.Wall();
    clock.AdvanceSeconds(86'400);
    EXPECT_FALSE(core.isExpired(stored));
    clock.AdvanceSeconds(1);
    EXPECT_TRUE(core.isExpired(stored));
}

TEST_F(Switches, CacheTimeOfZeroExpiresEverythingOlderThanTheCurrentSecond) {
    core.setCacheTime(0);
    const int64_t stored = clock.Wall();
    EXPECT_FALSE(core.isExpired(stored));
    clock.AdvanceSeconds(1);
    EXPECT_TRUE(core.isExpired(stored));
}

TEST_F(Switches, EntryFromTheFutureIsNotExpired) {
    EXPECT_FALSE(core.isExpired(clock.Wall() + 1));
    EXPECT_FALSE(core.isExpired(clock.Wall() + 1'000'000'000'000));
}

TEST_F(Switches, EntryThatWasNeverStoredIsExpired) { EXPECT_TRUE(core.isExpired(0)); }

TEST_F(Switches, ClockThatJumpsADayBackExpiresNothing) {
    const int64_t stored = clock.Wall();
    clock.AdvanceSeconds(-86'400);
    EXPECT_FALSE(core.isExpired(stored));
    clock.AdvanceSeconds(2 * 86'400 + 1);
    EXPECT_TRUE(core.isExpired(stored));
}

TEST_F(Switches, AgesBeyond32BitsAreUnderstood) {
    core.setCacheTime(35'791'394);
    clock.SetWall(int64_t{1} << 40);
    EXPECT_TRUE(core.isExpired((int64_t{1} << 40) - 2'147'483'641));
    EXPECT_FALSE(core.isExpired((int64_t{1} << 40) - 2'147'483'640));
    EXPECT_TRUE(core.isExpired(1));
}

TEST_F(Switches, NothingExpiresWithoutAClock) {
    clock.Break();
    core.setCacheTime(0);
    lines.Clear();
    EXPECT_FALSE(core.isExpired(0));
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::isExpired", "time(NULL) is error "));
    EXPECT_EQ(lines.Lines().size(), 1U);
}

}  // namespace
}  // namespace vantix::test
