#include "base/LibraryPin.h"

#include <atomic>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace vantix {
namespace {

/// Something of this library, by which the system finds it.
std::atomic<bool> g_isPinned{false};

}  // namespace

void PinLibrary() {
    if (g_isPinned.exchange(true)) {
        return;
    }
#if defined(_WIN32)
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const char*>(&g_isPinned), &module);
#else
    Dl_info library{};
    dladdr(&g_isPinned, &library);  // of an own address it always finds the library
    dlopen(library.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
#endif
}

}  // namespace vantix
