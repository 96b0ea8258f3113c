#pragma once

#include <memory>

#include "vantix/IVantixDataCenter.h"

namespace vantix::test {

/// A handle that destroys itself.
struct DestroyHandle {
    void operator()(IVantixDataCenter* handle) const { DestroyVantixDataCenterInstance(handle); }
};
using Handle = std::unique_ptr<IVantixDataCenter, DestroyHandle>;

inline Handle NewHandle() { return Handle(CreateVantixDataCenterInstance()); }

}  // namespace vantix::test
