#pragma once

#include <string>

namespace vantix::test {

/// The path of a file below tests/data; the repository is ../.. from there.
std::string TestData(const std::string& name);

}  // namespace vantix::test
