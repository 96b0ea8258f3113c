// A value and its lock.

#include "base/Guarded.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace vantix::test {
namespace {

TEST(Guarded, BeginsWithTheValuesDefault) {
    EXPECT_EQ(Guarded<int>().Copy(), 0);
    EXPECT_EQ(Guarded<std::string>().Copy(), "");
    EXPECT_EQ(Guarded<int>(5).Copy(), 5);
}

TEST(Guarded, CopyIsTheCallersOwn) {
    Guarded<std::string> text("first");
    std::string copy = text.Copy();
    text.Assign("second");
    EXPECT_EQ(copy, "first");
    copy = "third";
    EXPECT_EQ(text.Copy(), "second");
}

TEST(Guarded, UseSeesAndChangesTheValueAndItsResultIsPassedOn) {
    Guarded<std::vector<int>> values;
    EXPECT_EQ(values.With([](std::vector<int>& all) {
        all.push_back(7);
        return all.size();
    }),
              1U);
    const auto& constant = values;
    EXPECT_EQ(constant.With([](const std::vector<int>& all) { return all.front(); }), 7);
}

TEST(Guarded, LiveIsTheValueItself) {
    Guarded<std::string> text;
    const std::string& live = text.Live();
    text.Assign("seen");
    EXPECT_EQ(live, "seen");
    EXPECT_EQ(&live, &text.Live());
}

TEST(Guarded, LiveWaitsForAWriterThatIsAtWork) {
    Guarded<std::string> text("old");
    std::promise<void> written;
    std::promise<void> asked;
    std::thread writer([&] {
        text.With([&](std::string& value) {
            written.set_value();
            asked.get_future().wait();
            std::this_thread::sleep_for(std::chrono::milliseconds(50));  // a reader without the lock is through by now
            value = "new";
        });
    });
    written.get_future().wait();
    asked.set_value();
    EXPECT_EQ(text.Live(), "new");
    writer.join();
}

TEST(Guarded, ExceptionInAUseGivesTheLockUp) {
    Guarded<int> number(1);
    EXPECT_THROW(number.With([](int&) -> int { throw std::runtime_error("x"); }), std::runtime_error);
    EXPECT_EQ(number.Copy(), 1);
}

/// Looks at the guard that it was in when it is destroyed: that would hang if its lock were still held.
struct Nosy {
    Guarded<Nosy>* guard = nullptr;
    int* seen = nullptr;
    int number = 0;

    Nosy() = default;
    Nosy(Guarded<Nosy>* where, int* report, int value) : guard(where), seen(report), number(value) {}
    Nosy(Nosy&& other) noexcept { *this = std::move(other); }
    Nosy& operator=(Nosy&& other) noexcept {
        std::swap(guard, other.guard);
        std::swap(seen, other.seen);
        std::swap(number, other.number);
        return *this;
    }
    Nosy(const Nosy&) = delete;
    Nosy& operator=(const Nosy&) = delete;
    ~Nosy() {
        if (guard != nullptr) {
            *seen = guard->With([](const Nosy& current) { return current.number; });
        }
    }
};

TEST(Guarded, OldValueIsDestroyedAfterTheLockWasGivenUp) {
    int seen = 0;
    Guarded<Nosy> guard;
    guard.Assign(Nosy(&guard, &seen, 1));
    guard.Assign(Nosy(nullptr, nullptr, 2));
    EXPECT_EQ(seen, 2);
}

TEST(Guarded, OnlyOneAtATimeIsInside) {
    Guarded<int> number;
    constexpr int kThreads = 8;
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 2000; ++k) {
                number.With([](int& value) { value = value + 1; });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(number.Copy(), 16'000);
}

TEST(Guarded, CopiesAreNeverTorn) {
    Guarded<std::string> text(std::string(500, 'a'));
    std::thread writer([&] {
        for (int i = 0; i < 2000; ++i) {
            text.Assign(std::string(static_cast<size_t>(100 + i % 400), static_cast<char>('a' + i % 26)));
        }
    });
    for (int i = 0; i < 2000; ++i) {
        const std::string copy = text.Copy();
        EXPECT_EQ(copy.find_first_not_of(copy[0]), std::string::npos);
    }
    writer.join();
}

}  // namespace
}  // namespace vantix::test
