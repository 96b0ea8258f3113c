#pragma once

namespace vantix::test {

/// Whether an operation may give this result: always, or only when requests fail.
enum class Verdict { Expected, OfFault, Wrong };
Verdict Judged(int slot, int result, bool withFaults);

}  // namespace vantix::test
