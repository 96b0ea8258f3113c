#pragma once

namespace vantix {

/// Whether something is at this path (UTF-8) that is no regular file: a folder, a pipe, a device. False when nothing is
/// there or the system cannot tell.
bool IsNoRegularFile(const char* path);

}  // namespace vantix
