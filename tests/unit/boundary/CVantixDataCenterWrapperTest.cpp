// Every slot reaches the core's operation of the same meaning, with its arguments as they came.

#include "boundary/CVantixDataCenterWrapper.h"

#include <gtest/gtest.h>

#include <climits>

#include "core/CVantixDataCenter.h"
#include "support/DetailResponse.h"
#include "unit/boundary/HandleTest.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::test {
namespace {

using WrapperTest = HandleTest;

struct TextSetting {
    const char* name;
    void (IVantixDataCenter::*set)(const std::string&);
    const std::string& (IVantixDataCenter::*get)();
};

constexpr TextSetting kTextSettings[] = {
    {"AuthAddr", &IVantixDataCenter::setAuthAddr, &IVantixDataCenter::getAuthAddr},
    {"AccessToken", &IVantixDataCenter::setAccessToken, &IVantixDataCenter::getAccessToken},
    {"TokenExpireTime", &IVantixDataCenter::setTokenExpireTime, &IVantixDataCenter::getTokenExpireTime},
    {"RefreshToken", &IVantixDataCenter::setRefreshToken, &IVantixDataCenter::getRefreshToken},
    {"OpenID", &IVantixDataCenter::setOpenID, &IVantixDataCenter::getOpenID},
    {"Scope", &IVantixDataCenter::setScope, &IVantixDataCenter::getScope},
    {"State", &IVantixDataCenter::setState, &IVantixDataCenter::getState},
    {"SharedAccessToken", &IVantixDataCenter::setSharedAccessToken, &IVantixDataCenter::getSharedAccessToken},
    {"SessionId", &IVantixDataCenter::setSessionId, &IVantixDataCenter::getSessionId},
};

TEST_F(WrapperTest, TextSettingsHaveAPlaceEach) {
    for (const TextSetting& setting : kTextSettings) {
        (handle->*setting.set)(std::string("value of ") + setting.name);
    }
    handle->setAppId("value of AppId");
    for (const TextSetting& setting : kTextSettings) {
        EXPECT_EQ((handle->*setting.get)(), std::string("value of ") + setting.name);
    }
    std::string appId;
    EXPECT_EQ(handle->getAppId(appId), "value of AppId");
}

TEST_F(WrapperTest, TextSettingsTakeAnyTextAlsoTheEmptyOne) {
    const std::string unusual("CR\r LF\n NUL\0 %s \xFF & = #", 23);
    for (const TextSetting& setting : kTextSettings) {
        SCOPED_TRACE(setting.name);
        for (const std::string& value : {unusual, std::string(100'000, 'x'), std::string()}) {
            (handle->*setting.set)(value);
            EXPECT_EQ((handle->*setting.get)(), value);
        }
    }
}

TEST_F(WrapperTest, GettersReferToTheLiveField) {
    for (const TextSetting& setting : kTextSettings) {
        (handle->*setting.set)("before");
        const std::string& live = (handle->*setting.get)();
        (handle->*setting.set)("after");
        EXPECT_EQ(live, "after") << setting.name;
    }
}

TEST_F(WrapperTest, AppIdIsCopied) {
    handle->setAppId("first");
    std::string copy;
    const std::string& result = handle->getAppId(copy);
    EXPECT_EQ(&result, &copy);
    handle->setAppId("second");
    EXPECT_EQ(copy, "first");
}

TEST_F(WrapperTest, ClosingP2PTakesExactlyOne) {
    EXPECT_TRUE(handle->isOpenP2P());
    handle->setCloseP2P(1);
    EXPECT_FALSE(handle->isOpenP2P());
    for (const int value : {0, 2, -1, INT_MIN, INT_MAX}) {
        handle->setCloseP2P(1);
        handle->setCloseP2P(value);
        EXPECT_TRUE(handle->isOpenP2P()) << value;
    }
}

TEST_F(WrapperTest, CacheTimeIsSetInMinutesAndReadInSeconds) {
    handle->setCacheTime(5);
    EXPECT_EQ(handle->getCacheTime(), 300);
    handle->setCacheTime(0);
    EXPECT_EQ(handle->getCacheTime(), 0);
    handle->setCacheTime(-1);
    EXPECT_EQ(handle->getCacheTime(), -60);
}

TEST_F(WrapperTest, OnlyOneKeepsDataInUtf8) {
    for (const int value : {2, 0, -1, INT_MAX}) {
        handle->setDataUtf8(1);
        EXPECT_TRUE(handle->isDataUtf8());
        handle->setDataUtf8(value);
        EXPECT_FALSE(handle->isDataUtf8()) << value;
    }
}

TEST_F(WrapperTest, OnlyOneClosesTheBelongSerial) {
    EXPECT_FALSE(handle->isCloseBelongSerial());
    handle->setCloseBelongSerial(1);
    EXPECT_TRUE(handle->isCloseBelongSerial());
    handle->setCloseBelongSerial(2);
    EXPECT_FALSE(handle->isCloseBelongSerial());
}

TEST_F(WrapperTest, PermissionModeIsHandedOutAsALivePointer) {
    const int* live = handle->getPermissionMode();
    EXPECT_EQ(*live, 0);
    int mode = 2;
    handle->setPermissionMode(mode);
    mode = 7;
    EXPECT_EQ(*live + mode, 2 + 7) << "the setter took a copy";
    EXPECT_EQ(handle->getPermissionMode(), live);
    EXPECT_TRUE(bB2CMode);
    handle->setPermissionMode(1);
    EXPECT_EQ(*live, 1);
    EXPECT_FALSE(bB2CMode);
}

TEST_F(WrapperTest, GlobalTkTokenIsKeptWhenTheNewOneIsEmpty) {
    handle->setGlobalTkToken("global");
    handle->setGlobalTkToken("");
    EXPECT_EQ(handle->getGlobalTkToken(), "global");
}

TEST_F(WrapperTest, TkTokensComeBackThroughTheCallersText) {
    handle->SetDeviceTkTokens(
        R"([{"deviceTkToken":"d","previewTkToken":"p","deviceSerial":"ABC123","channelNo":"1"}])");
    std::string token = "old";
    const std::string& byText = handle->getDeviceTkTokens(token, 2, "ABC123", "1");
    EXPECT_EQ(&byText, &token);
    EXPECT_EQ(token, "d");
    const std::string& byNumber = handle->getDeviceTkTokens(token, 4, "ABC123", 1);
    EXPECT_EQ(&byNumber, &token);
    EXPECT_EQ(token, "p");
    EXPECT_EQ(handle->getDeviceTkTokensByNumber(token, 2, "absent", 1), "");
}

TEST_F(WrapperTest, B2CTokensComeBackThroughTheCallersText) {
    handle->SetB2CTokens(R"([{"token":"shared","deviceSerial":"ABC123","channelNo":"1","isShared":1},
                            {"token":"own","deviceSerial":"ABC123","channelNo":"2","isShared":0}])");
    std::string token = "old";
    EXPECT_EQ(&handle->getB2CTokens("ABC123", 1, token), &token);
    EXPECT_EQ(token, "shared");
    EXPECT_EQ(&handle->getB2CTokens("ABC123", "2", token), &token);
    EXPECT_EQ(token, "own");
    EXPECT_TRUE(handle->isB2CSharedDevice("ABC123", 1));
    EXPECT_FALSE(handle->isB2CSharedDevice("ABC123", 2));
    EXPECT_TRUE(handle->isB2CSharedDevice("shared"));
    EXPECT_FALSE(handle->isB2CSharedDevice("own"));
}

TEST_F(WrapperTest, DomainIsChosenByDeviceAndByToken) {
    handle->setDomain("https://b.example", "https://c.example");
    handle->SetB2CTokens(R"([{"token":"shared","deviceSerial":"S","channelNo":"1","isShared":1}])");
    handle->setPermissionMode(2);
    EXPECT_EQ(handle->getDomain("S", 1), "https://c.example");
    EXPECT_EQ(handle->getDomain("S", 2), "https://b.example");
    EXPECT_EQ(handle->getDomainByToken("shared"), "https://c.example");
    EXPECT_EQ(handle->getDomainByToken("other"), "https://b.example");
}

TEST_F(WrapperTest, SwitchesWriteTheirLinesInTheCoresName) {
    handle->setCloseP2P(1);
    handle->setCacheTime(5);
    handle->setDataUtf8(1);
    handle->setCloseBelongSerial(1);
    handle->setLogLevel(4);
    const struct {
        const char* message;
        const char* tag;
    } expected[] = {
        {"Judge OldOpenP2P:1, NewCloseP2P:1", "CVantixDataCenter::setCloseP2P"},
        {"Set iCacheTime = 5", "CVantixDataCenter::setCacheTime"},
        {"Judge iDataUtf8:1, bUtf8:1", "CVantixDataCenter::setDataUtf8"},
        {"Set OldCloseBlong:[0],NewCloseBlong:1", "CVantixDataCenter::setCloseBelongSerial"},
        {"Set LogLevel, OldLogLevel:3, iLogLevel:4", "CVantixDataCenter::setLogLevel"},
    };
    const auto written = lines.Lines();
    ASSERT_EQ(written.size(), std::size(expected));
    for (size_t i = 0; i < written.size(); ++i) {
        EXPECT_EQ(written[i].Message(), expected[i].message);
        EXPECT_EQ(written[i].Tag(), expected[i].tag);
        EXPECT_EQ(written[i].Word(), "INFO ");
        EXPECT_EQ(written[i].level, 3U);
    }
}

TEST_F(WrapperTest, DetailCachesAreReachedBySlot) {
    handle->setAccessToken("token");
    handle->setDomain("https://b.example", "");
    auto response = DetailResponse("C1", 2);
    response["result"]["data"]["camera"]["isTrust"] = "7";
    response["result"]["data"]["device"]["supportExt"] = {{"support_seek_playback", "1"},
                                                          {"support_quickplay_way", "2"}};
    transport.Respond(response.dump());
    DevChannelInfo channelInfo;
    DevDetailInfo detail;
    std::future<int32_t> future;
    EXPECT_EQ(handle->getDevDetailInfo("C1", 2, channelInfo, detail, future), -1);
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(handle->getDevDetailInfoSync("C1", 2, false, channelInfo, detail), 0);
    EXPECT_EQ(handle->getDevDetailInfoByRelation("C1", 2, channelInfo, detail), 0);
    EXPECT_EQ(handle->getChannelCacheValue("C1", 2), 7);
    handle->setChannelCacheValue("C1", 2, 8);
    EXPECT_EQ(handle->getChannelCacheValue("C1", 2), 8);
    EXPECT_EQ(handle->getChannelCacheValue("C1", 1), -1);
    EXPECT_EQ(handle->IsSupportSeekPlayback("C1"), 1);
    EXPECT_EQ(handle->IsSupportPlaybackSpeed("C1", 4), 1);
    EXPECT_EQ(handle->IsSupportPlaybackSpeed("C1", 5), 0);
    EXPECT_EQ(handle->SetDevInfoCache("C1", 2), 0);
    EXPECT_EQ(handle->getDeviceRecord("C1", 2, detail), 0);
    EXPECT_TRUE(detail.isUpdate);
    EXPECT_EQ(handle->getDeviceRecordAlt("C1", 2, detail), 0);
    EXPECT_EQ(handle->getDeviceRecordAlt("C1", 1, detail), -1);
    EXPECT_EQ(handle->getDevInfoCache("C1", 2, channelInfo, detail), 0);
    EXPECT_EQ(handle->ClearDeviceInfoCache(), 0);
    EXPECT_EQ(handle->getDevInfoCache("C1", 2, channelInfo, detail), -1);
    EXPECT_EQ(handle->ClearAllCache(), 0);
    EXPECT_EQ(handle->IsSupportSeekPlayback("C1"), 0);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(WrapperTest, HandleServesTheCoreThatItWasMadeFor) {
    CVantixDataCenter own;
    CVantixDataCenterWrapper wrapper(&own);
    wrapper.setAppId("own");
    handle->setAppId("process-wide");
    std::string appId;
    EXPECT_EQ(wrapper.getAppId(appId), "own");
    EXPECT_EQ(handle->getAppId(appId), "process-wide");
}

TEST_F(WrapperTest, HandleIsTableAndCorePointerAlone) {
    EXPECT_EQ(sizeof(CVantixDataCenterWrapper), 2 * sizeof(void*));
}

}  // namespace
}  // namespace vantix::test
