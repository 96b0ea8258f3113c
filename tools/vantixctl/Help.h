#pragma once

#include <string>

#include "Command.h"
#include "Context.h"

namespace vantix::ctl {

/// The help of the tool, as text.
std::string HelpText(const Context& context);

/// The help of one command, as text.
std::string HelpText(const Context& context, const Command& command);

}  // namespace vantix::ctl
