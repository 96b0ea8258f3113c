// The first call of a process when memory runs out: it fails, and the next one builds the core.

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "log/Logger.h"
#include "support/FailingNew.h"
#include "support/LogCapture.h"
#include "vantix/IVantixDataCenter.h"

#if GTEST_HAS_DEATH_TEST

namespace vantix::test {
namespace {

/// In a process that has just started, so that no case before has built the core.
class FirstCall : public testing::Test {
protected:
    FirstCall() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

TEST_F(FirstCall, NoHandleComesWithoutMemoryAndTheNextCallHasOne) {
    const auto steps = [] {
        int failures = 0;
        IVantixDataCenter* handle = nullptr;
        for (size_t n = 1; handle == nullptr; ++n) {
            try {
                const FailingNew failing(n);
                handle = CreateVantixDataCenterInstance();
            } catch (const std::bad_alloc&) {
                ++failures;
            }
        }
        handle->setAppId("kept");
        std::string appId;
        const bool works = handle->getAppId(appId) == "kept";
        DestroyVantixDataCenterInstance(handle);
        std::exit(works && failures > 10 ? 0 : 1);
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}

TEST_F(FirstCall, FirstLineIsDroppedWithoutMemoryAndTheNextOneIsWritten) {
    const auto steps = [] {
        const LogCapture lines;
        {
            const FailingNew failing(1);
            VANTIX_LOG_INFO(VANTIX_HERE, 3, "dropped");
        }
        VANTIX_LOG_INFO(VANTIX_HERE, 3, "written");
        std::exit(lines.Messages() == std::vector<std::string>{"written"} ? 0 : 1);
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace vantix::test

#endif
