// Nothing that goes wrong behind a handle reaches the host as an exception.

#include <gtest/gtest.h>

#include <stdexcept>

#include "boundary/Shielded.h"
#include "support/Operations.h"
#include "unit/boundary/HandleTest.h"

namespace vantix::test {
namespace {

TEST(Shielded, ResultOfTheBodyIsPassedOn) {
    EXPECT_EQ(Shielded([] { return 5; }, -1), 5);
    EXPECT_EQ(Shielded([] { return true; }, false), true);
    int calls = 0;
    Shielded([&] { ++calls; });
    EXPECT_EQ(calls, 1);
}

TEST(Shielded, ExceptionOfAnyKindBecomesTheNeutralResult) {
    EXPECT_EQ(Shielded([]() -> int { throw std::runtime_error("x"); }, -1), -1);
    EXPECT_EQ(Shielded([]() -> int { throw 5; }, -1), -1);
    EXPECT_EQ(Shielded([]() -> bool { throw std::bad_alloc(); }, false), false);
    EXPECT_NO_THROW(Shielded([] { throw std::logic_error("x"); }));
}

TEST(Shielded, ReferenceIsKept) {
    int value = 1;
    int neutral = 2;
    EXPECT_EQ(Shielded([&] { return &value; }, &neutral), &value);
    EXPECT_EQ(Shielded([&]() -> int* { throw 1; }, &neutral), &neutral);
}

/// Arguments that servers, hosts and test writers get wrong.
std::vector<std::pair<std::string, Arguments>> OddArguments() {
    const std::string nul("a\0b", 3);
    std::vector<std::pair<std::string, Arguments>> odd = {
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
        odd.push_back({std::string("with ") + text, Arguments::AllOf(text, text, text, 1)});
    }
    return odd;
}

using ShieldTest = HandleTest;

TEST_F(ShieldTest, EveryOperationSurvivesEveryArgumentBeforeAnythingWasSet) {
    handle->setLogLevel(6);
    for (const auto& [name, arguments] : OddArguments()) {
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
