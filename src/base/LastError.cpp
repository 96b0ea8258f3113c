#include "base/LastError.h"

#include <cstdint>

#include "base/RunningTask.h"
#include "tvl/tvl.h"

namespace vantix {
namespace {

/// The slot is made on first use: nothing happens while the library is being loaded. The system may have no slot left.
struct Slot {
    Slot() : exists(TVL_ThreadTls_Create(&number) == 0) {}
    /// The library leaves the process, which has few slots; a task that still runs keeps it.
    ~Slot() {
        if (exists && !RunningTask::IsThereOne()) {
            exists = false;
            TVL_ThreadTls_Destroy(number);
        }
    }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

    unsigned number = 0;
    bool exists;
};

const Slot& LastErrorSlot() {
    static Slot slot;
    return slot;
}

}  // namespace

void SetThreadLastError(int code) {
    if (const Slot& slot = LastErrorSlot(); slot.exists) {
        // NOLINTNEXTLINE(performance-no-int-to-ptr): a slot holds pointers
        TVL_ThreadTls_SetValue(slot.number, reinterpret_cast<void*>(static_cast<intptr_t>(code)));
    }
}

int ThreadLastError() {
    const Slot& slot = LastErrorSlot();
    return slot.exists ? static_cast<int>(reinterpret_cast<intptr_t>(TVL_ThreadTls_GetValue(slot.number))) : 0;
}

}  // namespace vantix
