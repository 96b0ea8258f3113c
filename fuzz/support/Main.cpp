// The entry points that libFuzzer calls.

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "Fuzzer.h"
#include "log/Logger.h"

namespace vantix::fuzz {
namespace {

/// Prints the letter of each reader, or nothing when there is one alone: what a seed has to begin with.
void PrintLetters() {
    for (size_t i = 0; kReaders.size() > 1 && i < kReaders.size(); ++i) {
        std::printf("%c %s\n", static_cast<char>('A' + i), kReaders[i].name);
    }
}

const Reader& ReaderOf(uint8_t letter) { return kReaders[(letter + 256U - 'A') % 256U % kReaders.size()]; }

}  // namespace
}  // namespace vantix::fuzz

extern "C" {
/// The stack of an allocation is short and freed blocks wait in a small queue: both cost more than the parsers do.
const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier): the sanitizer's name
    return "malloc_context_size=3:quarantine_size_mb=4:detect_stack_use_after_return=0";
}

int LLVMFuzzerInitialize(const int* argc, char*** argv) {
    if (*argc == 2 && std::strcmp((*argv)[1], "--readers") == 0) {
        vantix::fuzz::PrintLetters();
        std::exit(0);
    }
    vantix::iLogLevel = 6;  // above every level: no line is written
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using vantix::fuzz::kReaders;
    const bool isChosen = kReaders.size() > 1;
    if (isChosen && size == 0) {
        return 0;
    }
    const auto* begin = reinterpret_cast<const char*>(data);
    const std::string text = isChosen ? std::string(begin + 1, size - 1) : std::string(begin, size);
    (isChosen ? vantix::fuzz::ReaderOf(data[0]) : kReaders.front()).read(text);
    return 0;
}
}
