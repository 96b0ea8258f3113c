// The whole core: settings, operations and the servers' responses in the order that an input gives them. core/ has the
// rules that must hold after each step.
//
// An input is a row of steps. A step below 192 is an operation: its number in core/Rules.h, two bytes of arguments,
// and for each request that it sends what core/Responses.cpp reads. The others set something, with one byte of value.

#include "Fuzzer.h"
#include "core/CoreRun.h"

namespace vantix::fuzz {
namespace {

void RunCore(const std::string& text) { CoreRun(text).RunAll(); }

constexpr Reader kRows[] = {{"core", RunCore}};

}  // namespace

constinit const std::span<const Reader> kReaders{kRows};

}  // namespace vantix::fuzz
