#pragma once

/// @file
/// The two switches that layers below the core must know. The core sets them; anybody reads them without a lock.

#include <atomic>

namespace vantix {

/// Whether response texts stay in UTF-8; off, they are converted to the system's code page.
inline std::atomic<bool> bUtf8{false};

/// Whether the permission mode is the B2C mode, in which capability lists may be JSON.
inline std::atomic<bool> bB2CMode{false};

}  // namespace vantix
