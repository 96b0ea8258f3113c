#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <future>
#include <new>
#include <thread>
#include <type_traits>
#include <vector>

#if !defined(_WIN32)
#include <pthread.h>
#endif

#include "tvl/tvl.h"

// The linker leads calls of an entry point here and keeps the original as "real" (options.cmake).
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
void* __real_TVL_MutexCreate(int recursive);
int __real_TVL_MutexLock(void* mutex);
int __real_TVL_MutexUnlock(void* mutex);
void* __wrap_TVL_MutexCreate(int recursive);
int __wrap_TVL_MutexLock(void* mutex);
int __wrap_TVL_MutexUnlock(void* mutex);
}

namespace {

/// What this thread did to mutexes.
struct Calls {
    int locks = 0;
    int unlocks = 0;
    bool failCreate = false;
    void* created = nullptr;
    int lockStatus = 0;
    int unlockStatus = 0;
};
thread_local Calls t_calls;

}  // namespace

void* __wrap_TVL_MutexCreate(int recursive) {
    t_calls.created = t_calls.failCreate ? nullptr : __real_TVL_MutexCreate(recursive);
    return t_calls.created;
}

int __wrap_TVL_MutexLock(void* mutex) {
    ++t_calls.locks;
    return t_calls.lockStatus != 0 ? t_calls.lockStatus : __real_TVL_MutexLock(mutex);
}

int __wrap_TVL_MutexUnlock(void* mutex) {
    ++t_calls.unlocks;
    return t_calls.unlockStatus != 0 ? t_calls.unlockStatus : __real_TVL_MutexUnlock(mutex);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace {

class LockClasses : public testing::Test {
public:
    LockClasses() { t_calls = Calls(); }
    ~LockClasses() override { t_calls = Calls(); }
    LockClasses(const LockClasses&) = delete;
    LockClasses& operator=(const LockClasses&) = delete;
};

using Mutex = LockClasses;
using Guard = LockClasses;
using RecursiveMutex = LockClasses;

void OnAnotherThread(const std::function<void()>& work) { std::thread(work).join(); }

/// Ends only when nobody holds the lock: another thread takes it and gives it back.
template <class Lockable>
void ExpectFree(Lockable& mutex) {
    OnAnotherThread([&] {
        EXPECT_EQ(mutex.Lock(), 0);
        EXPECT_EQ(mutex.Unlock(), 0);
    });
}

TEST_F(Mutex, LockAndUnlockReturnZero) {
    TVL_Mutex mutex;
    EXPECT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(mutex.Unlock(), 0);
    ExpectFree(mutex);
}

#if !defined(_WIN32)
/// Whether the thread that holds the runtime's newest mutex gets it once more without waiting.
bool OwnerMayLockAgain() {
    auto* mutex = static_cast<pthread_mutex_t*>(t_calls.created);
    const bool isLocked = pthread_mutex_trylock(mutex) == 0;
    if (isLocked) {
        pthread_mutex_unlock(mutex);
    }
    return isLocked;
}

TEST_F(Mutex, ItsOwnerMayNotLockItAgain) {
    TVL_Mutex mutex;
    ASSERT_EQ(mutex.Lock(), 0);
    EXPECT_FALSE(OwnerMayLockAgain());
    EXPECT_EQ(mutex.Unlock(), 0);
    EXPECT_TRUE(OwnerMayLockAgain()) << "nobody holds it";
}
#else
TEST_F(Mutex, ItsOwnerMayNotLockItAgain) {
    TVL_Mutex mutex;
    std::promise<void> locked;
    std::thread owner([&] {
        mutex.Lock();
        mutex.Lock();
        locked.set_value();
        mutex.Unlock();
    });
    EXPECT_EQ(locked.get_future().wait_for(std::chrono::milliseconds(200)), std::future_status::timeout);
    mutex.Unlock();  // in the owner's place, which would deadlock
    owner.join();
}
#endif

TEST_F(Mutex, LockAndUnlockReturnTheRuntimesStatus) {
    TVL_Mutex mutex;
    t_calls.lockStatus = 35;
    t_calls.unlockStatus = 1;
    EXPECT_EQ(mutex.Lock(), 35);
    EXPECT_EQ(mutex.Unlock(), 1);
}

TEST_F(Mutex, KeepsThreadsApart) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 5000;
    TVL_Mutex mutex;
    int counter = 0;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int round = 0; round < kRounds; ++round) {
                const TVL_Guard guard(&mutex);
                ++counter;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counter, kThreads * kRounds);
}

TEST_F(Mutex, IsNeverCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<TVL_Mutex>);
    EXPECT_TRUE(std::is_copy_assignable_v<TVL_Mutex>);
}

TEST_F(Mutex, AssignmentReturnsTheObjectAndLeavesBothAsTheyAre) {
    TVL_Mutex held;
    TVL_Mutex free;
    held.Lock();
    EXPECT_EQ(&(free = held), &free);
    EXPECT_EQ(t_calls.locks, 1);
    EXPECT_EQ(t_calls.unlocks, 0);
    ExpectFree(free);
    EXPECT_EQ(held.Unlock(), 0);

    free.Lock();
    EXPECT_EQ(&(free = held), &free);
    ExpectFree(held);
    EXPECT_EQ(free.Unlock(), 0);
    ExpectFree(free);
}

TEST_F(Mutex, ThrowsWhenThereIsNoMemory) {
    t_calls.failCreate = true;
    EXPECT_THROW(TVL_Mutex(), std::bad_alloc);
    EXPECT_THROW(tvl::tvl_recursive_mutex(), std::bad_alloc);
}

TEST_F(Guard, LocksOnConstructionAndUnlocksOnDestruction) {
    TVL_Mutex mutex;
    {
        const TVL_Guard guard(&mutex);
        EXPECT_EQ(t_calls.locks, 1);
        EXPECT_EQ(t_calls.unlocks, 0);
    }
    EXPECT_EQ(t_calls.locks, 1);
    EXPECT_EQ(t_calls.unlocks, 1);
    ExpectFree(mutex);
}

TEST_F(Guard, ReleaseUnlocksAtOnce) {
    TVL_Mutex mutex;
    TVL_Guard guard(&mutex);
    guard.Release();
    EXPECT_EQ(t_calls.unlocks, 1);
    ExpectFree(mutex);
}

TEST_F(Guard, SecondReleaseAndDestructorDoNothing) {
    TVL_Mutex mutex;
    {
        TVL_Guard guard(&mutex);
        guard.Release();
        guard.Release();
        EXPECT_EQ(t_calls.unlocks, 1);
    }
    EXPECT_EQ(t_calls.locks, 1);
    EXPECT_EQ(t_calls.unlocks, 1);
}

TEST_F(Guard, ReleasedGuardLeavesALaterOwnerAlone) {
    TVL_Mutex mutex;
    {
        TVL_Guard first(&mutex);
        first.Release();
        mutex.Lock();
    }
    EXPECT_EQ(t_calls.locks, 2);
    EXPECT_EQ(t_calls.unlocks, 1);
    EXPECT_EQ(mutex.Unlock(), 0);
    ExpectFree(mutex);
}

TEST_F(Guard, WithoutAMutexDoesNothing) {
    {
        TVL_Guard guard(nullptr);
        guard.Release();
    }
    EXPECT_EQ(t_calls.locks, 0);
    EXPECT_EQ(t_calls.unlocks, 0);
}

TEST_F(Guard, IsNeverCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<TVL_Guard>);
    EXPECT_TRUE(std::is_copy_assignable_v<TVL_Guard>);
}

TEST_F(Guard, AssignmentReturnsTheObjectAndEachKeepsItsMutex) {
    TVL_Mutex first;
    TVL_Mutex second;
    {
        TVL_Guard one(&first);
        TVL_Guard two(&second);
        EXPECT_EQ(&(one = two), &one);
        EXPECT_EQ(t_calls.unlocks, 0);
        one.Release();
        ExpectFree(first);
        two.Release();
        ExpectFree(second);
    }
    EXPECT_EQ(t_calls.locks, 2);
    EXPECT_EQ(t_calls.unlocks, 2);
}

TEST_F(RecursiveMutex, ItsOwnerMayLockItAgain) {
    tvl::tvl_recursive_mutex mutex;
    EXPECT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(mutex.Lock(), 0);
    EXPECT_EQ(mutex.Unlock(), 0);
    EXPECT_EQ(mutex.Unlock(), 0);
    EXPECT_EQ(mutex.Unlock(), 0);
    ExpectFree(mutex);
}

#if !defined(_WIN32)
TEST_F(RecursiveMutex, ItsOwnerGetsItAgainWithoutWaiting) {
    tvl::tvl_recursive_mutex mutex;
    ASSERT_EQ(mutex.Lock(), 0);
    EXPECT_TRUE(OwnerMayLockAgain());
    EXPECT_EQ(mutex.Unlock(), 0);
}
#endif

TEST_F(RecursiveMutex, HasAVirtualTable) {
    EXPECT_TRUE(std::is_polymorphic_v<tvl::tvl_recursive_mutex>);
    EXPECT_TRUE(std::has_virtual_destructor_v<tvl::tvl_recursive_mutex>);
    EXPECT_FALSE(std::is_polymorphic_v<TVL_Mutex>);
    EXPECT_FALSE(std::is_polymorphic_v<TVL_Guard>);
}

TEST_F(RecursiveMutex, ACopyIsANewUnlockedMutex) {
    tvl::tvl_recursive_mutex source;
    source.Lock();
    source.Lock();
    tvl::tvl_recursive_mutex copy(source);
    ExpectFree(copy);

    copy.Lock();
    EXPECT_EQ(source.Unlock(), 0);
    EXPECT_EQ(source.Unlock(), 0);
    ExpectFree(source);
    EXPECT_EQ(copy.Unlock(), 0);
    ExpectFree(copy);
}

TEST_F(RecursiveMutex, AssignmentReturnsTheObjectAndLeavesBothAsTheyAre) {
    tvl::tvl_recursive_mutex held;
    tvl::tvl_recursive_mutex free;
    held.Lock();
    EXPECT_EQ(&(free = held), &free);
    EXPECT_EQ(t_calls.locks, 1);
    EXPECT_EQ(t_calls.unlocks, 0);
    ExpectFree(free);
    EXPECT_EQ(held.Unlock(), 0);
    ExpectFree(held);
}

#if defined(__SANITIZE_THREAD__)
#define VANTIX_MISTAKES_ARE_REPORTED
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define VANTIX_MISTAKES_ARE_REPORTED
#endif
#endif

#if !defined(_WIN32) && !defined(VANTIX_MISTAKES_ARE_REPORTED)
// Windows has no status that shows it, and the thread sanitizer ends the program at such a mistake.
TEST_F(RecursiveMutex, AnUnlockWithoutALockIsAnError) {
    tvl::tvl_recursive_mutex mutex;
    mutex.Lock();
    mutex.Lock();
    EXPECT_EQ(mutex.Unlock(), 0);
    OnAnotherThread([&] { EXPECT_NE(mutex.Unlock(), 0) << "held by another thread"; });
    EXPECT_EQ(mutex.Unlock(), 0);
    EXPECT_NE(mutex.Unlock(), 0) << "held by nobody";
}

TEST_F(RecursiveMutex, ACopyOfAHeldMutexIsNotHeldByItsMaker) {
    tvl::tvl_recursive_mutex source;
    source.Lock();
    tvl::tvl_recursive_mutex copy(source);
    EXPECT_NE(copy.Unlock(), 0);
    EXPECT_EQ(source.Unlock(), 0);
}
#endif

TEST(MutexEntryPoints, DestroyOfNothingLeavesOtherMutexesAlone) {
    void* mutex = TVL_MutexCreate(0);
    TVL_MutexDestroy(nullptr);
    EXPECT_EQ(TVL_MutexLock(mutex), 0);
    EXPECT_EQ(TVL_MutexUnlock(mutex), 0);
    TVL_MutexDestroy(mutex);
}

}  // namespace
