// What the system refuses: a mutex or a slot that cannot be had.

#include <gtest/gtest.h>

#if !defined(_WIN32)

#include <pthread.h>

#include <cerrno>

#include "tvl/tvl.h"

namespace {

bool g_refuses = false;

}  // namespace

// The linker leads calls of these functions here (options.cmake).
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
int __real_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attribute);
int __real_pthread_key_create(pthread_key_t* key, void (*destroy)(void*));

int __wrap_pthread_mutex_init(pthread_mutex_t* mutex, const pthread_mutexattr_t* attribute) {
    return g_refuses ? ENOMEM : __real_pthread_mutex_init(mutex, attribute);
}

int __wrap_pthread_key_create(pthread_key_t* key, void (*destroy)(void*)) {
    return g_refuses ? EAGAIN : __real_pthread_key_create(key, destroy);
}
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

/// While it exists, the system has no mutex and no slot left.
class NothingLeft {
public:
    NothingLeft() { g_refuses = true; }
    ~NothingLeft() { g_refuses = false; }
    NothingLeft(const NothingLeft&) = delete;
    NothingLeft& operator=(const NothingLeft&) = delete;
};

TEST(TvlPosix, AMutexThatTheSystemRefusesIsNull) {
    for (const int recursive : {0, 1}) {
        void* refused = nullptr;
        {
            const NothingLeft nothing;
            refused = TVL_MutexCreate(recursive);
        }
        EXPECT_EQ(refused, nullptr);
        void* mutex = TVL_MutexCreate(recursive);
        ASSERT_NE(mutex, nullptr) << "once there are some again";
        EXPECT_EQ(TVL_MutexLock(mutex), 0);
        EXPECT_EQ(TVL_MutexUnlock(mutex), 0);
        TVL_MutexDestroy(mutex);
    }
}

TEST(TvlPosix, ASlotThatTheSystemRefusesIsMinusOneAndLeavesTheNumber) {
    unsigned slot = 4711;
    int result = 0;
    {
        const NothingLeft nothing;
        result = TVL_ThreadTls_Create(&slot);
    }
    EXPECT_EQ(result, -1);
    EXPECT_EQ(slot, 4711U);
}

}  // namespace

#endif
