#include "base/FunctionRef.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace vantix::test {
namespace {

int Twice(int number) { return 2 * number; }

struct Counter {
    int operator()(int number) const { return *calls += number; }

    int* calls;
};

int CallWith(FunctionRef<int(int)> function, int number) { return function(number); }

// What cannot be called in this way is no argument.
static_assert(!std::is_constructible_v<FunctionRef<int(int)>, int>);
static_assert(!std::is_constructible_v<FunctionRef<int(int)>, std::string>);
static_assert(!std::is_constructible_v<FunctionRef<int()>, Counter>);
static_assert(sizeof(FunctionRef<int(int)>) == 2 * sizeof(void*));

TEST(FunctionRef, CallsAFunction) { EXPECT_EQ(CallWith(Twice, 21), 42); }

TEST(FunctionRef, CallsTheObjectItself) {
    int calls = 1;
    const Counter counter{&calls};
    EXPECT_EQ(CallWith(counter, 2), 3);
    EXPECT_EQ(CallWith(counter, 3), 6);
    EXPECT_EQ(CallWith([&](int number) { return calls - number; }, 1), 5);
}

TEST(FunctionRef, CopyCallsTheSame) {
    int calls = 0;
    const Counter counter{&calls};
    const FunctionRef<int(int)> first = counter;
    const FunctionRef<int(int)> second = first;  // NOLINT(performance-unnecessary-copy-initialization): the copy counts
    EXPECT_EQ(first(1), 1);
    EXPECT_EQ(second(1), 2);
}

TEST(FunctionRef, HandsArgumentsOnAsTheyAre) {
    const auto take = [](std::unique_ptr<int> number, std::string& text) { text = std::to_string(*number); };
    const FunctionRef<void(std::unique_ptr<int>, std::string&)> function = take;
    std::string text;
    function(std::make_unique<int>(7), text);
    EXPECT_EQ(text, "7");
}

}  // namespace
}  // namespace vantix::test
