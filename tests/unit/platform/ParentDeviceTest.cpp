// The parent of a device: a malformed one leaves the caller's record, and the order in which a device is read.

#include <gtest/gtest.h>

#include <iterator>
#include <optional>
#include <string>

#include "platform/DeviceDetailFields.h"
#include "platform/DeviceDetailParser.h"
#include "support/CleanSwitches.h"
#include "support/LineMatcher.h"
#include "support/LogCapture.h"
#include "unit/platform/DetailRecords.h"

namespace vantix::test {
namespace {

class ParentDevice : public testing::Test {
protected:
    /// What a caller's filled record is after this member.
    std::string ParentAfter(const Json& belongDevice) {
        Json response = WholeDetail();
        test::Device(response)["belongDevice"] = belongDevice;
        DevChannelInfo channel;
        DevDetailInfo device;
        std::optional<BelongDevInfo> parent(std::in_place);
        parent->deviceSerial = "filled before";
        EXPECT_EQ(ParseDevDetailInfoFromPlatform(response.dump(), channel, device, parent), 0);
        EXPECT_EQ(device.deviceSerial, test::Device(response).at("deviceSerial")) << "the device is read all the same";
        return parent ? parent->deviceSerial : "none";
    }

    CleanSwitches m_switches;
    LogCapture m_log;
};

TEST_F(ParentDevice, ThatIsMalformedLeavesTheCallersRecord) {
    for (const char* malformed : {"{", "no JSON", "{\"deviceSerial\":\"P\"", "{} {}", "\""}) {
        EXPECT_EQ(ParentAfter(malformed), "filled before") << malformed;
    }
}

TEST_F(ParentDevice, ThatIsWellFormedReplacesTheCallersRecord) {
    EXPECT_EQ(ParentAfter(R"({"deviceSerial":"P"})"), "P");
    EXPECT_EQ(ParentAfter(Json{{"deviceSerial", "Q"}}), "Q");
    EXPECT_EQ(ParentAfter("{}"), "");
}

TEST(DeviceMembers, AreReadInTheServersOrder) {
    constexpr const char* kOrder[] = {
        "deviceSerial",
        "deviceIP",
        "devicePort",
        "cmdPort",
        "httpPort",
        "streamPort",
        "localIp",
        "localDevicePort",
        "localCmdPort",
        "localHttpPort",
        "localStreamPort",
        "netType",
        "ppvsAddr",
        "ppvsPort",
        "casIp",
        "casPort",
        "maskIp",
        "upnp",
        "cloudServiceStatus",
        "releaseVersion",
        "belongSerial",
        "belongNo",
        "belongAdded",
        "isEncrypt",
        "encryptPwd",
        "belongState",
        "vtmIp",
        "vtmPort",
        "ttsIp",
        "ttsPort",
        "deviceStatus",
        "supportExtShort",
        "supportChannelNums",
        "gbJtTtsIP",
        "gbJtTtsPort",
        "publicKey",
        "version",
        "isOwner",
    };
    ASSERT_EQ(std::size(detail_fields::kDevice), std::size(kOrder));
    for (size_t i = 0; i < std::size(kOrder); ++i) {
        EXPECT_STREQ(detail_fields::kDevice[i].key, kOrder[i]) << i;
    }
}

}  // namespace
}  // namespace vantix::test
