#pragma once

/// @file
/// JsonCpp's header. Its `Reader` and `FastWriter` are deprecated, but their leniency is part of how responses are
/// read.

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif
#include <json/json.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif
