#pragma once

#include <string>

#include "support/TestJson.h"

namespace vantix::test {

/// The JSON as text, with a value in the place that a JSON pointer names. The value need not be JSON.
std::string WithValue(const Json& json, const std::string& place, const std::string& value);

/// The JSON as text, without the member that a JSON pointer names.
std::string Without(const Json& json, const std::string& place);

}  // namespace vantix::test
