#pragma once

/// @file
/// JsonCpp's header. Its `Reader` and `FastWriter` are older than their successors, but their leniency is what the
/// servers' responses are read with.

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif
#include <json/json.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
