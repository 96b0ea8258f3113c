#pragma once

/// @file
/// Tests of what an operation does, each bound to the operations that it asks: none is without such a test
/// (RequestEffectsTest.cpp).

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace vantix::test {

/// The operations that EFFECT_TEST and tables of effects name. Complete when main begins.
inline std::set<std::string>& OperationsWithEffect() {
    static std::set<std::string> names;
    return names;
}

inline bool NoteOperations(const std::vector<std::string>& names) {
    OperationsWithEffect().insert(names.begin(), names.end());
    return true;
}

}  // namespace vantix::test

/// A TEST_F that asks for the effect of these operations, by name: they go when the test goes.
#define EFFECT_TEST(fixture, name, ...)                                                              \
    [[maybe_unused]] const bool kNoted##fixture##name = vantix::test::NoteOperations({__VA_ARGS__}); \
    TEST_F(fixture, name)
