#pragma once

/// @file
/// Shared by the fuzzers. Each other file of this folder is one program: it defines `FuzzOne`, which libFuzzer calls
/// with one text after the other; a crash, an exception, a sanitizer's finding or an unmet requirement ends the
/// program.

#include <cstdlib>
#include <string>

namespace vantix::fuzz {

/// Runs the code under test with one text.
void FuzzOne(const std::string& text);

/// Ends the program when a requirement, which holds for every text, is not met.
inline void Require(bool isMet) {
    if (!isMet) {
        std::abort();
    }
}

}  // namespace vantix::fuzz
