#pragma once

#include <string>

#include "support/TestJson.h"

namespace vantix::test {

/// The platform's response to a device detail request, as small as one that is served from caches can be: code 200, the
/// channel, and a device of the release that is served. Change it and `dump()` it.
nlohmann::json DetailResponse(const std::string& serial, int channel);

/// The same with every text of the device ending in `mark`, none of them short, and with a parent device.
nlohmann::json MarkedDetailResponse(const std::string& serial, int channel, const std::string& mark);

/// A response with this code and nothing else.
std::string CodeResponse(const std::string& code);

}  // namespace vantix::test
