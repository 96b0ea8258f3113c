#include "Control.h"

#include "Routes.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

bool HasBody(const Request& request) { return !request.body.empty(); }

Answer AsAnswer(const ControlReply& reply) {
    Answer answer;
    answer.status = reply.status;
    answer.body = Dump(reply.content) + "\n";
    answer.headers.emplace_back("Content-Type", "application/json");
    return answer;
}

/// "/devices/S/cameras/1" into its four names.
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

ControlReply Problem(int status, std::string text) { return {status, {{"error", std::move(text)}}}; }

Control::Control(Service& service, std::function<Json()> statistics)
    : m_service(service), m_statistics(std::move(statistics)) {}

Answer Control::Handle(const Request& request) {
    const auto names = Names(request.path);
    const auto routes = Routes();
    const auto route =
        std::find_if(routes.begin(), routes.end(), [&](const Route& one) { return Fits(one, request.method, names); });
    if (route == routes.end()) {
        return AsAnswer(Problem(404, "nothing answers " + request.method + " " + request.path));
    }
    Json content;
    if (HasBody(request)) {
        auto parsed = Parse(request.body);
        if (!parsed) {
            return AsAnswer(Problem(400, "the body is not JSON"));
        }
        content = std::move(*parsed);
    }
    ControlCall call{*this, names, content};
    return AsAnswer(route->handler(call));
}

Json Control::Info() {
    return m_service.CloudOf().With([&](CloudState& state) -> Json {
        return {
            {"bDomain", state.bDomain}, {"cDomain", state.cDomain}, {"control", m_address}, {"account", state.account}};
    });
}

}  // namespace vantix::simulator
