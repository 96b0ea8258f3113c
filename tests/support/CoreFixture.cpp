#include "support/CoreFixture.h"

#include "base/LastError.h"

namespace vantix::test {
namespace {

constexpr int kDefaultCacheMinutes = 24 * 60;

void ForgetCredentials(IVantixDataCenter& center) {
    center.setAuthAddr("");
    center.setRefreshToken("");
    center.setOpenID("");
    center.setScope("");
    center.setState("");
    center.setTokenExpireTime("");
    center.setSharedAccessToken("");
    center.setSessionId("");
    center.SetDeviceTkTokens("[]");
    center.SetB2CTokens("[]");
}

}  // namespace

void EmptyStreamTokenQueue(IVantixDataCenter& center) {
    std::string none;
    center.getOneStreamToken("nobody's token", none);
}

void CoreFixture::SetUp() {
    m_cloud = std::make_unique<SimulatorClient>();
    m_info = m_cloud->Reset();
    m_handle = NewHandle();
    ResetCore();
}

void CoreFixture::TearDown() {
    if (m_handle) {
        ResetCore();
    }
    if (m_cloud) {
        m_cloud->Reset();
    }
}

void CoreFixture::ResetCore() const {
    ForgetCredentials(Center());
    SetPermissionMode(0);
    Center().setCacheTime(kDefaultCacheMinutes);
    Center().setCloseBelongSerial(0);
    Center().setCloseP2P(0);
    Center().ClearAllCache();
    Center().setDomain(BDomain(), CDomain());
    Center().setAppId(Account("appKey"));
    Center().setAccessToken(Account("accessToken"));
    SetThreadLastError(0);
}

void CoreFixture::SetDeviceTokens() const {
    Center().SetDeviceTkTokens(AccountData().at("tkTokens").dump());
    Center().SetB2CTokens(AccountData().at("b2cTokens").dump());
}

}  // namespace vantix::test
