#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace vantix::ctl {

/// JSON whose members keep the order in which they were added.
using Json = nlohmann::ordered_json;

/// The value as indented text; bytes that are not UTF-8 are replaced.
inline std::string Dumped(const Json& value, int indent = 2) {
    return value.dump(indent, ' ', false, Json::error_handler_t::replace);
}

/// The text as JSON; a discarded value when it is not JSON.
inline Json Parsed(const std::string& text) { return Json::parse(text, nullptr, false); }

}  // namespace vantix::ctl
