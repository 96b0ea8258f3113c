// The members of the settings: their order, and the types that let several threads use them.

#include <atomic>
#include <type_traits>

#include "core/settings/Settings.h"
#include "unit/core/CoreTest.h"

namespace vantix::test {
namespace {

static_assert(std::is_same_v<decltype(Settings::iCacheTime), std::atomic<int32_t>>, "stored by an exchange");
static_assert(std::is_same_v<decltype(Settings::iCloseBlong), std::atomic<int32_t>>);
static_assert(std::is_same_v<decltype(Settings::permissionMode), Guarded<int>>);
static_assert(std::is_same_v<decltype(Settings::accessToken), Guarded<std::string>>);
static_assert(std::is_same_v<decltype(Settings::globalTkToken), Guarded<std::string>>);
static_assert(std::is_same_v<decltype(Settings::sharedAccessToken), Guarded<std::string>>);
static_assert(std::is_same_v<decltype(Settings::sessionId), Guarded<std::string>>);
static_assert(std::is_same_v<decltype(iLogLevel), std::atomic<int32_t>>);

struct Member {
    const char* name;
    const void* address;
};

void ExpectInThisOrder(const std::vector<Member>& members) {
    for (size_t i = 1; i < members.size(); ++i) {
        EXPECT_LT(members[i - 1].address, members[i].address) << members[i].name << " stands before its predecessor";
    }
}

TEST(SettingsLayout, MembersStandInTheOrderInWhichTheyAreDocumented) {
    const Settings settings;
    ExpectInThisOrder({
        {"config", &settings.config},
        {"AreaBDomain", &settings.AreaBDomain},
        {"CDomain", &settings.CDomain},
        {"AuthAddr", &settings.AuthAddr},
        {"appID", &settings.appID},
        {"accessToken", &settings.accessToken},
        {"TokenExpireTime", &settings.TokenExpireTime},
        {"RefreshToken", &settings.RefreshToken},
        {"OpenID", &settings.OpenID},
        {"Scope", &settings.Scope},
        {"State", &settings.State},
        {"iCacheTime", &settings.iCacheTime},
        {"iCloseBlong", &settings.iCloseBlong},
        {"permissionMode", &settings.permissionMode},
        {"globalTkToken", &settings.globalTkToken},
        {"sharedAccessToken", &settings.sharedAccessToken},
        {"sessionId", &settings.sessionId},
    });
}

TEST(SettingsLayout, PlatformConfigurationIsFourNumbersWithTheirDefaults) {
    const Settings::PlatformConfig config;
    ExpectInThisOrder({
        {"VTDUType", &config.VTDUType},
        {"bEableDataCollect", &config.bEableDataCollect},
        {"OpenP2P", &config.OpenP2P},
        {"reserved", &config.reserved},
    });
    EXPECT_EQ(config.VTDUType, 1);
    EXPECT_EQ(config.bEableDataCollect, 2);
    EXPECT_EQ(config.OpenP2P, 1);
    EXPECT_EQ(config.reserved, 1);
}

using PlatformConfigOf = CoreTest;

TEST_F(PlatformConfigOf, ClosingP2PLeavesTheOtherNumbersAlone) {
    Settings::PlatformConfig& config = Parts().settings.config;
    config.VTDUType = -7;
    config.bEableDataCollect = 8;
    config.reserved = 9;
    for (const int close : {1, 0, 2, -1}) {
        core.setCloseP2P(close);
        EXPECT_EQ(config.VTDUType, -7) << close;
        EXPECT_EQ(config.bEableDataCollect, 8) << close;
        EXPECT_EQ(config.reserved, 9) << close;
    }
}

TEST_F(PlatformConfigOf, NumbersOfTheServerAreStoredAsTheyCome) {
    const Settings::PlatformConfig& config = Parts().settings.config;
    for (const int number : {-5, 0, 1, 3, 2'147'483'647}) {
        transport.Respond(R"({"result":{"code":"200","data":{"streamType":)" + std::to_string(number) +
                          R"(,"dataCollect":)" + std::to_string(number) + R"(,"openP2P":0}}})");
        ConfigInfo fetched;
        EXPECT_EQ(core.getConfigInfo(fetched), 0);
        EXPECT_EQ(config.VTDUType, number);
        EXPECT_EQ(config.bEableDataCollect, number);
        EXPECT_EQ(fetched.dataCollect, number);
        EXPECT_EQ(config.OpenP2P, 1) << "which the host alone sets";
        EXPECT_EQ(config.reserved, 1);
    }
}

}  // namespace
}  // namespace vantix::test
