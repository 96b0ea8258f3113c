// Tasks on threads of their own.

#include "base/AsyncTask.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <thread>

#include "support/NoThreads.h"

namespace vantix::test {
namespace {

TEST(AsyncTask, ResultComesThroughTheFuture) {
    std::future<int32_t> future = StartTask([] { return int32_t{600001}; });
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.get(), 600001);
    EXPECT_FALSE(future.valid());
}

TEST(AsyncTask, RunsOnAnotherThreadWithoutBeingWaitedFor) {
    std::promise<std::thread::id> id;
    std::future<int32_t> future = StartTask([&id] {
        id.set_value(std::this_thread::get_id());
        return int32_t{0};
    });
    EXPECT_NE(id.get_future().get(), std::this_thread::get_id());
    EXPECT_EQ(future.get(), 0);
}

TEST(AsyncTask, ExceptionBecomesMinusOne) {
    EXPECT_EQ(StartTask([]() -> int32_t { throw std::runtime_error("x"); }).get(), -1);
    EXPECT_EQ(StartTask([]() -> int32_t { throw std::bad_alloc(); }).get(), -1);
    EXPECT_EQ(StartTask([]() -> int32_t { throw 5; }).get(), -1);
}

TEST(AsyncTask, TaskOwnsWhatItHolds) {
    auto text = std::make_unique<int>(7);
    std::future<int32_t> future = StartTask([held = std::move(text)] { return int32_t{*held}; });
    EXPECT_EQ(future.get(), 7);
}

TEST(AsyncTask, WithoutThreadsTheFutureIsReadyAndYieldsMinusOne) {
    std::atomic<bool> ran{false};
    std::future<int32_t> future;
    {
        const NoThreads noThreads;
        future = StartTask([&ran] {
            ran = true;
            return int32_t{0};
        });
    }
    ASSERT_TRUE(future.valid());
    EXPECT_EQ(future.wait_for(std::chrono::seconds(0)), std::future_status::ready);
    EXPECT_EQ(future.get(), -1);
    EXPECT_FALSE(ran);
    EXPECT_EQ(StartTask([] { return int32_t{5}; }).get(), 5) << "once there are threads again";
}

TEST(AsyncTask, DroppingTheFutureWaitsForTheTask) {
    std::atomic<bool> finished{false};
    std::promise<void> started;
    std::promise<void> release;
    std::thread releaser;
    {
        std::future<int32_t> future = StartTask([&] {
            started.set_value();
            release.get_future().wait();
            finished = true;
            return int32_t{0};
        });
        started.get_future().wait();
        releaser = std::thread([&] { release.set_value(); });
    }
    EXPECT_TRUE(finished);
    releaser.join();
}

TEST(AsyncTask, CountsAsRunningUntilItEndsNotUntilItsFutureGoes) {
    EXPECT_FALSE(RunningTask::IsThereOne());
    std::promise<void> go;
    std::future<int32_t> future = StartTask([&go] {
        go.get_future().wait();
        return RunningTask::IsThereOne() ? 1 : 0;
    });
    EXPECT_TRUE(RunningTask::IsThereOne());
    go.set_value();
    const std::shared_future<int32_t> kept = future.share();
    EXPECT_EQ(kept.get(), 1);
    EXPECT_FALSE(RunningTask::IsThereOne());
}

}  // namespace
}  // namespace vantix::test
