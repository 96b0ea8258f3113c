#pragma once

/// @file
/// What operations write, as JSON.

#include "support/Operations.h"
#include "support/TestJson.h"

namespace vantix::test {

/// Outputs that all hold something: each text is "before", each list has an entry.
Outputs Prefilled();

Json ToJson(const Outputs& outputs);

/// What differs in `after`: of objects the members that do, of everything else the whole value.
Json Changes(const Json& before, const Json& after);

}  // namespace vantix::test
