// The calling thread's last error.

#include "base/LastError.h"

#include <gtest/gtest.h>

#include <climits>
#include <thread>

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

}  // namespace
}  // namespace vantix::test
