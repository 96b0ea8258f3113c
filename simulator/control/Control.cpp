#include "Control.h"

#include "Routes.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

bool HasBody(const Request& request) { return !request.body.empty(); }

Response ToResponse(const ControlOutcome& outcome) {
    Response response;
    response.status = outcome.status;
    response.body = Dump(outcome.content) + "\n";
    response.headers.emplace_back("Content-Type", "application/json");
    return response;
}

/// The parts of a path: four for "/devices/S/cameras/1".
std::vector<std::string> Names(std::string_view path) {
    std::vector<std::string> names;
    while (!path.empty()) {
        path.remove_prefix(1);
        const auto name = path.substr(0, path.find('/'));
        names.emplace_back(name);
        path.remove_prefix(name.size());
    }
    return names;
}

bool Fits(const Route& route, const std::string& method, const std::vector<std::string>& names) {
    const auto wanted = Names(route.path);
    return route.method == method && std::equal(wanted.begin(), wanted.end(), names.begin(), names.end(),
                                                [](const std::string& pattern, const std::string& name) {
                                                    return pattern == "*" ? !name.empty() : pattern == name;
                                                });
}

}  // namespace

ControlOutcome Problem(int status, std::string text) { return {status, {{"error", std::move(text)}}}; }

Control::Control(Service& service, std::function<Json()> statistics)
    : m_service(service), m_statistics(std::move(statistics)) {}

Response Control::Handle(const Request& request) {
    const auto names = Names(request.path);
    const auto routes = Routes();
    const auto route =
        std::find_if(routes.begin(), routes.end(), [&](const Route& one) { return Fits(one, request.method, names); });
    if (route == routes.end()) {
        return ToResponse(Problem(404, "no such call: " + request.method + " " + request.path));
    }
    Json content;
    if (HasBody(request)) {
        auto parsed = Parse(request.body);
        if (!parsed) {
            return ToResponse(Problem(400, "the body is not JSON"));
        }
        content = std::move(*parsed);
    }
    ControlCall call{*this, names, content};
    return ToResponse(route->handler(call));
}

Json Control::Info() {
    return m_service.GetCloud().With([&](CloudState& state) -> Json {
        return {
            {"bDomain", state.bDomain}, {"cDomain", state.cDomain}, {"control", m_address}, {"account", state.account}};
    });
}

}  // namespace vantix::simulator
