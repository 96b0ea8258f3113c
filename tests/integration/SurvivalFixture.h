#pragma once

#include <string>

#include "DetailFixture.h"
#include "support/ProcessUsage.h"

namespace vantix::test {

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

private:
    Json m_camera;
    Json m_recorder;
    ProcessUsage m_usage;
};

}  // namespace vantix::test
