#include "FaultRate.h"

#include "ScriptedResponses.h"

namespace vantix::simulator {
namespace {

/// A number that looks random, always the same one for the same seed and place (SplitMix64).
std::uint64_t NumberAt(std::uint64_t seed, std::uint64_t place) {
    std::uint64_t mixed = seed + (place + 1) * 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
}

bool IsHit(std::uint64_t number, double percent) {
    constexpr std::uint64_t steps = 1000000;
    return static_cast<double>(number % steps) < percent / 100 * static_cast<double>(steps);
}

std::string ProblemOf(const Json& content) {
    const Json& percent = Member(content, "percent");
    if (!percent.is_number() || percent.get<double>() < 0 || percent.get<double>() > 100) {
        return "percent is a number from 0 to 100";
    }
    const Json& faults = Member(content, "faults");
    if (!faults.is_array() || faults.empty()) {
        return "faults is a list with at least one";
    }
    for (const Json& fault : faults) {
        if (TextOf(fault, "name").empty()) {
            return "a fault needs a name";
        }
        if (std::string problem = ProblemOfScript(Member(fault, "response")); !problem.empty()) {
            return problem;
        }
    }
    return {};
}

}  // namespace

std::string FaultRate::Set(const Json& content) {
    if (std::string problem = ProblemOf(content); !problem.empty()) {
        return problem;
    }
    Setting setting;
    setting.percent = content.at("percent").get<double>();
    setting.seed = static_cast<std::uint64_t>(NumberOf(content, "seed"));
    for (const Json& fault : content.at("faults")) {
        setting.faults.push_back({TextOf(fault, "name"), fault.at("response")});
    }
    const std::lock_guard lock(m_mutex);
    m_setting = std::move(setting);
    return {};
}

std::optional<Json> FaultRate::Draw(Domain domain, const std::string& path, const Parameters& parameters) {
    const std::lock_guard lock(m_mutex);
    if (m_setting.faults.empty()) {
        return std::nullopt;
    }
    const std::uint64_t number = NumberAt(m_setting.seed, m_setting.requests++);
    if (!IsHit(number, m_setting.percent)) {
        return std::nullopt;
    }
    std::vector<const NamedFault*> fitting;
    for (const NamedFault& fault : m_setting.faults) {
        if (FitsRequest(fault.response, domain, path, parameters)) {
            fitting.push_back(&fault);
        }
    }
    if (fitting.empty()) {
        return std::nullopt;
    }
    const NamedFault& chosen = *fitting[NumberAt(number, 0) % fitting.size()];
    ++m_setting.injected[chosen.name];
    return chosen.response;
}

Json FaultRate::Report() const {
    const std::lock_guard lock(m_mutex);
    return {{"percent", m_setting.percent},
            {"seed", m_setting.seed},
            {"requests", m_setting.requests},
            {"injected", m_setting.injected}};
}

void FaultRate::Clear() {
    const std::lock_guard lock(m_mutex);
    m_setting = {};
}

}  // namespace vantix::simulator
