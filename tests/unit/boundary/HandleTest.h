#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/CleanSwitches.h"
#include "support/FakeClock.h"
#include "support/LogCapture.h"
#include "support/ScriptedTransport.h"
#include "vantix/IVantixDataCenter.h"

namespace vantix::test {

/// A handle on the process-wide core, put back to what it is at the start of a process as far as setters can: a domain
/// cannot be emptied. No request leaves the process.
class HandleTest : public testing::Test {
public:
    HandleTest() : handle(CreateVantixDataCenterInstance()) { Reset(); }
    ~HandleTest() override {
        Reset();
        DestroyVantixDataCenterInstance(handle);
    }
    HandleTest(const HandleTest&) = delete;
    HandleTest& operator=(const HandleTest&) = delete;

protected:
    /// A stream token that was fetched ahead with this access token stays in the process until it is served.
    void ServePrefetchedToken(const std::string& accessToken) {
        std::array<char, 4097> token{};
        handle->GetStreamTokenFromQueue(accessToken, token.data());
    }
    void Reset() {
        using Setter = void (IVantixDataCenter::*)(const std::string&);
        constexpr Setter kTexts[] = {
            &IVantixDataCenter::setAuthAddr,     &IVantixDataCenter::setAppId,
            &IVantixDataCenter::setAccessToken,  &IVantixDataCenter::setTokenExpireTime,
            &IVantixDataCenter::setRefreshToken, &IVantixDataCenter::setOpenID,
            &IVantixDataCenter::setScope,        &IVantixDataCenter::setState,
            &IVantixDataCenter::setSessionId,    &IVantixDataCenter::setSharedAccessToken,
        };
        for (const Setter setter : kTexts) {
            (handle->*setter)("");
        }
        constexpr int kMinutesOfADay = 1440;
        handle->setPermissionMode(0);
        handle->setCloseP2P(0);
        handle->setCacheTime(kMinutesOfADay);
        handle->setCloseBelongSerial(0);
        handle->SetDeviceTkTokens("[]");
        handle->SetB2CTokens("[]");
        handle->ClearAllCache();
        handle->setLogLevel(3);
        handle->setDataUtf8(0);
        lines.Clear();
    }

    CleanSwitches clean;
    FakeClock clock;
    ScriptedTransport transport;
    LogCapture lines;
    IVantixDataCenter* handle;
};

}  // namespace vantix::test
