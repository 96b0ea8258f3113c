#include "Plans.h"

#include "../Bytes.h"

#include <algorithm>
#include <array>

namespace vantix::simulator {
namespace {

/// Every member that a plan may have; a misspelt one must not silently plan nothing.
constexpr std::array<std::string_view, 20> knownMembers = {
    "path",  "domain",    "match", "times",   "code", "message",           "status",
    "body",  "bodyHex",   "json",  "delayMs", "hold", "headers",           "malformed",
    "reset", "truncated", "raw",   "rawHex",  "drip", "closeWithoutAnswer"};

constexpr std::array<std::string_view, 8> effects = {"code",      "status", "delayMs",   "hold",
                                                     "malformed", "reset",  "truncated", "closeWithoutAnswer"};
constexpr std::array<std::string_view, 7> contents = {"body", "bodyHex", "json", "raw", "rawHex", "drip", "headers"};

template <std::size_t count>
bool Contains(const std::array<std::string_view, count>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsHexOrAbsent(const Json& plan, std::string_view key) {
    const Json& member = Member(plan, key);
    return member.is_null() || (member.is_string() && FromHex(member.get_ref<const std::string&>()));
}

std::string Problem(const Json& plan) {
    if (!plan.is_object()) {
        return "a plan is an object";
    }
    if (!Member(plan, "path").is_string()) {
        return "a plan needs a path";
    }
    bool effective = false;
    for (const auto& [key, value] : plan.items()) {
        if (!Contains(knownMembers, key)) {
            return "a plan has no member " + key;
        }
        effective = effective || Contains(effects, key) || Contains(contents, key);
    }
    if (!effective) {
        return "the plan plans nothing";
    }
    if (!IsHexOrAbsent(plan, "bodyHex") || !IsHexOrAbsent(plan, "rawHex")) {
        return "not hexadecimal";
    }
    const long long status = NumberOf(plan, "status", 200);
    return status < 200 || status > 999 ? "a status is 200 to 999; use raw for others" : "";
}

bool Fits(const Json& plan, Domain domain, const std::string& path, const Parameters& parameters) {
    const std::string wanted = TextOf(plan, "path");
    if (wanted != path && wanted != "*") {
        return false;
    }
    const std::string only = TextOf(plan, "domain");
    if (!only.empty() && only != (domain == Domain::b ? "B" : "C")) {
        return false;
    }
    const Json& match = Member(plan, "match");
    if (!match.is_object()) {
        return true;
    }
    return std::all_of(match.items().begin(), match.items().end(), [&](const auto& item) {
        return parameters.Has(item.key()) && parameters.Text(item.key()) == TextOf(match, item.key());
    });
}

}  // namespace

std::string Plans::Add(const Json& plan) {
    const Json list = plan.is_array() ? plan : Json::array({plan});
    for (const Json& entry : list) {
        if (std::string problem = Problem(entry); !problem.empty()) {
            return problem;
        }
    }
    const std::lock_guard lock(m_mutex);
    for (const Json& entry : list) {
        m_plans.push_back({entry, NumberOf(entry, "times", 1)});
    }
    return {};
}

std::optional<Json> Plans::Take(Domain domain, const std::string& path, const Parameters& parameters) {
    const std::lock_guard lock(m_mutex);
    const auto found = std::find_if(m_plans.begin(), m_plans.end(),
                                    [&](const Plan& plan) { return Fits(plan.content, domain, path, parameters); });
    if (found == m_plans.end()) {
        return std::nullopt;
    }
    Json content = found->content;
    if (found->left > 0 && --found->left == 0) {
        m_plans.erase(found);
    }
    return content;
}

Json Plans::List() const {
    const std::lock_guard lock(m_mutex);
    Json list = Json::array();
    for (const Plan& plan : m_plans) {
        list.push_back(plan.content);
        list.back()["times"] = plan.left;
    }
    return list;
}

void Plans::Clear() {
    const std::lock_guard lock(m_mutex);
    m_plans.clear();
}

HeaderList PlannedHeaders(const Json& plan) {
    HeaderList headers;
    const Json& given = Member(plan, "headers");
    if (given.is_object()) {
        for (const auto& [name, value] : given.items()) {
            headers.emplace_back(name, TextOf(given, name));
        }
    } else if (given.is_array()) {
        for (const Json& pair : given) {
            if (pair.is_array() && pair.size() == 2 && pair[0].is_string() && pair[1].is_string()) {
                headers.emplace_back(pair[0].get<std::string>(), pair[1].get<std::string>());
            }
        }
    }
    return headers;
}

std::optional<std::string> PlannedBody(const Json& plan) {
    if (const Json& hex = Member(plan, "bodyHex"); hex.is_string()) {
        return FromHex(hex.get_ref<const std::string&>());
    }
    if (const Json& text = Member(plan, "body"); text.is_string()) {
        return text.get<std::string>();
    }
    if (plan.contains("json")) {
        return Dump(plan.at("json"));
    }
    return std::nullopt;
}

}  // namespace vantix::simulator
