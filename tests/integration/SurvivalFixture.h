#pragma once

#include <string>

#include "DetailFixture.h"
#include "support/ProcessUsage.h"

namespace vantix::test {

/// A detail response that is served from caches, small enough to be written into a table of faults.
inline constexpr char kSmallResponse[] =
    R"({"result":{"code":"200","data":{"camera":{"cameraNo":1,"deviceSerial":"C10000001"},)"
    R"("device":{"deviceSerial":"C10000001","releaseVersion":"VERSION_17"}}}})";

/// Some code of a failed transfer: which one depends on who notices first.
inline constexpr int kSomeTransportFailure = 100000;

/// A case in which something goes wrong, and nothing but that one call may suffer from it.
class SurvivalFixture : public DetailFixture {
protected:
    void SetUp() override {
        DetailFixture::SetUp();
        ASSERT_EQ(Fetch(kCamera, 1), 0);
        ASSERT_EQ(Fetch(kRecorder, 2), 0);
        m_camera = Cached(kCamera, 1);
        m_recorder = Cached(kRecorder, 2);
        Cloud().ForgetRequests();
        m_usage = ProcessUsage::Now();
    }

    static void ExpectResult(int result, int expected) {
        if (expected == kSomeTransportFailure) {
            EXPECT_GT(result, 100000);
            EXPECT_LT(result, 100100);
        } else {
            EXPECT_EQ(result, expected);
        }
    }

    /// What was cached before is cached still, as it was.
    void ExpectCachesUnchanged() const {
        EXPECT_EQ(Cached(kCamera, 1), m_camera);
        EXPECT_EQ(Cached(kRecorder, 2), m_recorder);
        EXPECT_EQ(Center().IsSupportSeekPlayback(kCamera), 1);
        EXPECT_EQ(Center().getAccessToken(), Account("accessToken"));
    }

    /// The next good call succeeds, and neither descriptors nor threads were lost.
    void ExpectGoodCall() const {
        Cloud().ForgetScript();
        Center().setDomain(BDomain(), "");
        Detail detail;
        EXPECT_EQ(Fetch(kCamera, 1, detail), 0);
        ExpectStored(Cloud(), kCamera, 1, detail);
        EXPECT_TRUE(FellBackTo(m_usage));
    }

    /// Meets the fault in every form of the call; `requests` is how many one call sends.
    void ExpectSurvival(int expected, size_t requests) const {
        Detail detail;
        ExpectResult(Fetch(kCamera, 1, detail), expected);
        EXPECT_EQ(Cloud().RequestCount(), requests);
        Center().SetDevInfoCache(kRecorder, 2);
        const Asked asked = Ask(kRecorder, 2);
        EXPECT_EQ(asked.returned, 0);
        ExpectResult(asked.fetched, expected);
        EXPECT_EQ(Cloud().RequestCount(), 2 * requests);
        m_recorder["device"]["isUpdate"] = true;
        if (expected != 0) {
            ExpectCachesUnchanged();
        }
        ExpectGoodCall();
    }

private:
    Json m_camera;
    mutable Json m_recorder;
    ProcessUsage m_usage;
};

}  // namespace vantix::test
