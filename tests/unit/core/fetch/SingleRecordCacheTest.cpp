// A cache of one record: valid or not, and how old it may be when it is expired on demand.

#include "core/fetch/SingleRecordCache.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <thread>
#include <vector>

#include "support/FakeClock.h"
#include "vantix/records/P2PUserInfo.h"

namespace vantix::test {
namespace {

using Cache = SingleRecordCache<P2PUserInfo>;

P2PUserInfo User(const std::string& id, int cost = 7) {
    P2PUserInfo user;
    user.userId = id;
    user.data = id;
    user.version = 3;
    user.saltIndex = 4;
    user.iRequestCost = cost;
    return user;
}

class SingleRecord : public testing::Test {
protected:
    bool IsServed() const {
        P2PUserInfo user;
        return cache.Serve(user);
    }

    FakeClock clock;
    Cache cache;
};

TEST_F(SingleRecord, FreshCacheServesNothingAndTouchesNothing) {
    P2PUserInfo user = User("mine");
    EXPECT_FALSE(cache.Serve(user));
    EXPECT_EQ(user.userId, "mine");
    EXPECT_EQ(user.iRequestCost, 7);
}

TEST_F(SingleRecord, KeptRecordIsServedWholeAndAsOneThatTookNoRequest) {
    cache.Store(User("stored"));
    P2PUserInfo user;
    ASSERT_TRUE(cache.Serve(user));
    EXPECT_EQ(user.userId, "stored");
    EXPECT_EQ(user.data, "stored");
    EXPECT_EQ(user.version, 3);
    EXPECT_EQ(user.saltIndex, 4);
    EXPECT_EQ(user.iRequestCost, 0);
}

TEST_F(SingleRecord, ServedRecordIsACopy) {
    cache.Store(User("stored"));
    P2PUserInfo user;
    cache.Serve(user);
    user.userId = "changed";
    ASSERT_TRUE(cache.Serve(user));
    EXPECT_EQ(user.userId, "stored");
}

TEST_F(SingleRecord, LaterRecordReplacesTheEarlierOne) {
    cache.Store(User("first"));
    cache.Store(User("second"));
    P2PUserInfo user;
    ASSERT_TRUE(cache.Serve(user));
    EXPECT_EQ(user.userId, "second");
}

TEST_F(SingleRecord, InvalidRecordIsNotServedUntilOneIsKeptAgain) {
    cache.Store(User("stored"));
    cache.Invalidate();
    P2PUserInfo user = User("mine");
    EXPECT_FALSE(cache.Serve(user));
    EXPECT_EQ(user.userId, "mine");
    EXPECT_EQ(user.iRequestCost, 7);
    cache.Store(User("again"));
    EXPECT_TRUE(cache.Serve(user));
}

TEST_F(SingleRecord, ValidRecordIsServedHoweverOld) {
    cache.Store(User("stored"));
    clock.AdvanceSeconds(10'000'000);
    EXPECT_TRUE(IsServed());
}

TEST_F(SingleRecord, OlderThanMeansStrictlyOlder) {
    for (const auto& [age, served] : {std::pair(0, true), {119, true}, {120, true}, {121, false}, {122, false}}) {
        cache.Store(User("stored"));
        clock.AdvanceSeconds(age);
        cache.InvalidateOlderThan(120);
        EXPECT_EQ(IsServed(), served) << age;
    }
}

TEST_F(SingleRecord, AgeCountsFromTheLastRecordKept) {
    cache.Store(User("first"));
    clock.AdvanceSeconds(121);
    cache.Store(User("second"));
    cache.InvalidateOlderThan(120);
    EXPECT_TRUE(IsServed());
}

TEST_F(SingleRecord, ServingDoesNotMakeARecordYounger) {
    cache.Store(User("stored"));
    clock.AdvanceSeconds(120);
    EXPECT_TRUE(IsServed());
    clock.AdvanceSeconds(1);
    cache.InvalidateOlderThan(120);
    EXPECT_FALSE(IsServed());
}

TEST_F(SingleRecord, YoungRecordDoesNotBecomeValidByTheAgeTest) {
    cache.Store(User("stored"));
    cache.Invalidate();
    cache.InvalidateOlderThan(120);
    EXPECT_FALSE(IsServed());
}

TEST_F(SingleRecord, RecordFromTheFutureIsNotOld) {
    cache.Store(User("stored"));
    clock.AdvanceSeconds(-3600);
    cache.InvalidateOlderThan(120);
    EXPECT_TRUE(IsServed());
}

TEST_F(SingleRecord, AgeIsADifferenceOf32BitsThatWraps) {
    const struct {
        int64_t stored;
        int64_t now;
        bool served;
    } rows[] = {
        {INT32_MAX, int64_t{INT32_MAX} + 120, true},  // the truncated clock jumps to its lowest number
        {INT32_MAX, int64_t{INT32_MAX} + 121, false},
        {0xFFFF'FFFFLL, 0x1'0000'0000LL + 119, true},
        {0xFFFF'FFFFLL, 0x1'0000'0000LL + 120, false},
        {1'800'000'000, 1'800'000'000 + 0x1'0000'0000LL, true},  // 136 years are a difference of 0
        {1'800'000'000, 1'800'000'000LL + 0x8000'0000LL, true},  // the lowest difference
        {1'800'000'000, 1'800'000'000LL + 0x7FFF'FFFFLL, false},
    };
    for (const auto& row : rows) {
        clock.SetWall(row.stored);
        cache.Store(User("stored"));
        clock.SetWall(row.now);
        cache.InvalidateOlderThan(120);
        EXPECT_EQ(IsServed(), row.served) << row.stored << " " << row.now;
    }
}

TEST_F(SingleRecord, WithoutAClockNothingGrowsOld) {
    cache.Store(User("stored"));
    clock.Break();
    cache.InvalidateOlderThan(120);
    EXPECT_TRUE(IsServed());
}

TEST_F(SingleRecord, RecordsStayWholeWhenManyKeepServeAndInvalidate) {
    const std::string longText(200, 'x');
    std::vector<std::thread> threads;
    threads.reserve(8);
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&, i] {
            const std::string own = longText + std::to_string(i);
            for (int k = 0; k < 300; ++k) {
                cache.Store(User(own, i + 1));
                P2PUserInfo user;
                if (cache.Serve(user)) {
                    EXPECT_EQ(user.userId, user.data);
                    EXPECT_EQ(user.iRequestCost, 0);
                }
                if (k % 5 == 0) {
                    cache.Invalidate();
                }
                cache.InvalidateOlderThan(120);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    cache.Store(User("last"));
    EXPECT_TRUE(IsServed());
}

}  // namespace
}  // namespace vantix::test
