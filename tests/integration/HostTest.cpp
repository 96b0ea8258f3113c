// What a host may do to its own process while the library is at work.

#include <clocale>
#include <cstdlib>
#include <locale>

#include "SurvivalFixture.h"
#include "tvllog/tvllog.h"

namespace vantix::test {
namespace {

class HostTest : public SurvivalFixture {};

/// Digits grouped by points, a comma before the fraction.
class CommaPunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST_F(HostTest, CommaLocaleChangesNeitherResponsesNorRequests) {
    Cloud().Put("/devices/C10000001", {{"device", {{"devicePort", 8000.75}, {"version", 1.9}, {"cmdPort", 12345}}}});
    Detail before;
    ASSERT_EQ(Fetch(kCamera, 1, before), 0);
    const std::string sent = Cloud().Requests().back().body;

    const std::locale classic = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    Detail after;
    const int result = Fetch(kCamera, 1, after);
    std::locale::global(classic);

    EXPECT_EQ(result, 0);
    EXPECT_EQ(before.device.devicePort, 8000);
    EXPECT_EQ(ToJson(after.channel), ToJson(before.channel));
    EXPECT_EQ(ToJson(static_cast<BelongDevInfo&>(after.device)), ToJson(static_cast<BelongDevInfo&>(before.device)));
    EXPECT_EQ(Cloud().Requests().back().body, sent);
}

/// Sets a variable of the environment while it exists.
class EnvironmentVariable {
public:
    EnvironmentVariable(const char* name, const std::string& value) : m_name(name) { Set(value.c_str()); }
    ~EnvironmentVariable() { Set(""); }
    EnvironmentVariable(const EnvironmentVariable&) = delete;
    EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;

private:
    void Set(const char* value) const {
#if defined(_WIN32)
        _putenv_s(m_name, value);
#else
        if (*value == '\0') {
            unsetenv(m_name);
        } else {
            setenv(m_name, value, 1);
        }
#endif
    }

    const char* m_name;
};

TEST_F(HostTest, DeadProxyInTheEnvironmentIsObeyed) {
    const std::string proxy = "http://" + Cloud().ClosedPort().substr(sizeof("https://") - 1);
    {
        const EnvironmentVariable variable("https_proxy", proxy);
        ExpectResult(Fetch(kCamera, 1), 100007);
    }
    {
        const EnvironmentVariable variable("ALL_PROXY", proxy);
        ExpectResult(Fetch(kCamera, 1), 100007);
    }
    EXPECT_EQ(Cloud().RequestCount(), 0U);
    ExpectCachesUnchanged();
    ExpectGoodCall();
}

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
