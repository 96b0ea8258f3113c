#pragma once

#include <string>
#include <vector>

#include "Context.h"
#include "session/Cloud.h"

namespace vantix::ctl {

/// What the loopback cloud saw, as a table for people; secrets are masked.
std::string JournalTable(const Context& context, const std::vector<ReceivedRequest>& seen);

/// The same for machines, masked as well.
Json JournalJson(const std::vector<ReceivedRequest>& seen);

}  // namespace vantix::ctl
