#pragma once

#include <string>
#include <string_view>

#include "Context.h"
#include "Json.h"

namespace vantix::ctl {

/// A value for people: tables for objects and lists, plain text for the rest. `secret` names a member to mask.
///
/// Long texts are cut and lists inside of tables are counted: machines get them whole.
std::string Readable(const Context& context, const Json& value, std::string_view secret);

/// A server's good answer without its envelope, whose codes say no more than that it is good. Null when it holds
/// nothing else.
Json WithoutEnvelope(const Json& answer);

}  // namespace vantix::ctl
