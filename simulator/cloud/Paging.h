#pragma once

#include "../Json.h"

namespace vantix::simulator {

/// `count` elements of the list from number `from` on (counted from 0); fewer or none when it ends before.
Json Slice(const Json& list, long long from, long long count);

}  // namespace vantix::simulator
