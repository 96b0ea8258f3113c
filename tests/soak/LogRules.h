#pragma once

#include <string>

#include "soak/Account.h"

namespace vantix::test {

/// What a log line shows whole although it is to be masked; nothing when it shows no such text.
std::string WrongInLine(const Account& account, const std::string& line);

}  // namespace vantix::test
