#pragma once

#include <string>

#include "support/TestJson.h"

namespace vantix::test {

/// The platform's answer to a device detail request, as small as one that is served from caches can be: code 200, the
/// channel, and a device of the release that is served. Change it and `dump()` it.
nlohmann::json DetailAnswer(const std::string& serial, int channel);

/// The same with every text of the device ending in `mark`, none of them short, and with a parent device.
nlohmann::json MarkedDetailAnswer(const std::string& serial, int channel, const std::string& mark);

/// An answer that carries only this code.
std::string CodeAnswer(const std::string& code);

}  // namespace vantix::test
