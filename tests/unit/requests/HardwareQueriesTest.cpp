// How the hardware is asked for the feature code: not before a request needs it, the disk before the network, and what
// counts as a digest.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "requests/FeatureCode.h"
#include "support/CleanSwitches.h"
#include "support/LogCapture.h"

namespace {

std::atomic<int> g_hardwareQueries{0};

}  // namespace

// The linker leads the calls of the hardware library here (options.cmake).
extern "C" {

int __real_HWP_GetDiskSerial(char* serial, char* second);
int __real_HWP_GetMacAddr(char* mac);

int __wrap_HWP_GetDiskSerial(char* serial, char* second) {  // NOLINT: the linker's name
    ++g_hardwareQueries;
    return __real_HWP_GetDiskSerial(serial, second);
}

int __wrap_HWP_GetMacAddr(char* mac) {  // NOLINT: the linker's name
    ++g_hardwareQueries;
    return __real_HWP_GetMacAddr(mac);
}
}

namespace vantix::test {
namespace {

int g_queriesAtLoad = -1;

/// Looks when everything is loaded and no case has run.
class AfterLoading : public testing::Environment {
public:
    void SetUp() override { g_queriesAtLoad = g_hardwareQueries; }
};
const auto* const kAfterLoading = testing::AddGlobalTestEnvironment(new AfterLoading);  // NOLINT: gtest deletes it

std::vector<std::string> g_steps;
int g_digestResult = 0;

int StepDisk(char* serial, char* /*second*/) {
    g_steps.emplace_back("disk");
    std::snprintf(serial, 64, "ABC");
    return 0;
}

int StepMac(char* mac) {
    g_steps.emplace_back("network");
    std::snprintf(mac, 48, "00-11");
    return 0;
}

/// The text ends before its stated length, and something stands behind it.
int StepDigest(const void* data, unsigned length, char* digestText, unsigned* digestLength) {
    g_steps.emplace_back("digest of " + std::string(static_cast<const char*>(data), length));
    std::memcpy(digestText, "d1g3st\0rest", 12);
    *digestLength = 11;
    return g_digestResult;
}

const HardwareSource kSteps{StepDisk, StepMac, StepDigest};

class HardwareQueries : public testing::Test {
public:
    HardwareQueries() {
        g_steps.clear();
        g_digestResult = 0;
        ForgetFeatureCode();
    }
    ~HardwareQueries() override { ForgetFeatureCode(); }
    HardwareQueries(const HardwareQueries&) = delete;
    HardwareQueries& operator=(const HardwareQueries&) = delete;

protected:
    CleanSwitches m_switches;
    LogCapture m_log;
};

TEST_F(HardwareQueries, AreMadeOnFirstUseAndNotAtLoad) {
    ASSERT_NE(kAfterLoading, nullptr);
    EXPECT_EQ(g_queriesAtLoad, 0);
    const int before = g_hardwareQueries;
    EXPECT_FALSE(PublicGetHDSign().empty());
    EXPECT_EQ(g_hardwareQueries, before + 2) << "the disk and the network";
}

TEST_F(HardwareQueries, AskTheDiskThenTheNetwork) {
    PublicGetHDSign(kSteps);
    EXPECT_THAT(g_steps, testing::ElementsAre("disk", "network", "digest of ABC|00-11"));
}

TEST_F(HardwareQueries, OnlyANegativeResultOfTheDigestIsAFailure) {
    const struct {
        int digestResult;
        int result;
    } rows[] = {{0, 0}, {1, 0}, {11, 0}, {2147483647, 0}, {-1, -1}, {-2147483647 - 1, -1}};
    for (const auto& row : rows) {
        g_digestResult = row.digestResult;
        char buffer[64] = {};
        EXPECT_EQ(GetHDSign(buffer, kSteps), row.result) << row.digestResult;
        EXPECT_STREQ(buffer, row.result == 0 ? "d1g3st" : "");
    }
}

TEST_F(HardwareQueries, CodeIsTheDigestsTextUpToItsZero) {
    char buffer[64];
    std::memset(buffer, '#', sizeof(buffer));
    EXPECT_EQ(GetHDSign(buffer, kSteps), 0);
    EXPECT_EQ(std::memcmp(buffer, "d1g3st\0#", 8), 0) << "its zero is written, and nothing behind it";
    EXPECT_EQ(PublicGetHDSign(kSteps), "d1g3st");
}

}  // namespace
}  // namespace vantix::test
