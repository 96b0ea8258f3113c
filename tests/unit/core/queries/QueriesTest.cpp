// The one-shot queries.

#include <gtest/gtest.h>

#include "base/LastError.h"
#include "unit/core/CoreTest.h"

namespace vantix::test {
namespace {

class Query : public CoreTest {
protected:
    Query() { Configure(); }

    void ExpectEmptyCredential(int result, const std::string& tag) {
        EXPECT_EQ(result, -1);
        EXPECT_EQ(ThreadLastError(), -1);
        EXPECT_EQ(transport.Count(), 0U);
        ExpectLine("get strToken error", "ERROR", 5, tag);
        EXPECT_EQ(lines.Lines().size(), 1U) << "nothing else is logged, least of all a domain";
        SetThreadLastError(0);
        lines.Clear();
    }
};

TEST_F(Query, AccountListsOfTheSmallPermissionModeNeedTheGlobalToken) {
    core.setPermissionMode(1);
    core.SetDeviceTkTokens(R"([{"deviceTkToken":"d","deviceVideoTkToken":"v","deviceSerial":"","channelNo":"1"}])");
    SetThreadLastError(0);
    lines.Clear();
    DeviceList list;
    ExpectEmptyCredential(core.getDevList(0, 10, list, false), "CVantixDataCenter::getDevList");
    ExpectEmptyCredential(core.getDeviceList(0, 10, "GB", list, false), "CVantixDataCenter::getDeviceList");
    ExpectEmptyCredential(core.getShareDevList(0, 10, list, false), "CVantixDataCenter::getShareDevList");
}

}  // namespace
}  // namespace vantix::test
