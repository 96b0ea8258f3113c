#pragma once

namespace vantix {

/// Sets the calling thread's last error. Does nothing when the system has no thread-local slot left.
void SetThreadLastError(int code);

/// The calling thread's last error; 0 until one was set.
int ThreadLastError();

}  // namespace vantix
