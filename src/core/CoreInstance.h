#pragma once

namespace vantix {

class CVantixDataCenter;

/// The one core of the process, built by the first call. Concurrent first callers wait for it; when building throws,
/// the next call tries again.
CVantixDataCenter& CoreInstance();

}  // namespace vantix
