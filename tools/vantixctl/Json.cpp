#include "Json.h"

namespace vantix::ctl {

std::string Dumped(const Json& value, int indent) {
    return value.dump(indent, ' ', false, Json::error_handler_t::replace);
}

Json Parsed(const std::string& text) { return Json::parse(text, nullptr, false); }

}  // namespace vantix::ctl
