#include "Service.h"

#include "../Bytes.h"
#include "Responses.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

constexpr std::chrono::milliseconds longestHold{60000};
constexpr long long longestDelayMs = 600000;

bool IsSet(const Json& script, std::string_view key) {
    const Json& member = Member(script, key);
    return member.is_boolean() && member.get<bool>();
}

std::chrono::milliseconds Milliseconds(const Json& object, std::string_view key) {
    return std::chrono::milliseconds(std::clamp(NumberOf(object, key), 0LL, longestDelayMs));
}

void Wait(const Json& script, RequestDelays& delays) {
    if (const auto delay = Milliseconds(script, "delayMs"); delay.count() > 0) {
        delays.Sleep(delay);
    }
    if (const std::string hold = TextOf(script, "hold"); !hold.empty()) {
        delays.WaitAtHold(hold, longestHold);
    }
}

/// The response that replaces that from the account's data; nothing when the script only changes or delays it.
std::optional<Response> Replacement(const Json& script, const std::string& path) {
    if (IsSet(script, "reset") || IsSet(script, "closeWithoutResponse")) {
        Response response;
        response.delivery = IsSet(script, "reset") ? Delivery::reset : Delivery::close;
        return response;
    }
    if (script.contains("raw") || script.contains("rawHex")) {
        Response response;
        response.delivery = Delivery::raw;
        response.body = script.contains("raw") ? TextOf(script, "raw") : FromHex(TextOf(script, "rawHex")).value_or("");
        return response;
    }
    if (auto body = ScriptedBody(script)) {
        Response response;
        response.body = std::move(*body);
        response.headers.emplace_back("Content-Type", "application/json;charset=UTF-8");
        return response;
    }
    if (script.contains("code")) {
        return ResponseWithCode(path, TextOf(script, "code"), TextOf(script, "message"));
    }
    if (script.contains("status")) {
        return ResponseWithStatus(static_cast<int>(NumberOf(script, "status", 500)));
    }
    return std::nullopt;
}

void SetHeader(HeaderList& headers, const std::pair<std::string, std::string>& header) {
    if (header.first == "Content-Type") {
        std::erase_if(headers, [](const auto& present) { return present.first == "Content-Type"; });
    }
    headers.push_back(header);
}

/// Changes the response as the script asks: status, headers, and how much of the body is sent and how fast.
void ApplyScript(const Json& script, Response& response) {
    response.status = static_cast<int>(NumberOf(script, "status", response.status));
    for (const auto& header : ScriptedHeaders(script)) {
        SetHeader(response.headers, header);
    }
    if (IsSet(script, "malformed")) {
        response.body.resize(response.body.size() / 2);
    }
    if (IsSet(script, "truncated")) {
        response.delivery = Delivery::truncated;
    }
    if (const Json& drip = Member(script, "drip"); drip.is_object()) {
        response.dripBytes = static_cast<std::size_t>(std::max(1LL, NumberOf(drip, "bytes", 1)));
        response.dripMs = static_cast<int>(Milliseconds(drip, "ms").count());
    }
}

}  // namespace

void Service::CreateCloud(std::string bDomain, std::string cDomain) {
    m_cloud = std::make_unique<Cloud>(std::move(bDomain), std::move(cDomain));
}

Response Service::Handle(Domain domain, const Request& request) {
    m_journal.Add(domain, request);
    const Parameters parameters(request);
    auto script = m_scripted.Take(domain, request.path, parameters);
    if (!script) {
        script = m_faultRate.Draw(domain, request.path, parameters);
    }
    if (!script) {
        return HandleRequest(*m_cloud, request, parameters);
    }
    Wait(*script, m_delays);
    auto replacement = Replacement(*script, request.path);
    Response response = replacement ? std::move(*replacement) : HandleRequest(*m_cloud, request, parameters);
    ApplyScript(*script, response);
    return response;
}

void Service::Reset() {
    m_scripted.Clear();
    m_faultRate.Clear();
    m_faults.Clear();
    m_delays.ReleaseAll();
    m_cloud->Reset();
    m_journal.Clear();
}

}  // namespace vantix::simulator
