// The two exported functions, and what handles have in common.

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <new>
#include <set>
#include <thread>
#include <vector>

#include "core/CoreInstance.h"
#include "log/Logger.h"
#include "support/DetailResponse.h"
#include "support/FailingNew.h"
#include "support/Operations.h"
#include "support/TestData.h"
#include "unit/boundary/HandleTest.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::test {
namespace {

using ExportsTest = HandleTest;

TEST_F(ExportsTest, EveryCallHandsOutAnotherHandle) {
    std::set<IVantixDataCenter*> handles;
    for (int i = 0; i < 16; ++i) {
        handles.insert(CreateVantixDataCenterInstance());
    }
    EXPECT_EQ(handles.size(), 16U);
    for (IVantixDataCenter* each : handles) {
        EXPECT_NE(each, nullptr);
        DestroyVantixDataCenterInstance(each);
    }
}

TEST_F(ExportsTest, CreatingAndDestroyingWritesNoLine) {
    DestroyVantixDataCenterInstance(CreateVantixDataCenterInstance());
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ExportsTest, DestroyingNullDoesNothing) {
    handle->setAppId("kept");
    DestroyVantixDataCenterInstance(nullptr);
    std::string appId;
    EXPECT_EQ(handle->getAppId(appId), "kept");
    EXPECT_TRUE(lines.Lines().empty());
}

TEST_F(ExportsTest, ThousandHandlesComeAndGo) {
    handle->setAppId("kept");
    for (int i = 0; i < 1000; ++i) {
        IVantixDataCenter* other = CreateVantixDataCenterInstance();
        std::string appId;
        ASSERT_EQ(other->getAppId(appId), "kept");
        DestroyVantixDataCenterInstance(other);
    }
}

TEST_F(ExportsTest, HandlesSeeTheSameCore) {
    IVantixDataCenter* first = CreateVantixDataCenterInstance();
    IVantixDataCenter* second = CreateVantixDataCenterInstance();
    first->setDomain("https://b.example", "https://c.example");
    first->setAccessToken("token-of-first");
    first->setLogLevel(5);
    EXPECT_EQ(second->getDomain("S", 1), "https://b.example");
    EXPECT_EQ(second->getAccessToken(), "token-of-first");
    EXPECT_EQ(second->getLogLevel(), 5);
    DestroyVantixDataCenterInstance(first);
    EXPECT_EQ(second->getDomain("S", 1), "https://b.example");
    EXPECT_EQ(second->getAccessToken(), "token-of-first");
    EXPECT_EQ(second->getLogLevel(), 5);
    DestroyVantixDataCenterInstance(second);
}

TEST_F(ExportsTest, EverythingOutlivesTheLastHandle) {
    handle->setDomain("https://outlives.example", "");
    handle->setAccessToken("outlives");
    handle->SetB2CTokens(R"([{"token":"t","deviceSerial":"B","channelNo":"1","isShared":1}])");
    transport.Respond(DetailResponse("C1", 1).dump());
    DevChannelInfo channelInfo;
    DevDetailInfo detail;
    ASSERT_EQ(handle->getDevDetailInfoSync("C1", 1, true, channelInfo, detail), 0);

    DestroyVantixDataCenterInstance(handle);
    handle = CreateVantixDataCenterInstance();

    EXPECT_EQ(handle->getDomain("C1", 1), "https://outlives.example");
    EXPECT_EQ(handle->getAccessToken(), "outlives");
    std::string token;
    EXPECT_EQ(handle->getB2CTokens("B", 1, token), "t");
    DevDetailInfo cached;
    EXPECT_EQ(handle->getDevInfoCache("C1", 1, channelInfo, cached), 0);
    EXPECT_EQ(cached.deviceSerial, "C1");
    EXPECT_EQ(transport.Count(), 1U);
}

TEST_F(ExportsTest, WithoutMemoryTheFactoryThrowsTheAllocatorsExceptionAndLogsNothing) {
    bool isThrown = false;
    const size_t allocations = WithEveryAllocationFailing(
        [&] {
            isThrown = false;
            try {
                DestroyVantixDataCenterInstance(CreateVantixDataCenterInstance());
            } catch (const std::bad_alloc&) {
                isThrown = true;
            }
        },
        [&](size_t n) { EXPECT_EQ(isThrown, FailingNew::Fired()) << "allocation " << n; });
    EXPECT_EQ(allocations, 1U) << "the handle; the core is there";
    EXPECT_TRUE(lines.Lines().empty());
    IVantixDataCenter* after = CreateVantixDataCenterInstance();
    EXPECT_NE(after, nullptr);
    DestroyVantixDataCenterInstance(after);
}

#if GTEST_HAS_DEATH_TEST
/// Whether a step allocates anything. One that would is cut off at its first allocation.
bool Allocates(void (*step)()) {
    const FailingNew failing(1);
    try {
        step();
    } catch (const std::bad_alloc&) {
        return true;
    }
    return FailingNew::Fired();
}

/// Whether the core is there: building it allocates.
bool CoreIsBuilt() {
    return !Allocates([] { CoreInstance(); });
}

/// Ends the process with 0 when all of these are so.
[[noreturn]] void ExitWith(std::initializer_list<bool> facts) {
    int number = 1;
    for (const bool fact : facts) {
        if (!fact) {
            std::_Exit(number);
        }
        ++number;
    }
    std::_Exit(0);
}

/// Each of these cases runs in a process that has just started.
class FirstUse : public testing::Test {
protected:
    FirstUse() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(FirstUse, NeitherLoadingNorDestroyingNullBuildsTheCore) {
    const auto steps = [] {
        const bool atLoad = CoreIsBuilt();
        const bool allocates = Allocates([] { DestroyVantixDataCenterInstance(nullptr); });
        ExitWith({!atLoad, !allocates, !CoreIsBuilt()});
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}

TEST_F(FirstUse, FirstHandleBuildsTheCore) {
    const auto steps = [] {
        DestroyVantixDataCenterInstance(CreateVantixDataCenterInstance());
        ExitWith({CoreIsBuilt()});
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}

TEST_F(FirstUse, FirstLineThatIsWrittenBuildsTheCore) {
    const auto steps = [] {
        VANTIX_LOG_INFO(VANTIX_HERE, level::kDetail, "filtered");
        const bool afterAFilteredOne = CoreIsBuilt();
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "written");
        ExitWith({!afterAFilteredOne, CoreIsBuilt()});
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}

TEST_F(FirstUse, WithoutMemoryForTheCoreTheFactoryThrowsAndTheNextCallSucceeds) {
    const auto steps = [] {
        bool isThrown = false;
        try {
            const FailingNew failing(1);
            CreateVantixDataCenterInstance();
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        IVantixDataCenter* next = CreateVantixDataCenterInstance();
        next->setAppId("works");
        std::string appId;
        ExitWith({isThrown, next->getAppId(appId) == "works"});
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}
#endif

TEST_F(ExportsTest, HandlesAreMadeOnManyThreadsAtOnce) {
    std::atomic<int> wrong{0};
    handle->setAppId("shared");
    constexpr int kThreads = 16;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 50; ++k) {
                IVantixDataCenter* own = CreateVantixDataCenterInstance();
                std::string appId;
                wrong += own->getAppId(appId) == "shared" ? 0 : 1;
                DestroyVantixDataCenterInstance(own);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(ExportsTest, TestsKnowEverySlot) {
    std::vector<std::string> slots;
    std::ifstream file(TestData("slots.txt"));
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#' && line != "0 ~IVantixDataCenter") {
            slots.push_back(line);
        }
    }
    std::vector<std::string> known;
    for (const Operation& operation : Operations()) {
        known.push_back(std::to_string(operation.slot).append(" ").append(operation.name));
    }
    EXPECT_EQ(slots.size(), 108U);
    EXPECT_EQ(known, slots);
}

}  // namespace
}  // namespace vantix::test
