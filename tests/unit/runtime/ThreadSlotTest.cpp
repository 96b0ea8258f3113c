#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <thread>

#include "tvl/tvl.h"

namespace {

unsigned NewSlot() {
    unsigned slot = 0;
    EXPECT_EQ(TVL_ThreadTls_Create(&slot), 0);
    return slot;
}

TEST(ThreadSlot, IsEmptyAtFirst) { EXPECT_EQ(TVL_ThreadTls_GetValue(NewSlot()), nullptr); }

TEST(ThreadSlot, HoldsAValueForEachThread) {
    const unsigned slot = NewSlot();
    int mine = 0;
    int theirs = 0;
    ASSERT_EQ(TVL_ThreadTls_SetValue(slot, &mine), 0);
    std::thread([&] {
        EXPECT_EQ(TVL_ThreadTls_GetValue(slot), nullptr) << "a new thread starts without a value";
        EXPECT_EQ(TVL_ThreadTls_SetValue(slot, &theirs), 0);
        EXPECT_EQ(TVL_ThreadTls_GetValue(slot), &theirs);
    }).join();
    EXPECT_EQ(TVL_ThreadTls_GetValue(slot), &mine);
}

TEST(ThreadSlot, TakesALaterValueAndNull) {
    const unsigned slot = NewSlot();
    int first = 0;
    int second = 0;
    EXPECT_EQ(TVL_ThreadTls_SetValue(slot, &first), 0);
    EXPECT_EQ(TVL_ThreadTls_SetValue(slot, &second), 0);
    EXPECT_EQ(TVL_ThreadTls_GetValue(slot), &second);
    EXPECT_EQ(TVL_ThreadTls_SetValue(slot, nullptr), 0);
    EXPECT_EQ(TVL_ThreadTls_GetValue(slot), nullptr);
}

TEST(ThreadSlot, SlotsDoNotShareValues) {
    const unsigned first = NewSlot();
    const unsigned second = NewSlot();
    EXPECT_NE(first, second);
    int value = 0;
    EXPECT_EQ(TVL_ThreadTls_SetValue(first, &value), 0);
    EXPECT_EQ(TVL_ThreadTls_GetValue(second), nullptr);
    EXPECT_EQ(TVL_ThreadTls_SetValue(first, nullptr), 0);
}

TEST(ThreadSlot, IsGivenBack) {
    for (int i = 0; i < 3'000; ++i) {  // more than any system has at once
        const unsigned slot = NewSlot();
        int value = i;
        ASSERT_EQ(TVL_ThreadTls_SetValue(slot, &value), 0) << i;
        TVL_ThreadTls_Destroy(slot);
    }
}

TEST(ThreadSlot, NoPlaceForTheSlotIsRefused) { EXPECT_EQ(TVL_ThreadTls_Create(nullptr), -1); }

TEST(ThreadSlot, ASlotThatDoesNotExistTakesNothing) {
    int value = 0;
    constexpr unsigned kNoSlot = std::numeric_limits<unsigned>::max();
    EXPECT_EQ(TVL_ThreadTls_SetValue(kNoSlot, &value), -1);
    EXPECT_EQ(TVL_ThreadTls_GetValue(kNoSlot), nullptr);
}

TEST(DebuggerChannel, TakesATextAndIgnoresNothing) {
    testing::internal::CaptureStderr();
    TVL_OutputDebugString("one line of %s\n");
    TVL_OutputDebugString("");
    TVL_OutputDebugString(nullptr);
    const std::string written = testing::internal::GetCapturedStderr();
#if defined(_WIN32)
    EXPECT_EQ(written, "") << "there the debugger listens";
#else
    EXPECT_EQ(written, "one line of %s\n");
#endif
}

}  // namespace
