#include "core/CoreInstance.h"

#include "core/CVantixDataCenter.h"
#include "log/Logger.h"

namespace vantix {

CVantixDataCenter& CoreInstance() {
    static CVantixDataCenter core;
    return core;
}

namespace {

bool BuildCore() noexcept {
    try {
        CoreInstance();
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace

constinit const BuildCoreHook kBuildCore = BuildCore;

}  // namespace vantix
