// The types of the slots, on which hosts were built: what they return, and the text that comes by value.

#include <gtest/gtest.h>

#include <future>
#include <string>
#include <type_traits>

#include "vantix/IVantixDataCenter.h"

namespace vantix::test {
namespace {

template <class Result, class... Arguments>
Result ResultOf(Result (IVantixDataCenter::*slot)(Arguments...));

/// Whether a slot returns exactly this type.
#define RETURNS(type, slot) std::is_same_v<type, decltype(ResultOf(&IVantixDataCenter::slot))>

TEST(Interface, QuestionsReturnAFlag) {
    EXPECT_TRUE((RETURNS(bool, isOpenP2P)));
    EXPECT_TRUE((RETURNS(bool, isVTDUType1)));
    EXPECT_TRUE((RETURNS(bool, isDataUtf8)));
    EXPECT_TRUE((RETURNS(bool, isCloseBelongSerial)));
    EXPECT_TRUE((RETURNS(bool, isB2CSharedToken)));
    EXPECT_TRUE((RETURNS(bool, isB2CSharedChannel)));
}

TEST(Interface, QuestionsOfDevicesAndCacheOperationsReturnANumber) {
    EXPECT_TRUE((RETURNS(int, isP2PV3download)));
    EXPECT_TRUE((RETURNS(int, IsSupportSeekPlayback)));
    EXPECT_TRUE((RETURNS(int, IsSupportPlaybackSpeed)));
    EXPECT_TRUE((RETURNS(int, ClearAllCache)));
    EXPECT_TRUE((RETURNS(int, ClearDeviceInfoCache)));
    EXPECT_TRUE((RETURNS(int, SetDevInfoCache)));
    EXPECT_TRUE((RETURNS(int, getCacheTime)));
    EXPECT_TRUE((RETURNS(int, getLogLevel)));
}

TEST(Interface, SettersReturnNothing) {
    EXPECT_TRUE((RETURNS(void, setChannelCacheValue)));
    EXPECT_TRUE((RETURNS(void, expireServerInfo)));
    EXPECT_TRUE((RETURNS(void, SetDeviceTkTokens)));
    EXPECT_TRUE((RETURNS(void, setGlobalTkToken)));
    EXPECT_TRUE((RETURNS(void, setPermissionMode)));
    EXPECT_TRUE((RETURNS(void, setCloseP2P)));
    EXPECT_TRUE((RETURNS(void, setDomain)));
    EXPECT_TRUE((RETURNS(void, setAuthAddr)));
    EXPECT_TRUE((RETURNS(void, setAppId)));
    EXPECT_TRUE((RETURNS(void, setAccessToken)));
    EXPECT_TRUE((RETURNS(void, setTokenExpireTime)));
    EXPECT_TRUE((RETURNS(void, setRefreshToken)));
    EXPECT_TRUE((RETURNS(void, setOpenID)));
    EXPECT_TRUE((RETURNS(void, setScope)));
    EXPECT_TRUE((RETURNS(void, setState)));
    EXPECT_TRUE((RETURNS(void, setCacheTime)));
    EXPECT_TRUE((RETURNS(void, setLogLevel)));
    EXPECT_TRUE((RETURNS(void, setDataUtf8)));
    EXPECT_TRUE((RETURNS(void, setCloseBelongSerial)));
    EXPECT_TRUE((RETURNS(void, SetB2CTokens)));
    EXPECT_TRUE((RETURNS(void, setSharedAccessToken)));
    EXPECT_TRUE((RETURNS(void, setSessionId)));
}

TEST(Interface, GettersReferToTheLiveField) {
    EXPECT_TRUE((RETURNS(const std::string&, getGlobalTkToken)));
    EXPECT_TRUE((RETURNS(const std::string&, getAccessToken)));
    EXPECT_TRUE((RETURNS(const std::string&, getSharedAccessToken)));
    EXPECT_TRUE((RETURNS(const std::string&, getSessionId)));
    EXPECT_TRUE((RETURNS(const std::string&, getDomain)));
    EXPECT_TRUE((RETURNS(const std::string&, getDomainByToken)));
    EXPECT_TRUE((RETURNS(const int*, getPermissionMode)));
    EXPECT_TRUE((RETURNS(std::string&, getAppId)));
}

TEST(Interface, VideoRelayQueryTakesItsSerialByValue) {
    using Slot = int (IVantixDataCenter::*)(const std::string&, std::string&, std::string, int, bool);
    EXPECT_TRUE((std::is_same_v<Slot, decltype(&IVantixDataCenter::getServerInfoEx)>));
}

}  // namespace
}  // namespace vantix::test
