#include "base/LastError.h"

#include <atomic>
#include <cstdint>

#include "base/RunningTask.h"
#include "tvl/tvl.h"

namespace vantix {
namespace {

/// The slot of the process. It outlives its owner, so that it can be asked whether it is still there.
struct Slot {
    unsigned number = 0;
    std::atomic<bool> exists{false};
};

constinit Slot g_slot;

/// The slot is made on first use: nothing happens while the library is being loaded. The system may have no slot left.
class SlotOwner {
public:
    SlotOwner() { g_slot.exists = TVL_ThreadTls_Create(&g_slot.number) == 0; }
    /// The library leaves the process, which has few slots; a task that still runs keeps it.
    ~SlotOwner() {
        if (!RunningTask::IsThereOne() && g_slot.exists.exchange(false)) {
            TVL_ThreadTls_Destroy(g_slot.number);
        }
    }
    SlotOwner(const SlotOwner&) = delete;
    SlotOwner& operator=(const SlotOwner&) = delete;
};

const Slot& LastErrorSlot() {
    static const SlotOwner owner;
    return g_slot;
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
