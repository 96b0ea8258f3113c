#pragma once

/// @file
/// The portable runtime: mutexes, thread-local slots and the debugger channel.
///
/// The lock classes are inline wrappers over the runtime's entry points, so that every module which includes this
/// header shares one definition of them; the data center's dynamic library exports its copy.

#include <new>

#if defined(VANTIX_BUILDING_LIBRARY) && defined(_WIN32)
#define TVL_LOCK_API __declspec(dllexport)
#elif defined(VANTIX_BUILDING_LIBRARY)
#define TVL_LOCK_API __attribute__((visibility("default")))
#else
#define TVL_LOCK_API
#endif

/// Marks the members: one translation unit of the library must emit them although nothing there calls them, and inline
/// members do not inherit their class's visibility when inlines are hidden (nor, with MinGW, its export).
#if defined(VANTIX_BUILDING_LIBRARY) && !defined(_WIN32) && defined(TVL_EMIT_LOCK_CLASSES)
#define TVL_LOCK_MEMBER __attribute__((used, visibility("default")))
#elif defined(VANTIX_BUILDING_LIBRARY) && defined(__MINGW32__) && defined(TVL_EMIT_LOCK_CLASSES)
#define TVL_LOCK_MEMBER __attribute__((used, dllexport))
#elif defined(VANTIX_BUILDING_LIBRARY) && !defined(_WIN32)
#define TVL_LOCK_MEMBER __attribute__((visibility("default")))
#else
#define TVL_LOCK_MEMBER
#endif

extern "C" {

/// A new mutex, or null when there is no memory. A non-zero `recursive` lets its owner lock it again.
void* TVL_MutexCreate(int recursive);
/// Frees an unlocked mutex; null is ignored.
void TVL_MutexDestroy(void* mutex);
/// Blocks until the calling thread owns the mutex. Returns 0, or the system's error.
int TVL_MutexLock(void* mutex);
/// Gives the mutex up. Returns 0, or the system's error.
int TVL_MutexUnlock(void* mutex);

/// Makes a slot that holds one pointer for each thread, null at first. Returns 0, or -1 when there is none left.
int TVL_ThreadTls_Create(unsigned* slot);
/// Gives a slot back that no thread uses any more.
void TVL_ThreadTls_Destroy(unsigned slot);
/// Stores the calling thread's value. Returns 0, or -1 for a slot that does not exist.
int TVL_ThreadTls_SetValue(unsigned slot, void* value);
/// The calling thread's value.
void* TVL_ThreadTls_GetValue(unsigned slot);

/// Hands one finished, zero-terminated text to the debugger channel (standard error where there is none).
void TVL_OutputDebugString(const char* text);
}

/// A non-recursive mutex. It is never copied: assignment leaves both sides as they are.
class TVL_LOCK_API TVL_Mutex {
public:
    TVL_LOCK_MEMBER TVL_Mutex() : m_pMutex(TVL_MutexCreate(0)) {
        if (m_pMutex == nullptr) {
            throw std::bad_alloc();
        }
    }
    TVL_LOCK_MEMBER ~TVL_Mutex() { TVL_MutexDestroy(m_pMutex); }
    TVL_Mutex(const TVL_Mutex&) = delete;
    TVL_LOCK_MEMBER TVL_Mutex& operator=(const TVL_Mutex&) {  // NOLINT(bugprone-unhandled-self-assignment)
        return *this;
    }

    /// Blocks until the calling thread owns the mutex; 0 on success.
    TVL_LOCK_MEMBER int Lock() { return TVL_MutexLock(m_pMutex); }
    /// Gives the mutex up; 0 on success.
    TVL_LOCK_MEMBER int Unlock() { return TVL_MutexUnlock(m_pMutex); }

private:
    void* m_pMutex;
};

/// Holds a `TVL_Mutex` from construction until `Release` or destruction.
class TVL_LOCK_API TVL_Guard {
public:
    TVL_LOCK_MEMBER explicit TVL_Guard(TVL_Mutex* mutex) : m_pMutex(mutex) {
        if (m_pMutex != nullptr) {
            m_pMutex->Lock();
        }
    }
    TVL_LOCK_MEMBER ~TVL_Guard() { Release(); }
    TVL_Guard(const TVL_Guard&) = delete;
    TVL_LOCK_MEMBER TVL_Guard& operator=(const TVL_Guard&) {  // NOLINT(bugprone-unhandled-self-assignment)
        return *this;
    }

    /// Unlocks and forgets the mutex; a second call does nothing.
    TVL_LOCK_MEMBER void Release() {
        if (m_pMutex != nullptr) {
            m_pMutex->Unlock();
            m_pMutex = nullptr;
        }
    }

private:
    TVL_Mutex* m_pMutex;
};

namespace tvl {

/// A recursive mutex. A copy is a new, unlocked mutex: nothing of the source's state is taken.
class TVL_LOCK_API tvl_recursive_mutex {
public:
    TVL_LOCK_MEMBER tvl_recursive_mutex() : m_pMutex(TVL_MutexCreate(1)) {
        if (m_pMutex == nullptr) {
            throw std::bad_alloc();
        }
    }
    TVL_LOCK_MEMBER tvl_recursive_mutex(const tvl_recursive_mutex& /*source*/) : tvl_recursive_mutex() {}
    TVL_LOCK_MEMBER tvl_recursive_mutex& operator=(  // NOLINT(bugprone-unhandled-self-assignment)
        const tvl_recursive_mutex& /*source*/) {
        return *this;
    }
    TVL_LOCK_MEMBER virtual ~tvl_recursive_mutex() { TVL_MutexDestroy(m_pMutex); }

    /// Blocks until the calling thread owns the mutex once more; 0 on success.
    TVL_LOCK_MEMBER virtual int Lock() { return TVL_MutexLock(m_pMutex); }
    /// Gives one level of ownership up; 0 on success.
    TVL_LOCK_MEMBER virtual int Unlock() { return TVL_MutexUnlock(m_pMutex); }

private:
    void* m_pMutex;
};

}  // namespace tvl
