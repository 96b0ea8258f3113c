#pragma once

/// @file
/// One benchmark, as a row: its body is timed by the benchmark library and repeated by `bench/instructions`.

#include <benchmark/benchmark.h>

#include <string>

namespace vantix::bench {

struct Case {
    std::string name;
    void (*prepare)();  ///< Prepares the data; may be called again before every run.
    void (*time)(benchmark::State& state);
    void (*repeat)(long count);  ///< Runs the body `count` times, and nothing else.
    int threads;
};

/// Reduces the cost of log lines to their formatting: no callback is set, and standard error, which the debugger
/// channel writes to, is redirected to the null device and buffered. The benchmark library has written its messages
/// before.
void SilenceSinks();

/// Makes a row. Prepare and body are template arguments, so that a body of a nanosecond is not called through a
/// pointer.
template <void (*Prepare)(), void (*Body)()>
Case MakeCase(std::string name, int threads = 1) {
    return {std::move(name), Prepare,
            [](benchmark::State& state) {
                if (state.thread_index() == 0) {  // the other threads wait for it where the loop begins
                    SilenceSinks();
                    Prepare();
                }
                for (auto _ : state) {
                    Body();
                }
                state.SetItemsProcessed(state.iterations());
            },
            [](long count) {
                for (long i = 0; i < count; ++i) {
                    Body();
                }
            },
            threads};
}

}  // namespace vantix::bench
