#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/CleanSwitches.h"
#include "support/Handle.h"
#include "support/SimulatorClient.h"

namespace vantix::test {

/// Drops the stream tokens that an earlier case of the process left in the queue; sends a request.
void EmptyStreamTokenQueue(IVantixDataCenter& center);

/// A case that drives the data center through its interface, against the loopback cloud.
///
/// Every case begins with the cloud's sample data, an empty journal, and a core that knows the cloud's addresses and
/// the account's access token and nothing else: no caches, no token maps, no refresh credentials, ordinary permissions.
/// The core is one for the process, so everything that a host can set is set here.
class CoreFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    IVantixDataCenter& Center() const { return *m_handle; }
    const SimulatorClient& Cloud() const { return *m_cloud; }
    /// A text of the account, such as "accessToken".
    std::string Account(const std::string& key) const { return m_info.at("account").at(key); }
    const Json& AccountData() const { return m_info.at("account"); }
    std::string BDomain() const { return m_info.at("bDomain"); }
    std::string CDomain() const { return m_info.at("cDomain"); }

    void SetPermissionMode(int mode) const { Center().setPermissionMode(mode); }
    /// Hands the core the account's per-device tokens.
    void SetDeviceTokens() const;

private:
    void ResetCore() const;

    CleanSwitches m_switches;
    std::unique_ptr<SimulatorClient> m_cloud;
    Handle m_handle;
    Json m_info;
};

}  // namespace vantix::test
