// Handles, tasks and futures: what outlives what.

#include <memory>
#include <thread>
#include <vector>

#include "DetailFixture.h"
#include "support/ProcessUsage.h"

namespace vantix::test {
namespace {

class LifetimeTest : public DetailFixture {
protected:
    /// Holds detail requests until they are released.
    void HoldRequests() const { Cloud().Script({{"path", kDetailPath}, {"hold", "detail"}, {"times", 0}}); }
    void LetRequestsGo() const { Cloud().ForgetScript(); }
};

TEST_F(LifetimeTest, ThousandHandlesShareOneCore) {
    ASSERT_EQ(Fetch(kCamera, 1), 0);
    const ProcessUsage before = ProcessUsage::Now();
    for (int i = 0; i < 1000; ++i) {
        const Handle handle = NewHandle();
        Detail detail;
        ASSERT_EQ(handle->getDevInfoCache(kCamera, 1, detail.channel, detail.device), 0);
        handle->setState(std::to_string(i));
        ASSERT_EQ(Center().getState(), std::to_string(i));
    }
    std::vector<Handle> handles;
    handles.reserve(1000);
    for (int i = 0; i < 1000; ++i) {
        handles.push_back(NewHandle());
    }
    handles.back()->setState("seen by all");
    EXPECT_EQ(handles.front()->getState(), "seen by all");
    handles.clear();
    EXPECT_EQ(Center().getState(), "seen by all");
    EXPECT_TRUE(FellBackTo(before));
}

TEST_F(LifetimeTest, TasksOutliveTheHandleThatStartedThem) {
    constexpr int kTasks = 16;
    HoldRequests();
    std::vector<Detail> details(kTasks);
    std::vector<std::future<int32_t>> futures(kTasks);
    {
        const Handle handle = NewHandle();
        for (int i = 0; i < kTasks; ++i) {
            Detail& detail = details[static_cast<size_t>(i)];
            EXPECT_EQ(handle->getDevDetailInfo(kRecorder, i + 1, detail.channel, detail.device,
                                               futures[static_cast<size_t>(i)]),
                      -1);
        }
        ASSERT_TRUE(Cloud().WaitUntilHeld("detail", kTasks));
    }
    LetRequestsGo();
    for (int i = 0; i < kTasks; ++i) {
        EXPECT_EQ(futures[static_cast<size_t>(i)].get(), 0);
        ExpectStored(Cloud(), kRecorder, i + 1, details[static_cast<size_t>(i)]);
    }
    EXPECT_EQ(DetailRequests(), static_cast<size_t>(kTasks));
    EXPECT_TRUE(Cached(kRecorder, kTasks).is_object());
}

TEST_F(LifetimeTest, DroppingTheLastFutureWaitsForItsTask) {
    HoldRequests();
    Detail detail;
    auto future = std::make_unique<std::future<int32_t>>();
    ASSERT_EQ(Center().getDevDetailInfo(kCamera, 1, detail.channel, detail.device, *future), -1);
    ASSERT_TRUE(Cloud().WaitUntilHeld("detail", 1));
    bool isComplete = false;
    std::thread dropper([&] {
        future.reset();
        isComplete = detail.device.deviceSerial == kCamera;
    });
    LetRequestsGo();
    dropper.join();
    EXPECT_TRUE(isComplete);
    EXPECT_TRUE(Cached(kCamera, 1).is_object());
}

TEST_F(LifetimeTest, TaskRestartedIntoTheSameFutureReplacesIt) {
    HoldRequests();
    Detail first;
    Detail second;
    std::future<int32_t> future;
    ASSERT_EQ(Center().getDevDetailInfo(kRecorder, 1, first.channel, first.device, future), -1);
    ASSERT_TRUE(Cloud().WaitUntilHeld("detail", 1));
    // Filling the future again waits for the task that it stood for, so this call returns after the release only.
    std::thread restarter(
        [&] { EXPECT_EQ(Center().getDevDetailInfo(kRecorder, 2, second.channel, second.device, future), -1); });
    EXPECT_TRUE(Cloud().WaitUntilHeld("detail", 2));
    LetRequestsGo();
    restarter.join();
    EXPECT_EQ(first.channel.cameraNo, 1);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(second.channel.cameraNo, 2);
    EXPECT_EQ(DetailRequests(), 2U);
}

TEST_F(LifetimeTest, RecordIsCompleteWhenTheFutureIsReady) {
    for (int i = 0; i < 20; ++i) {
        Center().ClearAllCache();
        Detail detail;
        std::future<int32_t> future;
        Center().getDevDetailInfo(kCamera, 1, detail.channel, detail.device, future);
        future.wait();
        EXPECT_EQ(detail.device.vtmBackups.size(), 2U);
        EXPECT_EQ(future.get(), 0);
        EXPECT_TRUE(Cached(kCamera, 1).is_object());
    }
}

TEST_F(LifetimeTest, SettingsReachTasksThatStartLater) {
    Center().setDomain(Cloud().ClosedPort(), "");
    EXPECT_EQ(Ask(kCamera, 1).fetched, 100007);
    Center().setDomain(BDomain(), "");
    EXPECT_EQ(Ask(kCamera, 1).fetched, 0);
}

}  // namespace
}  // namespace vantix::test
