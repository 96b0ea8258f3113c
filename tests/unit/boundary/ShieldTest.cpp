// Nothing that goes wrong behind a handle reaches the host as an exception.

#include <gtest/gtest.h>

#include <stdexcept>

#include "boundary/Shielded.h"
#include "unit/boundary/HandleTest.h"
#include "unit/boundary/Operations.h"

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
        {"empty", {"", "", "", 0}},
        {"ordinary", {"C1", "token", "text", 1}},
        {"negative", {"C1", "token", "text", -1}},
        {"smallest", {"C1", "token", "[]", -2147483647 - 1}},
        {"largest", {"C1", "token", "{}", 2147483647}},
        {"128 characters", {std::string(128, 's'), "t", "1", 1}},
        {"129 characters", {std::string(129, 's'), "t", "1", 1}},
        {"a million characters",
         {std::string(1'000'000, 's'), std::string(1'000'000, 't'), std::string(1'000'000, 'x')}},
        {"with NUL", {nul, nul, nul, 1}},
    };
    for (const char* text :
         {"\r", "\n", "\r\nX-Injected: 1\r\n", "&a=b", "#x", "%41%n%s", "+", " ", "\xFF\xFE\xC0", "\""}) {
        odd.push_back({std::string("with ") + text, {text, text, text, 1}});
    }
    return odd;
}

using ShieldTest = HandleTest;

TEST_F(ShieldTest, EveryOperationSurvivesEveryArgumentBeforeAnythingWasSet) {
    handle->setLogLevel(6);
    for (const auto& [name, arguments] : OddArguments()) {
        for (const auto* operations : {&OperationsWithCode(), &OperationsWithoutCode()}) {
            for (const Operation& operation : *operations) {
                SCOPED_TRACE(name + ", " + operation.name);
                EXPECT_NO_THROW(operation.call(*handle, arguments));
                iLogLevel = 6;
            }
        }
    }
}

}  // namespace
}  // namespace vantix::test
