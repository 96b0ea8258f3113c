#pragma once

#include <string>

#include "Context.h"
#include "Json.h"

namespace vantix::ctl {

/// A detail, {"channel": …, "device": …}, as a card for people. Keys are masked unless the context shows secrets.
std::string DetailCard(const Context& context, const Json& detail);

/// The text with every "{device.member}" or "{channel.member:form}" in it replaced by the member's value.
///
/// Forms: mark (✓ or ✗), yes, online, time, masked, count, relays, qualities. `filled` tells whether the first of
/// them is no empty text or list.
std::string FilledIn(std::string_view pattern, const Json& detail, bool showSecrets, bool& filled);

}  // namespace vantix::ctl
