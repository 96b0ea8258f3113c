// Every row of the platform's requests, by what a host causes and a server sees.

#include "support/HostileRequestTest.h"

namespace vantix::test {
namespace {

INSTANTIATE_TEST_SUITE_P(Platform, RequestTest, ::testing::ValuesIn(PlatformRequests()),
                         [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(Platform, HostileRequestTest, ::testing::ValuesIn(PlatformRequests()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
