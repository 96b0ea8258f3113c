#pragma once

/// @file
/// The two switches of the core that layers below it read. The core sets them; any thread reads them without a lock.

#include <atomic>

namespace vantix {

/// Whether response texts stay in UTF-8; off, they are converted to the system's code page.
inline std::atomic<bool> bUtf8{false};

#if defined(_WIN32)
inline constexpr bool kHasCodePage = true;
#else
inline constexpr bool kHasCodePage = false;
#endif
/// Whether the texts of responses are in the system's code page.
inline bool TextsAreInCodePage() { return kHasCodePage && !bUtf8; }

/// Whether the permission mode is the B2C mode, in which capability lists may be JSON.
inline std::atomic<bool> bB2CMode{false};

}  // namespace vantix
