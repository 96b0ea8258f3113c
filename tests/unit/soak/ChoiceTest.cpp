// What a soak calls: all operations, places and modes, and most often what the consumer servers serve.

#include "soak/Choice.h"
#include "unit/soak/SampleOfSoakAccount.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace vantix::test {
namespace {

TEST(Choice, IsOfEverythingAndMostOftenOfWhatConsumerServersServe) {
    const Account account = SampleOfSoakAccount();
    Choice choice(account, "picture", 1);
    std::set<int> slots;
    std::set<std::string> places;
    std::map<int, int> modes;
    std::map<std::string, int> maps;
    for (int call = 0; call < 40'000; ++call) {
        const ChosenCall chosen = choice.Next(3);
        slots.insert(chosen.operation->slot);
        places.insert(std::string(chosen.place->serial) + " " + std::to_string(chosen.place->ch));
        if (chosen.operation->slot == 65) {
            ++modes[chosen.arguments.number];
        } else if (chosen.operation->slot == 100) {
            ++maps[chosen.arguments.text];
        }
    }
    EXPECT_EQ(slots.size(), 108U);
    EXPECT_EQ(places.size(), 8U);
    EXPECT_EQ(modes.size(), 3U);
    EXPECT_GT(modes[2], 2 * (modes[0] + modes[1]));
    EXPECT_EQ(maps.size(), 2U);
    EXPECT_GT(maps["shared"], 2 * maps["own"]);
}

}  // namespace
}  // namespace vantix::test
