// Texts that no well-meaning server sends as a device detail: cut off, deep, huge, with any bytes.

#include <gtest/gtest.h>

#include "unit/platform/HostileDetail.h"

namespace vantix::test {
namespace {

TEST_F(HostileDetail, TruncationAtAnyByteIsNoJson) {
    iLogLevel = 6;
    std::string whole = WholeDetailText();
    whole.erase(whole.find_last_not_of(" \n") + 1);
    for (size_t length = 0; length < whole.size(); ++length) {
        ASSERT_EQ(Parse(whole.substr(0, length)), 1) << length;
    }
    ExpectUntouched();
    EXPECT_EQ(Parse(whole), 0);
}

TEST_F(HostileDetail, DeepNestingIsSurvived) {
    iLogLevel = 6;
    for (const size_t depth : {999U, 100'000U}) {
        const std::string deep = std::string(depth, '[') + std::string(depth, ']');
        EXPECT_EQ(Parse(deep), 1) << depth;
        ExpectUntouched();
        EXPECT_EQ(Parse(WithValue(WholeDetail(), "/result/data/camera/cameraId", deep)), 1);
        Json response = WholeDetail();
        Device(response)["supportExt"] = deep;
        EXPECT_EQ(Parse(response), 0) << "the text of a nested member";
        EXPECT_EQ(device.support_ptz, 0);
        ParseDevDetailInfoFromPlatform(WholeDetailText(), channel, device, parent);
    }
}

TEST_F(HostileDetail, LastOfDuplicateMembersCounts) {
    EXPECT_EQ(Parse(std::string(
                  R"({"result":{"code":"5","code":200,"data":[],"data":{"device":{"deviceIP":"a","deviceIP":"b"}}}})")),
              0);
    EXPECT_EQ(device.deviceIP, "b");
}

TEST_F(HostileDetail, AnyBytesOfATextAreKept) {
    EXPECT_EQ(
        Parse(std::string("{\"result\":{\"code\":200,\"data\":{\"camera\":{\"cameraId\":\"\xFF\xC0\\u0000 %s%n\"}}}}")),
        0);
    EXPECT_EQ(channel.cameraId, std::string("\xFF\xC0\0 %s%n", 8));
}

TEST_F(HostileDetail, RawNulIsNoJson) {
    iLogLevel = 6;
    std::string body = WholeDetailText();
    body[body.find("camera-id")] = '\0';
    EXPECT_EQ(Parse(body), 1);
    EXPECT_EQ(Parse(WholeDetailText() + std::string(1, '\0')), 1);
    ExpectUntouched();
}

TEST_F(HostileDetail, HugeResponsesAreRead) {
    Json response = WholeDetail();
    Device(response)["publicKey"] = std::string(1U << 20U, 'k');
    for (int i = 0; i < 20'000; ++i) {
        Device(response)["vtmBackups"].push_back({{"ip", "x"}, {"port", i}});
    }
    EXPECT_EQ(Parse(response), 0);
    EXPECT_EQ(device.publicKey.size(), 1U << 20U);
    EXPECT_EQ(device.vtmBackups.size(), 20'002U);
    EXPECT_EQ(device.vtmBackups.back().iVtmPort, 19'999);
}

TEST_F(HostileDetail, HugeBodiesOfFailuresAreLoggedAsEmptyLines) {
    EXPECT_EQ(Parse(std::string(1U << 20U, 'x')), 1);
    ASSERT_EQ(m_log.Lines().size(), 1U);
    EXPECT_EQ(m_log.Lines()[0].text, "");
    EXPECT_EQ(m_log.Lines()[0].level, 5U);
}

}  // namespace
}  // namespace vantix::test
