#pragma once

/// @file
/// Shared by the fuzzers. Each other .cpp file of this folder is one program; it defines `kReaders`. A crash, an
/// exception, a sanitizer's finding or an unmet requirement ends the program.

#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>

namespace vantix::fuzz {

/// One way to read an input.
struct Reader {
    const char* name;
    void (*read)(const std::string& text);
};

/// What a program runs with its inputs. Of several readers the first letter of an input chooses one ("A" the first),
/// and the rest is the text: an input then costs one parser, not all of them.
extern const std::span<const Reader> kReaders;

/// Ends the program, and says where, when a requirement, which holds for every input, is not met.
inline void Require(bool isMet, const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
    if (!isMet) {
        std::fprintf(stderr, "%s:%d: requirement not met\n", file, line);
        std::abort();
    }
}

}  // namespace vantix::fuzz
