#include <windows.h>

#include <new>

#include "tvl/tvl.h"

namespace {

/// Either kind of mutex: a critical section lets its owner in again, a slim lock does not.
struct Mutex {
    explicit Mutex(bool isRecursive) : recursive(isRecursive) {
        if (recursive) {
            InitializeCriticalSection(&section);
        }
    }
    ~Mutex() {
        if (recursive) {
            DeleteCriticalSection(&section);
        }
    }
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    const bool recursive;
    SRWLOCK slim = SRWLOCK_INIT;
    CRITICAL_SECTION section{};
};

}  // namespace

void* TVL_MutexCreate(int recursive) { return new (std::nothrow) Mutex(recursive != 0); }

void TVL_MutexDestroy(void* mutex) { delete static_cast<Mutex*>(mutex); }

int TVL_MutexLock(void* mutex) {
    auto* locked = static_cast<Mutex*>(mutex);
    if (locked->recursive) {
        EnterCriticalSection(&locked->section);
    } else {
        AcquireSRWLockExclusive(&locked->slim);
    }
    return 0;
}

int TVL_MutexUnlock(void* mutex) {
    auto* locked = static_cast<Mutex*>(mutex);
    if (locked->recursive) {
        LeaveCriticalSection(&locked->section);
    } else {
        ReleaseSRWLockExclusive(&locked->slim);
    }
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

void TVL_ThreadTls_Destroy(unsigned slot) { TlsFree(slot); }

int TVL_ThreadTls_SetValue(unsigned slot, void* value) { return TlsSetValue(slot, value) != 0 ? 0 : -1; }

void* TVL_ThreadTls_GetValue(unsigned slot) { return TlsGetValue(slot); }

void TVL_OutputDebugString(const char* text) {
    if (text != nullptr) {
        OutputDebugStringA(text);
    }
}
