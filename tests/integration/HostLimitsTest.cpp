// Callers who share the last descriptors: some get through. Linux only; what all callers meet alike stands in the fault
// matrix, tests/faults.

#if defined(__linux__)

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include "SurvivalFixture.h"
#include "support/DescriptorsLeft.h"

namespace vantix::test {
namespace {

class HostLimitsTest : public SurvivalFixture {};

TEST_F(HostLimitsTest, CallersWithoutADescriptorFailAndTheOthersDoNot) {
    // Those who get through wait at the gate and keep what they have, until somebody found nothing left.
    Cloud().Script({{"path", kDetailPath}, {"hold", "detail"}, {"times", 0}});
    std::vector<int> results(64, -1);
    std::atomic<int> finished{0};
    std::vector<std::thread> callers;
    {
        const DescriptorsLeft few(40);
        for (int& result : results) {
            callers.emplace_back([this, &result, &finished] {
                result = Fetch(kCamera, 1);
                ++finished;
            });
        }
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (finished == 0 && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
    }
    Cloud().ForgetScript();
    for (std::thread& caller : callers) {
        caller.join();
    }
    const auto failed = std::count(results.begin(), results.end(), 100007);
    const auto passed = std::count(results.begin(), results.end(), 0);
    EXPECT_GT(failed, 0);
    EXPECT_GT(passed, 0);
    EXPECT_EQ(failed + passed, 64);
    EXPECT_EQ(Cloud().RequestCount(), static_cast<size_t>(passed));
    ExpectGoodCall();
}

}  // namespace
}  // namespace vantix::test

#endif
