#pragma once

#include <string>
#include <string_view>

#include "Context.h"
#include "Json.h"

namespace vantix::ctl {

/// A value for reading: tables for objects and lists, plain text for the rest. `secret` names a member to mask.
///
/// Long texts are cut, and of a list inside a table only the number of entries is shown.
std::string Readable(const Context& context, const Json& value, std::string_view secret);

/// A server's successful response without its envelope. Null when it has nothing else.
Json WithoutEnvelope(const Json& response);

}  // namespace vantix::ctl
