// Every operation of the interface once, as an ordinary host calls it, against the loopback cloud.

#include <map>

#include "OperationFixture.h"
#include "support/LocalFile.h"

namespace vantix::test {
namespace {

/// What an operation returns that has a cached camera, a token for everything, and the ordinary mode; 0 when it is not
/// listed.
const std::map<std::string, int> kResults = {
    {"isP2PV3download", 1},
    {"getChannelCacheValue", 1},
    {"GetStreamTokenFromQueue", -1},  // nothing was prefetched
    {"IsSupportSeekPlayback", 1},
    {"IsSupportPlaybackSpeed", 1},
    {"isOpenP2P", 1},
    {"isVTDUType1", 1},
    {"getCacheTime", 86400},
    {"getLogLevel", 3},
    {"RefreshSession", -1},  // there is none in this mode
};

class EveryOperationTest : public OperationFixture, public ::testing::WithParamInterface<Operation> {
protected:
    void SetUp() override {
        OperationFixture::SetUp();
        SetRefreshCredentials();
        ASSERT_EQ(Call(Center(), "getDevDetailInfoSync", {}), 0);
        Cloud().ForgetRequests();
    }
};

TEST_P(EveryOperationTest, ReturnsWhatAnOrdinaryHostExpects) {
    const LocalFile picture(u8"gate.jpg");
    const Arguments arguments = {
        .token = Account("accessToken"), .url = BDomain() + kUploadPath, .localPath = picture.Path(), .text = "[]"};
    Outputs outputs;
    const auto listed = kResults.find(GetParam().name);
    EXPECT_EQ(Call(Center(), GetParam(), arguments, outputs).result, listed == kResults.end() ? 0 : listed->second);
    EXPECT_LE(Cloud().RequestCount(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Slots, EveryOperationTest, ::testing::ValuesIn(Operations().begin(), Operations().end()),
                         [](const auto& operation) { return operation.param.name; });

}  // namespace
}  // namespace vantix::test
