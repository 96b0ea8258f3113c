#pragma once

/// @file
/// The log library that every finished line is handed to.
///
/// A dynamic library of its own, so that one host-wide choice decides where lines end up. Lines are dropped until a
/// callback is set.

#if defined(_WIN32)
#define TVLLOG_API
#else
#define TVLLOG_API __attribute__((visibility("default")))
#endif

extern "C" {

/// Receives one line: its level, the module that wrote it, and the text, which is valid during the call only.
/// Called on the thread that logs, from any number of threads at once; it may log itself.
using TVLLOG_Callback = void (*)(unsigned level, const char* moduleName, const char* text);

/// Takes one finished line. Ordinal 26 of the Windows library. Any thread.
TVLLOG_API void TVLLOG_Write(unsigned level, const char* moduleName, const char* text);

/// Sets where lines go from now on; null drops them. A call that is under way on another thread may still end later.
TVLLOG_API void TVLLOG_SetCallback(TVLLOG_Callback callback);
}
