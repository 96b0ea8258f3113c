#pragma once

/// @file
/// One job or one of its floors, as a row: the benchmark library times its body, and callgrind counts it.

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace vantix::bench {

struct Case {
    std::string name;
    void (*prepare)();  ///< Prepares the data; may be called again before every run.
    void (*time)(benchmark::State& state);
    void (*repeat)(long count);  ///< Runs the body `count` times, and nothing else.
    long rounds;                 ///< How often the body runs when it is counted; more for what is short.
};

/// A measurement that runs once: a whole that has no body to repeat.
struct OneShot {
    std::string name;
    /// `amount` is what the name says: milliseconds, channels. Writes its figures as members of a JSON object.
    void (*run)(long amount);
};

/// Rounds of a body of a few instructions, of some thousands, and of a request or a large document.
constexpr long kManyRounds = 4000;
constexpr long kSomeRounds = 200;
constexpr long kFewRounds = 16;

/// Reduces the cost of log lines to their formatting: no callback is set, and standard error, which the debugger
/// channel writes to, is redirected to the null device and buffered. The benchmark library has written its messages
/// before.
void SilenceSinks();

/// Makes a row. Prepare and body are template arguments, so that a body of a nanosecond is not called through a
/// pointer.
template <void (*Prepare)(), void (*Body)()>
Case MakeCase(std::string name, long rounds) {
    return {std::move(name), Prepare,
            [](benchmark::State& state) {
                SilenceSinks();
                Prepare();
                for (auto _ : state) {
                    Body();
                }
            },
            [](long count) {
                for (long i = 0; i < count; ++i) {
                    Body();
                }
            },
            rounds};
}

inline void PrepareNothing() {}

/// What a program measures; each of them defines both.
std::vector<Case> AllCases();
std::vector<OneShot> AllOneShots();

/// Ends the program: a figure of a job that fails would be worth nothing.
[[noreturn]] void Fail(const char* what);

inline void Require(bool holds, const char* what) {
    if (!holds) {
        Fail(what);
    }
}

}  // namespace vantix::bench
