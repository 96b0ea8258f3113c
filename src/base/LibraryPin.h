#pragma once

namespace vantix {

/// Keeps the library in the address space until the process ends, whoever unloads it: the code of a running task must
/// not go away. The first call does it, later ones cost one comparison.
void PinLibrary();

}  // namespace vantix
