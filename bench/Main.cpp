// Times all bodies:      PROGRAM [BENCHMARK_ARGUMENTS...]
// Lists their names:     PROGRAM --names
// Repeats one body:      PROGRAM --repeat NAME          (callgrind counts these rounds and nothing else)
// Runs one measurement:  PROGRAM --once NAME AMOUNT     (prints its figures as a JSON object)

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Case.h"

#if defined(VANTIX_HAS_CALLGRIND)
#include <valgrind/callgrind.h>
#else  // the program runs, and nothing can be counted
#define CALLGRIND_START_INSTRUMENTATION static_cast<void>(0)
#define CALLGRIND_STOP_INSTRUMENTATION static_cast<void>(0)
#endif

namespace {

using vantix::bench::AllCases;
using vantix::bench::AllOneShots;
using vantix::bench::Case;
using vantix::bench::OneShot;

template <class Row>
const Row& Named(const std::vector<Row>& rows, const std::string& name) {
    for (const Row& row : rows) {
        if (row.name == name) {
            return row;
        }
    }
    vantix::bench::Fail("no such name: --names lists them");
}

int PrintNames() {
    for (const Case& row : AllCases()) {
        std::puts(row.name.c_str());
    }
    for (const OneShot& row : AllOneShots()) {
        std::printf("%s (once)\n", row.name.c_str());
    }
    return 0;
}

/// The first rounds are not counted: they fill caches, tables and the memory that is used again and again.
int Repeat(const std::string& name) {
    constexpr long kWarmUp = 8;
    const std::vector<Case> all = AllCases();
    const Case& row = Named(all, name);
    vantix::bench::SilenceSinks();
    row.prepare();
    row.repeat(kWarmUp);
    CALLGRIND_START_INSTRUMENTATION;
    row.repeat(row.rounds);
    CALLGRIND_STOP_INSTRUMENTATION;
    std::printf("rounds %ld\n", row.rounds);
    return 0;
}

int RunOnce(const std::string& name, const char* amount) {
    const std::vector<OneShot> all = AllOneShots();
    const OneShot& row = Named(all, name);
    vantix::bench::SilenceSinks();
    row.run(std::strtol(amount, nullptr, 10));
    return 0;
}

int TimeAll(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    for (const Case& row : AllCases()) {
        benchmark::RegisterBenchmark(row.name.c_str(), row.time)->UseRealTime();
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string command = argc > 1 ? argv[1] : "";
    if (command == "--names") {
        return PrintNames();
    }
    if (command == "--repeat" && argc == 3) {
        return Repeat(argv[2]);
    }
    if (command == "--once" && argc == 4) {
        return RunOnce(argv[2], argv[3]);
    }
    return TimeAll(argc, argv);
}
