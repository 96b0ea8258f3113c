#pragma once

/// @file
/// One measured thing, as a row: the same body is timed by the benchmark library and repeated by `bench/instructions`.

#include <benchmark/benchmark.h>

#include <string>

namespace vantix::bench {

struct Case {
    std::string name;
    void (*prepare)();  ///< Sets the stage; may be called again before every run.
    void (*time)(benchmark::State& state);
    void (*repeat)(long count);  ///< Runs the body so often, and nothing else.
    int threads;
};

/// Makes log lines cost their formatting and little else: no callback is set, and standard error, where the debugger
/// channel writes, goes nowhere and is buffered. The benchmark library has said what it says there before.
void SilenceSinks();

/// A row. Prepare and body are template arguments so that a body of a nanosecond is not called through a pointer.
template <void (*Prepare)(), void (*Body)()>
Case MakeCase(std::string name, int threads = 1) {
    return {std::move(name), Prepare,
            [](benchmark::State& state) {
                if (state.thread_index() == 0) {  // the others wait for it where the loop begins
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
