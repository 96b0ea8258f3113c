#pragma once

#include "Control.h"

#include <span>
#include <string_view>
#include <vector>

namespace vantix::simulator {

struct ControlOutcome {
    int status = 200;
    Json content = Json::object();
};

struct ControlCall {
    Control& control;
    const std::vector<std::string>& names;  ///< the path's parts
    const Json& content;                    ///< the body, null when there was none
};

/// One call of the control interface: its method, its path, where "*" stands for any name, and its handler.
struct Route {
    std::string_view method;
    std::string_view path;
    ControlOutcome (*handler)(ControlCall& call);
};

std::span<const Route> Routes();

/// {"error":text}
ControlOutcome Problem(int status, std::string text);

}  // namespace vantix::simulator
