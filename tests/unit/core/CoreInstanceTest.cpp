// The one core of the process.

#include "core/CoreInstance.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <set>
#include <thread>
#include <vector>

#include "core/CVantixDataCenter.h"
#include "support/FailingNew.h"

namespace vantix::test {
namespace {

TEST(CoreInstance, ConcurrentFirstCallersGetTheSame) {
    constexpr size_t kCallers = 16;
    std::atomic<bool> go{false};
    std::vector<CVantixDataCenter*> seen(kCallers);
    std::vector<std::thread> threads;
    threads.reserve(kCallers);
    for (size_t i = 0; i < kCallers; ++i) {
        threads.emplace_back([&, i] {
            while (!go) {
                std::this_thread::yield();
            }
            seen[i] = &CoreInstance();
        });
    }
    go = true;
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(std::set<CVantixDataCenter*>(seen.begin(), seen.end()).size(), 1U);
    EXPECT_EQ(seen[0], &CoreInstance());
}

TEST(CoreInstance, FailedBuildIsTriedAgain) {
    // Where an earlier case of the process has built the core, nothing is allocated and nothing fails.
    size_t failures = 0;
    for (size_t n = 1; n <= 3; ++n) {
        bool fired = false;
        try {
            const FailingNew failing(n);
            CoreInstance();
            fired = FailingNew::Fired();
        } catch (const std::bad_alloc&) {
            ++failures;
        }
        EXPECT_FALSE(fired) << "a failed build is not to be taken for a core";
    }
    CVantixDataCenter& core = CoreInstance();
    core.setAppId("kept");
    EXPECT_EQ(CoreInstance().getAppId(), "kept");
    core.setAppId("");
    RecordProperty("failedBuilds", static_cast<int>(failures));
}

TEST(CoreInstance, EveryAllocationOfABuildMayFail) {
    size_t failures = 0;
    WithEveryAllocationFailing(
        [&] {
            try {
                const CVantixDataCenter core;
            } catch (const std::bad_alloc&) {
                ++failures;
            }
        },
        [](size_t /*n*/) {});
    EXPECT_GT(failures, 0U);
}

}  // namespace
}  // namespace vantix::test
