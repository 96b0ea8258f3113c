#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace vantix::ctl {

/// JSON whose members keep the order in which they were added.
using Json = nlohmann::ordered_json;

/// The value as indented text; bytes that are not UTF-8 are replaced.
std::string Dumped(const Json& value, int indent = 2);

/// The text as JSON; a discarded value when it is not JSON.
Json Parsed(const std::string& text);

}  // namespace vantix::ctl
