#pragma once

#include <string>
#include <vector>

#include "Context.h"
#include "session/Cloud.h"

namespace vantix::ctl {

/// The requests that the loopback cloud received, as a table; secrets are masked.
std::string JournalTable(const Context& context, const std::vector<ReceivedRequest>& requests);

/// The same as JSON; secrets are masked as well.
Json JournalJson(const std::vector<ReceivedRequest>& requests);

}  // namespace vantix::ctl
