#include "Service.h"

#include "../Bytes.h"
#include "Answering.h"

#include <algorithm>

namespace vantix::simulator {
namespace {

constexpr std::chrono::milliseconds longestHold{60000};
constexpr long long longestDelayMs = 600000;

bool IsSet(const Json& plan, std::string_view key) {
    const Json& member = Member(plan, key);
    return member.is_boolean() && member.get<bool>();
}

std::chrono::milliseconds Milliseconds(const Json& object, std::string_view key) {
    return std::chrono::milliseconds(std::clamp(NumberOf(object, key), 0LL, longestDelayMs));
}

void Wait(const Json& plan, Pause& pause) {
    if (const auto delay = Milliseconds(plan, "delayMs"); delay.count() > 0) {
        pause.For(delay);
    }
    if (const std::string gate = TextOf(plan, "hold"); !gate.empty()) {
        pause.At(gate, longestHold);
    }
}

/// An answer that does not come from the account's data; nothing when the plan leaves that alone.
std::optional<Answer> Replacement(const Json& plan, const std::string& path) {
    if (IsSet(plan, "reset") || IsSet(plan, "closeWithoutAnswer")) {
        Answer answer;
        answer.delivery = IsSet(plan, "reset") ? Delivery::reset : Delivery::close;
        return answer;
    }
    if (plan.contains("raw") || plan.contains("rawHex")) {
        Answer answer;
        answer.delivery = Delivery::raw;
        answer.body = plan.contains("raw") ? TextOf(plan, "raw") : FromHex(TextOf(plan, "rawHex")).value_or("");
        return answer;
    }
    if (auto body = PlannedBody(plan)) {
        Answer answer;
        answer.body = std::move(*body);
        answer.headers.emplace_back("Content-Type", "application/json;charset=UTF-8");
        return answer;
    }
    if (plan.contains("code")) {
        return AnswerWithCode(path, TextOf(plan, "code"), TextOf(plan, "message"));
    }
    if (plan.contains("status")) {
        return AnswerWithStatus(static_cast<int>(NumberOf(plan, "status", 500)));
    }
    return std::nullopt;
}

void SetHeader(HeaderList& headers, const std::pair<std::string, std::string>& header) {
    if (header.first == "Content-Type") {
        std::erase_if(headers, [](const auto& present) { return present.first == "Content-Type"; });
    }
    headers.push_back(header);
}

void Spoil(const Json& plan, Answer& answer) {
    answer.status = static_cast<int>(NumberOf(plan, "status", answer.status));
    for (const auto& header : PlannedHeaders(plan)) {
        SetHeader(answer.headers, header);
    }
    if (IsSet(plan, "malformed")) {
        answer.body.resize(answer.body.size() / 2);
    }
    if (IsSet(plan, "truncated")) {
        answer.delivery = Delivery::truncated;
    }
    if (const Json& drip = Member(plan, "drip"); drip.is_object()) {
        answer.dripBytes = static_cast<std::size_t>(std::max(1LL, NumberOf(drip, "bytes", 1)));
        answer.dripMs = static_cast<int>(Milliseconds(drip, "ms").count());
    }
}

}  // namespace

void Service::Open(std::string bDomain, std::string cDomain) {
    m_cloud = std::make_unique<Cloud>(std::move(bDomain), std::move(cDomain));
}

Answer Service::Handle(Domain domain, const Request& request) {
    m_journal.Add(domain, request);
    const Parameters parameters(request);
    const auto plan = m_plans.Take(domain, request.path, parameters);
    if (!plan) {
        return AnswerFrom(*m_cloud, request, parameters);
    }
    Wait(*plan, m_pause);
    auto replacement = Replacement(*plan, request.path);
    Answer answer = replacement ? std::move(*replacement) : AnswerFrom(*m_cloud, request, parameters);
    Spoil(*plan, answer);
    return answer;
}

void Service::Reset() {
    m_plans.Clear();
    m_traps.Clear();
    m_pause.ReleaseAll();
    m_cloud->Reset();
    m_journal.Clear();
}

}  // namespace vantix::simulator
