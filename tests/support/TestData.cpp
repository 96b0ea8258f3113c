#include "support/TestData.h"

namespace vantix::test {

std::string TestData(const std::string& name) { return std::string(VANTIX_TEST_DATA "/") + name; }

}  // namespace vantix::test
