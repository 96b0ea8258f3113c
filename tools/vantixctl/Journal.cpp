#include "Journal.h"

#include <algorithm>
#include <array>

#include "text/Table.h"

namespace vantix::ctl {
namespace {

constexpr std::string_view kMask = "***";

constexpr std::array<std::string_view, 8> kSecretNames = {
    "accessToken", "appKey", "sessionId", "featureCode", "refresh_token", "client_id", "open_id", "refreshSessionId"};

std::string Shown(const std::pair<std::string, std::string>& parameter) {
    const bool isSecret = std::find(kSecretNames.begin(), kSecretNames.end(), parameter.first) != kSecretNames.end();
    return isSecret ? std::string(kMask) : parameter.second;
}

std::string ParameterText(const ReceivedRequest& request) {
    std::string text;
    for (const auto& parameter : request.parameters) {
        text += (text.empty() ? "" : "  ") + parameter.first + "=" + Shown(parameter);
    }
    if (!request.otherBody.empty()) {
        text += (text.empty() ? "" : "  ") + std::to_string(request.otherBody.size()) + " bytes of another body";
    }
    return text;
}

}  // namespace

std::string JournalTable(const Context& context, const std::vector<ReceivedRequest>& requests) {
    Table table({{"#", Align::Right}, {"server"}, {"request and its parameters", Align::Left, true}});
    int number = 0;
    for (const ReceivedRequest& request : requests) {
        if (number > 0) {
            table.AddRule();
        }
        table.Add(
            {Cell(std::to_string(++number)), Cell(request.server),
             Cell({{request.method + " " + request.path, Style::Strong}, {ParameterText(request), Style::Faint}})});
    }
    return table.Drawn(context.paint, context.width);
}

Json JournalJson(const std::vector<ReceivedRequest>& requests) {
    Json list = Json::array();
    for (const ReceivedRequest& request : requests) {
        Json parameters = Json::object();
        for (const auto& parameter : request.parameters) {
            parameters[parameter.first] = Shown(parameter);
        }
        list.push_back({{"server", request.server},
                        {"method", request.method},
                        {"path", request.path},
                        {"parameters", std::move(parameters)}});
    }
    return list;
}

}  // namespace vantix::ctl
