#pragma once

/// @file
/// The tests' JSON: not the library's, so that one does not hide the other's mistakes.

#include <nlohmann/json.hpp>

// Compiled once, for all tests.
extern template class nlohmann::basic_json<>;

namespace vantix::test {

using Json = nlohmann::json;

}  // namespace vantix::test
