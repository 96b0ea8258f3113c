// All operations over HTTPS from many threads, against a loopback cloud that fails by chance, for as many requests as
// asked for. Run as `vantix-simulator --run -- soak`; scripts/soak does so.

#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string_view>

#include "soak/Run.h"

namespace {

using vantix::test::SoakOptions;

constexpr int kUsageError = 2;

template <class Number>
bool Read(const char* text, Number& number) {
    const char* end = text == nullptr ? nullptr : text + std::strlen(text);
    const auto parsed = std::from_chars(text, end, number);
    return text != nullptr && parsed.ec == std::errc() && parsed.ptr == end;
}

bool ReadOption(std::string_view name, const char* value, SoakOptions& options) {
    if (name == "--faults") {
        return Read(value, options.faultPercent) && options.faultPercent >= 0 && options.faultPercent <= 100;
    }
    if (name == "--seed") {
        return Read(value, options.seed);
    }
    if (name == "--threads") {
        return Read(value, options.threads) && options.threads > 0;
    }
    if (name == "--output" && value != nullptr) {
        options.output = value;
        return true;
    }
    return false;
}

bool ReadOptions(char** argv, SoakOptions& options) {
    if (argv[1] == nullptr || !Read(argv[1], options.requests) || options.requests == 0) {
        return false;
    }
    for (char** at = argv + 2; *at != nullptr; at += 2) {
        if (!ReadOption(*at, at[1], options)) {
            return false;
        }
    }
    return !options.output.empty();
}

}  // namespace

int main(int /*argc*/, char** argv) {
    SoakOptions options;
    if (!ReadOptions(argv, options)) {
        std::fputs("usage: soak REQUESTS --output FILE [--faults PERCENT] [--seed N] [--threads N]\n", stderr);
        return kUsageError;
    }
    try {
        return vantix::test::Run(options).Execute() ? 0 : 1;
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "soak: %s\n", problem.what());
        return kUsageError;
    }
}

// The debugger channel is standard error, and nobody reads it: lines go to the other sink.
extern "C" void __wrap_TVL_OutputDebugString(const char* /*text*/) {}  // NOLINT(bugprone-reserved-identifier)
