#pragma once

/// @file
/// What the fuzzers share. Each file of this folder is one program: it defines `Try`, which libFuzzer hands text after
/// text; a crash, an exception, a sanitizer's finding or a broken promise ends the program.

#include <cstdlib>
#include <string>

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
