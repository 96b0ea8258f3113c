// What a detail holds after a response with members of the wrong type; that such responses concern their call alone
// stands in the fault matrix, tests/faults.

#include "DetailFixture.h"

namespace vantix::test {
namespace {

/// A response whose device has these members besides its serial.
std::string DetailWith(const std::string& members) {
    return R"({"result":{"code":"200","data":{"camera":{},"device":{"deviceSerial":"C10000001",)" + members + "}}}}";
}

class HostileMemberTest : public DetailFixture {
protected:
    DevDetailInfo Read(const std::string& members) const {
        Cloud().Script({{"path", kDetailPath}, {"body", DetailWith(members)}});
        Detail detail;
        EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
        return detail.device;
    }
};

TEST_F(HostileMemberTest, WrongTypesLeaveDefaults) {
    const DevDetailInfo device = Read(R"("deviceIP":1,"devicePort":"8000","supportExt":{"support_ptz":1})");
    EXPECT_EQ(device.deviceIP, "");
    EXPECT_EQ(device.devicePort, 0);
    EXPECT_EQ(device.support_ptz, 0);
    EXPECT_EQ(device.deviceSerial, kCamera);
}

TEST_F(HostileMemberTest, MalformedNestedTextSkipsThatMemberAlone) {
    const DevDetailInfo device =
        Read(R"("supportExt":"{","qxDeviceSupportExt":{"ShareVerify":"1"},"belongDevice":"no","isOwner":1)");
    EXPECT_EQ(device.support_ptz, 0);
    EXPECT_EQ(device.iShareVerif, 1);
    EXPECT_EQ(device.isOwner, 1);
}

}  // namespace
}  // namespace vantix::test
