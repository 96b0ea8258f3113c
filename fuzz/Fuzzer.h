#pragma once

/// @file
/// What the fuzzers share. Each file of this folder is one program: it defines `Try`, which libFuzzer hands text after
/// text; a crash, an exception, a sanitizer's finding or a broken promise ends the program.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/ProcessSwitches.h"
#include "boundary/Logger.h"

namespace vantix::fuzz {

/// What the program does with one text.
void Try(const std::string& text);

/// A promise of the library that holds for every text.
inline void Promise(bool isKept) {
    if (!isKept) {
        std::abort();
    }
}

}  // namespace vantix::fuzz

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
    vantix::iLogLevel = 6;  // above every level: no line is written
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    for (const bool isB2C : {false, true}) {
        vantix::bB2CMode = isB2C;
        vantix::fuzz::Try(text);
    }
    return 0;
}
