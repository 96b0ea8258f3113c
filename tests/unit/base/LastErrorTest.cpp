// The calling thread's last error.

#include "base/LastError.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <thread>

namespace {

bool g_noSlots = false;
bool g_isSlotGone = false;

}  // namespace

// The linker leads calls of these entry points here (options.cmake).
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
int __real_TVL_ThreadTls_Create(unsigned* slot);

int __wrap_TVL_ThreadTls_Create(unsigned* slot) { return g_noSlots ? -1 : __real_TVL_ThreadTls_Create(slot); }

void __real_TVL_ThreadTls_Destroy(unsigned slot);

void __wrap_TVL_ThreadTls_Destroy(unsigned slot) {
    g_isSlotGone = true;
    __real_TVL_ThreadTls_Destroy(slot);
}

int __real_TVL_ThreadTls_SetValue(unsigned slot, void* value);

/// A slot that was given back may be another library's by now.
int __wrap_TVL_ThreadTls_SetValue(unsigned slot, void* value) {
    if (g_isSlotGone) {
        std::abort();
    }
    return __real_TVL_ThreadTls_SetValue(slot, value);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace vantix::test {
namespace {

TEST(LastError, IsZeroOnAThreadThatSetNone) {
    int seen = -99;
    std::thread([&] { seen = ThreadLastError(); }).join();
    EXPECT_EQ(seen, 0);
}

TEST(LastError, IsWhatWasSetLast) {
    for (const int code : {-1, 5, INT_MIN, INT_MAX, 0}) {
        SetThreadLastError(code);
        EXPECT_EQ(ThreadLastError(), code);
    }
}

TEST(LastError, BelongsToItsThread) {
    SetThreadLastError(7);
    int seenBefore = -99;
    int seenAfter = -99;
    std::thread([&] {
        seenBefore = ThreadLastError();
        SetThreadLastError(-1);
        seenAfter = ThreadLastError();
    }).join();
    EXPECT_EQ(seenBefore, 0);
    EXPECT_EQ(seenAfter, -1);
    EXPECT_EQ(ThreadLastError(), 7);
    SetThreadLastError(0);
}

#if GTEST_HAS_DEATH_TEST
TEST(LastError, IsZeroWhereTheSystemHasNoSlotLeft) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";  // in a process that has just started
    const auto steps = [] {
        g_noSlots = true;
        SetThreadLastError(5);
        std::exit(ThreadLastError());  // as every process does: what counts executed lines writes them down
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(0), "");
}

TEST(LastError, IsZeroWhenTheProcessEndsAndTheSlotIsGone) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto steps = [] {
        // Runs after the slot, which is made later, has gone.
        std::atexit([] {
            SetThreadLastError(5);
            if (!g_isSlotGone || ThreadLastError() != 0) {
                std::abort();
            }
        });
        SetThreadLastError(7);
        std::exit(ThreadLastError());
    };
    EXPECT_EXIT(steps(), testing::ExitedWithCode(7), "");
}
#endif

}  // namespace
}  // namespace vantix::test
