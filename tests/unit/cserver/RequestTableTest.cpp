// Every row of the consumer servers' requests, by what a host causes and a server sees.

#include "support/HostileRequestTest.h"

namespace vantix::test {
namespace {

INSTANTIATE_TEST_SUITE_P(Consumer, RequestTest, ::testing::ValuesIn(ConsumerRequests()),
                         [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(Consumer, HostileRequestTest, ::testing::ValuesIn(ConsumerRequests()),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace vantix::test
