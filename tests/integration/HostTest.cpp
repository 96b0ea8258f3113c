// What a host may do while the library is at work; what it may do to its own process stands in the fault matrix,
// tests/faults.

#include "DetailFixture.h"
#include "tvllog/tvllog.h"

namespace vantix::test {
namespace {

class HostTest : public DetailFixture {};

/// Set by the case below, used by the sink.
IVantixDataCenter* g_center = nullptr;

void CallBack(unsigned /*level*/, const char* /*moduleName*/, const char* /*text*/) {
    thread_local bool t_isInside = false;
    if (t_isInside || g_center == nullptr) {
        return;
    }
    t_isInside = true;
    Detail detail;
    g_center->getDevInfoCache(kRecorder, 2, detail.channel, detail.device);
    g_center->getChannelCacheValue(kRecorder, 2);
    g_center->isB2CSharedDevice(kCamera, 1);
    g_center->setAccessToken(std::string(g_center->getAccessToken()));
    const int mode = *g_center->getPermissionMode();
    g_center->setPermissionMode(mode);
    std::string token;
    g_center->getDeviceTkTokens(token, 3, kCamera, 1);
    t_isInside = false;
}

TEST_F(HostTest, LogSinkMayCallBackIntoTheLibrary) {
    SetDeviceTokens();
    Center().setLogLevel(-1);
    g_center = &Center();
    TVLLOG_SetCallback(CallBack);
    for (const int mode : {0, 1, 2}) {
        SetPermissionMode(mode);
        EXPECT_EQ(Fetch(kCamera, 1), 0);
        EXPECT_EQ(Center().SetDevInfoCache(kCamera, 1), 0);
        EXPECT_EQ(Ask(kCamera, 1).fetched, 0);
        Detail detail;
        EXPECT_EQ(Center().getDevDetailInfoByRelation(kCamera, 1, detail.channel, detail.device), 0);
        Center().ClearDeviceInfoCache();
        SetDeviceTokens();
    }
    TVLLOG_SetCallback(nullptr);
    g_center = nullptr;
}

}  // namespace
}  // namespace vantix::test
