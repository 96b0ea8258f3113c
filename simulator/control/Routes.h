#pragma once

#include "Control.h"

#include <span>
#include <string_view>
#include <vector>

namespace vantix::simulator {

struct ControlReply {
    int status = 200;
    Json content = Json::object();
};

struct ControlCall {
    Control& control;
    const std::vector<std::string>& names;  ///< the path's parts
    const Json& content;                    ///< the body, null when there was none
};

/// One row: a method, a path whose "*" stands for any name, and who answers.
struct Route {
    std::string_view method;
    std::string_view path;
    ControlReply (*handler)(ControlCall& call);
};

std::span<const Route> Routes();

/// {"error":text}
ControlReply Problem(int status, std::string text);

}  // namespace vantix::simulator
