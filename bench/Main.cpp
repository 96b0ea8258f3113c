// Runs the benchmarks:   vantix_bench [BENCHMARK_ARGUMENTS...]
// Lists their names:     vantix_bench --names
// Repeats one body:      vantix_bench --repeat NAME COUNT      (for tools that count instructions)

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Cases.h"

namespace {

using vantix::bench::Case;

std::vector<Case> AllCases() {
    std::vector<Case> all;
    for (const auto& some : {vantix::bench::CacheCases(), vantix::bench::LogCases(), vantix::bench::ParseCases()}) {
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

int PrintNames() {
    for (const Case& row : AllCases()) {
        if (row.threads == 1) {
            std::puts(row.name.c_str());
        }
    }
    return 0;
}

int Repeat(const std::string& name, const char* count) {
    for (const Case& row : AllCases()) {
        if (row.name == name && row.threads == 1) {
            vantix::bench::SilenceSinks();
            row.prepare();
            row.repeat(std::strtol(count, nullptr, 10));
            return 0;
        }
    }
    std::fprintf(stderr, "no benchmark '%s': --names lists them\n", name.c_str());
    return 2;
}

int RunAll(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    for (const Case& row : AllCases()) {
        auto* registered = benchmark::RegisterBenchmark(row.name.c_str(), row.time);
        if (row.threads > 1) {
            registered->Threads(row.threads);
        }
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
    if (command == "--repeat" && argc == 4) {
        return Repeat(argv[2], argv[3]);
    }
    return RunAll(argc, argv);
}
