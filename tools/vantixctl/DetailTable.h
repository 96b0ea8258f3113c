#pragma once

#include <string>

#include "Context.h"
#include "Json.h"

namespace vantix::ctl {

/// A detail, {"channel": …, "device": …}, as a table. Keys are masked unless the context shows secrets.
std::string DetailTable(const Context& context, const Json& detail);

/// The text with every "{device.member}" or "{channel.member:form}" in it replaced by the member's value.
///
/// Forms: mark (✓ or ✗), yes, online, source, time, masked, count, relays, qualities. `filled` becomes false when the
/// first member is an empty text or list, else true.
std::string FillPattern(std::string_view pattern, const Json& detail, bool showSecrets, bool& filled);

}  // namespace vantix::ctl
