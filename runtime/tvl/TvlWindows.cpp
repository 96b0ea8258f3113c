#include <windows.h>

#include <memory>

#include "tvl/tvl.h"

void* TVL_MutexCreate(int recursive) {
    // A critical section lets its owner in again, which a caller of the plain kind must not rely on.
    static_cast<void>(recursive);
    auto* section = new (std::nothrow) CRITICAL_SECTION;
    if (section != nullptr) {
        InitializeCriticalSection(section);
    }
    return section;
}

void TVL_MutexDestroy(void* mutex) {
    if (mutex != nullptr) {
        const std::unique_ptr<CRITICAL_SECTION> owned(static_cast<CRITICAL_SECTION*>(mutex));
        DeleteCriticalSection(owned.get());
    }
}

int TVL_MutexLock(void* mutex) {
    EnterCriticalSection(static_cast<CRITICAL_SECTION*>(mutex));
    return 0;
}

int TVL_MutexUnlock(void* mutex) {
    LeaveCriticalSection(static_cast<CRITICAL_SECTION*>(mutex));
    return 0;
}

int TVL_ThreadTls_Create(unsigned* slot) {
    const DWORD index = slot == nullptr ? TLS_OUT_OF_INDEXES : TlsAlloc();
    if (index == TLS_OUT_OF_INDEXES) {
        return -1;
    }
    *slot = index;
    return 0;
}

int TVL_ThreadTls_SetValue(unsigned slot, void* value) { return TlsSetValue(slot, value) != 0 ? 0 : -1; }

void* TVL_ThreadTls_GetValue(unsigned slot) { return TlsGetValue(slot); }

void TVL_OutputDebugString(const char* text) {
    if (text != nullptr) {
        OutputDebugStringA(text);
    }
}
