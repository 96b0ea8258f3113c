#pragma once

#include "Host.h"

namespace vantix::life {

/// One life of a host, played in a process of its own. Returns the exit status: 0 when all went as it should.
using Scenario = int (*)(const Setting& setting);

// How it ends (Ends.cpp).

/// Returns from main with its handle, and everything that was fetched, still there.
int Exit(const Setting& setting);
/// Destroys the handle, unloads the library and returns then.
int Unload(const Setting& setting);
/// As the two above while tasks are under way, whose futures are waited for at the end of the program.
int BusyExit(const Setting& setting);
int BusyUnload(const Setting& setting);
/// As busy-exit with the handle destroyed before; and as the first that the process does.
int DestroyedExit(const Setting& setting);
int ColdExit(const Setting& setting);
/// Returns from main while tasks are under way, and leaves their futures behind.
int LeftExit(const Setting& setting);

// What it does with the library (Uses.cpp).

/// Loads and unloads the library 1,000 times or more, with a request each time; it leaves each time and gives back what
/// it had.
int Reload(const Setting& setting);
/// Never initialises libcurl, and starts 32 threads at once, whose first call is a request.
int ColdThreads(const Setting& setting);

#if !defined(_WIN32)
// What the system denies it (Limits.cpp).

/// Forks after use; parent and child go on.
int Fork(const Setting& setting);
/// Gets a signal each millisecond, with a handler that does not restart system calls.
int Signals(const Setting& setting);
/// May have 20 descriptors.
int FewDescriptors(const Setting& setting);
/// Has less and less memory, until not even a request is possible, and then enough again.
int LittleMemory(const Setting& setting);
/// Has no memory for another thread's stack, and then enough again.
int NoThread(const Setting& setting);
#endif

}  // namespace vantix::life
