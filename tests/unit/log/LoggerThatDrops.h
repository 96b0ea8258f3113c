#pragma once

namespace vantix::test {

/// Writes a message at level 5 with the logger of a build with VANTIX_OVERLONG_LINE=drop.
void LogWhereOverlongLinesAreDropped(const char* message);

}  // namespace vantix::test
