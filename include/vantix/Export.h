#pragma once

/// @file
/// Marks what the dynamic library exports; everything else in it is hidden.

#if defined(_WIN32)
#if defined(VANTIX_BUILDING_LIBRARY)
#define VANTIX_API __declspec(dllexport)
#elif defined(VANTIX_STATIC)
#define VANTIX_API
#else
#define VANTIX_API __declspec(dllimport)
#endif
#else
#define VANTIX_API __attribute__((visibility("default")))
#endif
