// The asynchronous front: a fresh cached copy at once, or a task behind the future.

#include <atomic>
#include <thread>

#include "base/LastError.h"
#include "support/NoThreads.h"
#include "unit/core/CoreTest.h"
#include "vantix/ReturnCodes.h"

namespace vantix::test {
namespace {

class DetailAsync : public CoreTest {
protected:
    DetailAsync() { Configure(); }

    int Ask(const std::string& serial = "C1", int ch = 1, bool retried = false) {
        return core.getDevDetailInfo(serial, ch, channel, device, future, retried);
    }
    static std::string Body(const std::string& ip, const std::string& release = "VERSION_17") {
        nlohmann::json response = DetailResponse("C1", 1);
        response["result"]["data"]["device"]["deviceIP"] = ip;
        response["result"]["data"]["device"]["releaseVersion"] = release;
        return response.dump();
    }
    void CacheIt(const std::string& ip, const std::string& release = "VERSION_17") {
        Cache("C1", 1, nlohmann::json::parse(Body(ip, release)));
    }

    DevChannelInfo channel;
    DevDetailInfo device;
    std::future<int32_t> future;
};

TEST_F(DetailAsync, MissStartsATaskAndReturnsMinusOne) {
    transport.Respond(Body("10.0.0.1"));
    EXPECT_EQ(Ask(), -1);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.deviceIP, "10.0.0.1");
    EXPECT_EQ(channel.deviceSerial, "C1");
    EXPECT_FALSE(device.isFromCache);
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(DetailAsync, TaskLogsItselfInItsMethodsName) {
    transport.Respond(Body("x"));
    Ask("C1", 7);
    future.get();
    const LogLine line = OnlyLine("futureDetailInfo async strDeviceSerial = C1 iChannel = 7");
    EXPECT_EQ(line.Word(), "INFO ");
    EXPECT_EQ(line.level, 3U);
    EXPECT_EQ(line.Tag(), "CVantixDataCenter::getDevDetailInfo::<lambda()>");
}

TEST_F(DetailAsync, FreshCopyIsServedAndTheFutureStaysUntouched) {
    clock.SetSteadyStep(3'000'000);
    CacheIt("cached");
    EXPECT_EQ(Ask(), 0);
    EXPECT_FALSE(future.valid());
    EXPECT_EQ(device.deviceIP, "cached");
    EXPECT_EQ(device.iRequestCost, 0);
    EXPECT_TRUE(device.isFromCache);
    EXPECT_EQ(transport.Count(), 1U);
    EXPECT_THAT(lines.Lines(), HasLine(5, "ERROR", "CVantixDataCenter::getDevDetailInfo",
                                       "getDevDetailInfo FromLocal SUCCESS  isUpdate = 0"));
}

TEST_F(DetailAsync, FreshCopyLeavesAFutureThatIsThereAlone) {
    CacheIt("cached");
    std::promise<int32_t> own;
    future = own.get_future();
    EXPECT_EQ(Ask(), 0);
    own.set_value(1234);
    EXPECT_EQ(future.get(), 1234);
}

TEST_F(DetailAsync, CopyIsFetchedAgainOneSecondAfterTheCacheTime) {
    core.setCacheTime(5);
    CacheIt("old");
    clock.AdvanceSeconds(300);
    EXPECT_EQ(Ask(), 0);
    EXPECT_FALSE(future.valid());
    clock.AdvanceSeconds(1);
    transport.Respond(Body("new"));
    EXPECT_EQ(Ask(), 0) << "a copy was found, if an old one";
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.deviceIP, "new");
    EXPECT_EQ(lines.Count("Cache timeout "), 1U);
    EXPECT_EQ(Ask(), 0);
    EXPECT_FALSE(future.valid()) << "fresh again";
}

TEST_F(DetailAsync, MarkedCopyIsFetchedAgainAndTheMarkIsGone) {
    CacheIt("old");
    EXPECT_EQ(core.SetDevInfoCache("C1", 1), 0);
    transport.Respond(Body("new"));
    EXPECT_EQ(Ask(), 0);
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.deviceIP, "new");
    EXPECT_FALSE(device.isUpdate);
    EXPECT_EQ(Ask(), 0);
    EXPECT_FALSE(future.valid());
}

TEST_F(DetailAsync, FailedRefillKeepsTheMarkAndTheCopy) {
    CacheIt("old");
    core.SetDevInfoCache("C1", 1);
    transport.Fail(7);
    EXPECT_EQ(Ask(), 0);
    EXPECT_EQ(future.get(), 100007);
    DevDetailInfo cached;
    EXPECT_EQ(core.getDevInfoCache("C1", 1, channel, cached), 0);
    EXPECT_EQ(cached.deviceIP, "old");
    EXPECT_TRUE(cached.isUpdate);
}

TEST_F(DetailAsync, OtherReleaseStartsATask) {
    for (const char* release : {"", "VERSION_16"}) {
        CacheIt("old", release);
        transport.Respond(Body("new"));
        EXPECT_EQ(Ask(), VANTIX_DEV_RELEASE_MISMATCH);
        ASSERT_TRUE(future.valid());
        EXPECT_EQ(future.get(), 0);
        EXPECT_EQ(device.deviceIP, "new");
    }
}

TEST_F(DetailAsync, ClearedDeviceCacheStartsATask) {
    CacheIt("old");
    core.ClearDeviceInfoCache();
    transport.Respond(Body("new"));
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(future.get(), 0);
}

TEST_F(DetailAsync, WithoutAClockACopyIsServedHoweverOld) {
    CacheIt("old");
    clock.Break();
    EXPECT_EQ(Ask(), 0);
    EXPECT_FALSE(future.valid());
    EXPECT_EQ(OnlyLine("time(NULL) is error ").level, 5U);
}

TEST_F(DetailAsync, CopyFetchedWithoutAClockIsServedUntilThereIsOne) {
    clock.Break();
    CacheIt("old");
    EXPECT_EQ(Ask(), 0);
    EXPECT_FALSE(future.valid());
    clock.SetWall(1'800'000'000);
    transport.Respond(Body("new"));
    EXPECT_EQ(Ask(), 0);
    EXPECT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 0);
}

TEST_F(DetailAsync, EmptyTokenComesThroughTheFutureAndIsTheTasksLastError) {
    core.setAccessToken("");
    SetThreadLastError(5);
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(future.get(), -1);
    EXPECT_EQ(ThreadLastError(), 5) << "the task ran on a thread of its own";
    EXPECT_EQ(lines.Count("get strToken error"), 1U);
    SetThreadLastError(0);
}

TEST_F(DetailAsync, ExpiredTokenThatCannotBeRenewedComesThroughTheFuture) {
    transport.Respond(CodeResponse("10002"));
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(future.get(), 310002);
    transport.Respond(CodeResponse("10002"));
    EXPECT_EQ(Ask("C1", 1, true), -1);
    EXPECT_EQ(future.get(), 310002);
    EXPECT_EQ(transport.Count(), 2U);
}

TEST_F(DetailAsync, TransientCodesAreTriedThreeTimesByTheTask) {
    transport.Respond(CodeResponse("50000"), 3);
    Ask();
    EXPECT_EQ(future.get(), 350000);
    EXPECT_EQ(transport.Count(), 3U);
}

TEST_F(DetailAsync, TaskHasItsOwnCopyOfTheSerial) {
    std::promise<void> release;
    transport.Make([&](const SentRequest& request) {
        release.get_future().wait();
        return ScriptedResponse{0, DetailResponse(request.Param("deviceSerial"), 1).dump()};
    });
    {
        std::string serial = "a serial that is destroyed before the task ends";
        EXPECT_EQ(Ask(serial), -1);
        serial.assign(serial.size(), '!');
    }
    release.set_value();
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.deviceSerial, "a serial that is destroyed before the task ends");
}

TEST_F(DetailAsync, SecondTaskIntoTheSameFutureWaitsForTheFirst) {
    std::promise<void> started;
    std::promise<void> release;
    transport.Make([&](const SentRequest&) {
        started.set_value();
        release.get_future().wait();
        return ScriptedResponse{0, Body("first")};
    });
    transport.Make([&](const SentRequest&) {
        release.set_value();
        return ScriptedResponse{0, Body("second")};
    });
    DevChannelInfo otherChannel;
    DevDetailInfo otherDevice;
    EXPECT_EQ(core.getDevDetailInfo("C1", 1, otherChannel, otherDevice, future, false), -1);
    started.get_future().wait();
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(otherDevice.deviceIP, "first") << "the first task has ended";
    EXPECT_EQ(future.get(), 0);
    EXPECT_EQ(device.deviceIP, "second");
}

TEST_F(DetailAsync, WithoutThreadsTheFutureYieldsMinusOne) {
    {
        const NoThreads noThreads;
        EXPECT_EQ(Ask(), -1);
    }
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), -1);
    EXPECT_EQ(transport.Count(), 0U);
    transport.Respond(Body("x"));
    EXPECT_EQ(Ask(), -1);
    EXPECT_EQ(future.get(), 0) << "once there are threads again";
}

TEST_F(DetailAsync, SerialsThatAreNoneReachTheServerAsTheyAre) {
    for (const std::string& serial : {std::string(), std::string(129, 's')}) {
        lines.Clear();
        transport.Respond(CodeResponse("20002"));
        EXPECT_EQ(Ask(serial), -1);
        EXPECT_EQ(future.get(), 320002);
        EXPECT_EQ(transport.Sent().back().Param("deviceSerial"), serial);
        EXPECT_GE(lines.Count("设备序列号参数错误, Serial:" + serial + " Channel:1"), 1U);
    }
}

TEST_F(DetailAsync, SixtyFourCallersAtOnceAllGetAResult) {
    iLogLevel = 6;
    std::atomic<int> requests{0};
    transport.Always([&](const SentRequest&) {
        ++requests;
        return ScriptedResponse{0, Body("x")};
    });
    constexpr size_t kCallers = 64;
    std::vector<DevChannelInfo> channels(kCallers);
    std::vector<DevDetailInfo> devices(kCallers);
    std::vector<std::future<int32_t>> futures(kCallers);
    std::vector<std::thread> threads;
    for (size_t i = 0; i < kCallers; ++i) {
        threads.emplace_back([&, i] {
            const int result = core.getDevDetailInfo("C1", 1, channels[i], devices[i], futures[i], false);
            if (futures[i].valid()) {
                EXPECT_EQ(result, -1);
                EXPECT_EQ(futures[i].get(), 0);
            } else {
                EXPECT_EQ(result, 0);
            }
            EXPECT_EQ(devices[i].deviceIP, "x");
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_GE(requests, 1);
    EXPECT_LE(requests, static_cast<int>(kCallers));
}

}  // namespace
}  // namespace vantix::test
