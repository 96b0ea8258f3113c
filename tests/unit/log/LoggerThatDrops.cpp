// The logger a second time, built as with VANTIX_OVERLONG_LINE=drop: in a namespace of its own.

#include "unit/log/LoggerThatDrops.h"

#undef VANTIX_DROP_OVERLONG_LINE
#define VANTIX_DROP_OVERLONG_LINE
#define vantix vantix_that_drops
#include "log/Logger.cpp"  // NOLINT(bugprone-suspicious-include)
#undef vantix

namespace vantix_that_drops {

constinit const BuildCoreHook kBuildCore = []() noexcept { return true; };

}  // namespace vantix_that_drops

namespace vantix::test {

void LogWhereOverlongLinesAreDropped(const char* message) { vantix_that_drops::log(5, "%s", message); }

}  // namespace vantix::test
