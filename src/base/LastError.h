#pragma once

namespace vantix {

/// Sets the calling thread's last error.
void SetThreadLastError(int code);

/// The calling thread's last error; 0 until one was set.
int ThreadLastError();

}  // namespace vantix
