#pragma once

#include "log/Logger.h"

/// A call site with the tag of a method of the core. Lines of the core's parts bear the core's tags, whichever part
/// writes them: support searches for "CVantixDataCenter::getDomain".
#define VANTIX_CORE_HERE(method) VANTIX_HERE_AS("CVantixDataCenter::" method)
