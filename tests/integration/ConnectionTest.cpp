// Connections: what goes wrong with them stands in the fault matrix, tests/faults.

#include "DetailFixture.h"

namespace vantix::test {
namespace {

class ConnectionTest : public DetailFixture {};

TEST_F(ConnectionTest, EveryRequestHasAConnectionOfItsOwn) {
    const auto opened = [&] { return Cloud().Get("/stats").at("B").at("connectionsOpened").get<int>(); };
    const int before = opened();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(Fetch(kCamera, 1), 0);
    }
    EXPECT_EQ(opened(), before + 3);
}

}  // namespace
}  // namespace vantix::test
