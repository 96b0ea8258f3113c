// Nothing that goes wrong behind a handle reaches the host as an exception.

#include <gtest/gtest.h>

#include <stdexcept>

#include "boundary/NoThrow.h"
#include "support/Operations.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

TEST(NoThrow, ResultOfTheBodyIsPassedOn) {
    EXPECT_EQ(NoThrow([] { return 5; }, -1), 5);
    EXPECT_EQ(NoThrow([] { return true; }, false), true);
    int calls = 0;
    NoThrow([&] { ++calls; });
    EXPECT_EQ(calls, 1);
}

TEST(NoThrow, ExceptionOfAnyKindBecomesTheNeutralResult) {
    EXPECT_EQ(NoThrow([]() -> int { throw std::runtime_error("x"); }, -1), -1);
    EXPECT_EQ(NoThrow([]() -> int { throw 5; }, -1), -1);
    EXPECT_EQ(NoThrow([]() -> bool { throw std::bad_alloc(); }, false), false);
    EXPECT_NO_THROW(NoThrow([] { throw std::logic_error("x"); }));
}

TEST(NoThrow, ReferenceIsKept) {
    int value = 1;
    int neutral = 2;
    EXPECT_EQ(NoThrow([&] { return &value; }, &neutral), &value);
    EXPECT_EQ(NoThrow([&]() -> int* { throw 1; }, &neutral), &neutral);
}

TEST(NoThrowInto, TextIsTheBodysOrEmptyAndComesBackItself) {
    std::string text = "old";
    EXPECT_EQ(&NoThrowInto(text, [] { return std::string("new"); }), &text);
    EXPECT_EQ(text, "new");
    EXPECT_EQ(&NoThrowInto(text, []() -> std::string { throw std::bad_alloc(); }), &text);
    EXPECT_EQ(text, "");
}

/// Arguments that servers, hosts and test writers get wrong.
std::vector<std::pair<std::string, Arguments>> UnusualArguments() {
    const std::string nul("a\0b", 3);
    std::vector<std::pair<std::string, Arguments>> unusual = {
        {"empty", Arguments::AllOf("", "", "", 0)},
        {"ordinary", Arguments::AllOf("C1", "token", "text", 1)},
        {"negative", Arguments::AllOf("C1", "token", "text", -1)},
        {"smallest", Arguments::AllOf("C1", "token", "[]", -2147483647 - 1)},
        {"largest", Arguments::AllOf("C1", "token", "{}", 2147483647)},
        {"128 characters", Arguments::AllOf(std::string(128, 's'), "t", "1", 1)},
        {"129 characters", Arguments::AllOf(std::string(129, 's'), "t", "1", 1)},
        {"a million characters",
         Arguments::AllOf(std::string(1'000'000, 's'), std::string(1'000'000, 't'), std::string(1'000'000, 'x'), 1)},
        {"with NUL", Arguments::AllOf(nul, nul, nul, 1)},
    };
    for (const char* text :
         {"\r", "\n", "\r\nX-Injected: 1\r\n", "&a=b", "#x", "%41%n%s", "+", " ", "\xFF\xFE\xC0", "\""}) {
        unusual.push_back({std::string("with ") + text, Arguments::AllOf(text, text, text, 1)});
    }
    return unusual;
}

using NoThrowTest = HandleTest;

TEST_F(NoThrowTest, EveryOperationSurvivesEveryArgumentBeforeAnythingWasSet) {
    handle->setLogLevel(6);
    for (const auto& [name, arguments] : UnusualArguments()) {
        for (const Operation& operation : Operations()) {
            SCOPED_TRACE(name + ", " + operation.name);
            Outputs outputs;
            EXPECT_NO_THROW(Call(*handle, operation, arguments, outputs));
            iLogLevel = 6;
        }
    }
}

}  // namespace
}  // namespace vantix::test
