#include "core/CoreInstance.h"

#include <memory>

#include "base/RunningTask.h"
#include "base/TlsLibrary.h"
#include "core/CVantixDataCenter.h"
#include "log/Logger.h"

namespace vantix {

namespace {

/// The core goes when the process ends or the library is unloaded, unless a task still uses it.
class CoreOwner {
public:
    // Not by `new` beside the member: GCC then leaks the block when the constructor throws.
    CoreOwner() : m_core(std::make_unique<CVantixDataCenter>().release()) { KeepTlsLibraryToTheEnd(); }
    ~CoreOwner() {
        if (!RunningTask::IsThereOne()) {
            delete m_core;  // the pointer itself never changes: tasks read it
        }
    }
    CoreOwner(const CoreOwner&) = delete;
    CoreOwner& operator=(const CoreOwner&) = delete;

    CVantixDataCenter& Core() const { return *m_core; }

private:
    CVantixDataCenter* const m_core;
};

}  // namespace

CVantixDataCenter& CoreInstance() {
    static const CoreOwner owner;
    return owner.Core();
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
