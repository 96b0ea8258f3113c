// Responses that fit no log line; that they concern their call alone stands in the fault matrix, tests/faults.

#include <gmock/gmock.h>

#include "DetailFixture.h"
#include "support/LogCapture.h"

namespace vantix::test {
namespace {

class LargeResponseTest : public DetailFixture {};

TEST_F(LargeResponseTest, FailureLinesReachTheSinksAsEmptyTexts) {
    const LogCapture log;
    Cloud().Script({{"path", kDetailPath}, {"body", std::string(1024 * 1024, 'x')}});
    EXPECT_EQ(Fetch(kCamera, 1), 300001);
    EXPECT_EQ(log.Count("strRsp outlen"), 1U);
    EXPECT_THAT(log.Messages(), ::testing::Contains(""));
}

TEST_F(LargeResponseTest, TextOfAMebibyteComesOutWhole) {
    const std::string key(1024 * 1024, 'k');
    const std::string body =
        R"({"result":{"code":"200","data":{"camera":{},"device":{"deviceSerial":"C10000001","publicKey":")" + key +
        R"("}}}})";
    Cloud().Script({{"path", kDetailPath}, {"body", body}});
    Detail detail;
    EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
    EXPECT_EQ(detail.device.publicKey, key);
}

}  // namespace
}  // namespace vantix::test
