// A host with a life of its own:
//
//   life_probe LIBRARY SCENARIO DOMAIN TOKEN SERIAL
//
// plays one scenario against the cloud at DOMAIN. Exit status 0 when all went as it should.

#include <cstdio>
#include <string_view>

#include "Scenarios.h"

namespace {

using namespace vantix::life;

struct Row {
    std::string_view name;
    Scenario play;
};

constexpr Row kScenarios[] = {
    {"exit", Exit},
    {"unload", Unload},
    {"busy-exit", BusyExit},
    {"busy-unload", BusyUnload},
    {"destroyed-exit", DestroyedExit},
    {"cold-exit", ColdExit},
    {"left-exit", LeftExit},
    {"reload", Reload},
    {"cold-threads", ColdThreads},
#if !defined(_WIN32)
    {"fork", Fork},
    {"signals", Signals},
    {"few-descriptors", FewDescriptors},
    {"little-memory", LittleMemory},
    {"no-thread", NoThread},
#endif
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 6) {
        const Setting setting{argv[1], argv[3], argv[4], argv[5]};
        for (const Row& row : kScenarios) {
            if (row.name == argv[2]) {
                return row.play(setting);
            }
        }
    }
    std::fputs("usage: life_probe LIBRARY SCENARIO DOMAIN TOKEN SERIAL\n", stderr);
    return 2;
}
