#include <pthread.h>

#include <cstdio>
#include <memory>

#include "tvl/tvl.h"

namespace {

#if defined(__GLIBC__)
/// What it guards is held for less than a sleep takes, so a thread that has to wait looks again for a moment first.
constexpr int kPlain = PTHREAD_MUTEX_ADAPTIVE_NP;
#else
constexpr int kPlain = PTHREAD_MUTEX_NORMAL;
#endif

struct MutexAttribute {
    explicit MutexAttribute(bool recursive) {
        pthread_mutexattr_init(&value);
        pthread_mutexattr_settype(&value, recursive ? PTHREAD_MUTEX_RECURSIVE : kPlain);
    }
    ~MutexAttribute() { pthread_mutexattr_destroy(&value); }
    MutexAttribute(const MutexAttribute&) = delete;
    MutexAttribute& operator=(const MutexAttribute&) = delete;

    pthread_mutexattr_t value{};
};

}  // namespace

void* TVL_MutexCreate(int recursive) {
    std::unique_ptr<pthread_mutex_t> mutex(new (std::nothrow) pthread_mutex_t);
    if (mutex == nullptr) {
        return nullptr;
    }
    const MutexAttribute attribute(recursive != 0);
    return pthread_mutex_init(mutex.get(), &attribute.value) == 0 ? mutex.release() : nullptr;
}

void TVL_MutexDestroy(void* mutex) {
    if (mutex != nullptr) {
        const std::unique_ptr<pthread_mutex_t> owned(static_cast<pthread_mutex_t*>(mutex));
        pthread_mutex_destroy(owned.get());
    }
}

int TVL_MutexLock(void* mutex) { return pthread_mutex_lock(static_cast<pthread_mutex_t*>(mutex)); }

int TVL_MutexUnlock(void* mutex) { return pthread_mutex_unlock(static_cast<pthread_mutex_t*>(mutex)); }

int TVL_ThreadTls_Create(unsigned* slot) {
    pthread_key_t key = 0;
    if (slot == nullptr || pthread_key_create(&key, nullptr) != 0) {
        return -1;
    }
    *slot = key;
    return 0;
}

void TVL_ThreadTls_Destroy(unsigned slot) { pthread_key_delete(slot); }

int TVL_ThreadTls_SetValue(unsigned slot, void* value) { return pthread_setspecific(slot, value) == 0 ? 0 : -1; }

void* TVL_ThreadTls_GetValue(unsigned slot) { return pthread_getspecific(slot); }

void TVL_OutputDebugString(const char* text) {
    if (text != nullptr) {
        std::fputs(text, stderr);
    }
}
