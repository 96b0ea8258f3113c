#include "ScriptedResponses.h"

#include "../Bytes.h"

#include <algorithm>
#include <array>

namespace vantix::simulator {
namespace {

/// Every member that a scripted response may have; a misspelt one is refused, so that it is not silently ignored.
constexpr std::array<std::string_view, 21> knownMembers = {"path",    "domain",    "match",   "times",
                                                           "code",    "message",   "status",  "body",
                                                           "bodyHex", "json",      "delayMs", "hold",
                                                           "headers", "malformed", "reset",   "truncated",
                                                           "raw",     "rawHex",    "drip",    "closeWithoutResponse",
                                                           "filler"};

/// Repetitions of a filler: enough for some hundred megabytes of a short text.
constexpr long long largestFiller = 400'000'000;

constexpr std::array<std::string_view, 8> effects = {"code",      "status", "delayMs",   "hold",
                                                     "malformed", "reset",  "truncated", "closeWithoutResponse"};
constexpr std::array<std::string_view, 7> contents = {"body", "bodyHex", "json", "raw", "rawHex", "drip", "headers"};

template <std::size_t count>
bool Contains(const std::array<std::string_view, count>& names, const std::string& name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool IsHexOrAbsent(const Json& script, std::string_view key) {
    const Json& member = Member(script, key);
    return member.is_null() || (member.is_string() && FromHex(member.get_ref<const std::string&>()));
}

/// A path that ends in "*" stands for all that begin as it does.
bool FitsPath(const std::string& wanted, const std::string& path) {
    const bool isPrefix = !wanted.empty() && wanted.back() == '*';
    return isPrefix ? path.starts_with(wanted.substr(0, wanted.size() - 1)) : wanted == path;
}

}  // namespace

std::string ProblemOfScript(const Json& script) {
    if (!script.is_object()) {
        return "a scripted response is an object";
    }
    if (!Member(script, "path").is_string()) {
        return "a scripted response needs a path";
    }
    bool effective = false;
    for (const auto& [key, value] : script.items()) {
        if (!Contains(knownMembers, key)) {
            return "a scripted response has no member " + key;
        }
        effective = effective || Contains(effects, key) || Contains(contents, key);
    }
    if (!effective) {
        return "the scripted response has no effect";
    }
    if (!IsHexOrAbsent(script, "bodyHex") || !IsHexOrAbsent(script, "rawHex")) {
        return "not hexadecimal";
    }
    const long long status = NumberOf(script, "status", 200);
    return status < 200 || status > 999 ? "a status is 200 to 999; use raw for others" : "";
}

bool FitsRequest(const Json& script, Domain domain, const std::string& path, const Parameters& parameters) {
    if (!FitsPath(TextOf(script, "path"), path)) {
        return false;
    }
    const std::string only = TextOf(script, "domain");
    if (!only.empty() && only != (domain == Domain::b ? "B" : "C")) {
        return false;
    }
    const Json& match = Member(script, "match");
    if (!match.is_object()) {
        return true;
    }
    return std::all_of(match.items().begin(), match.items().end(), [&](const auto& item) {
        return parameters.Has(item.key()) && parameters.Text(item.key()) == TextOf(match, item.key());
    });
}

std::string ScriptedResponses::Add(const Json& script) {
    const Json list = script.is_array() ? script : Json::array({script});
    for (const Json& entry : list) {
        if (std::string problem = ProblemOfScript(entry); !problem.empty()) {
            return problem;
        }
    }
    const std::lock_guard lock(m_mutex);
    for (const Json& entry : list) {
        m_scripted.push_back({entry, NumberOf(entry, "times", 1)});
    }
    return {};
}

std::optional<Json> ScriptedResponses::Take(Domain domain, const std::string& path, const Parameters& parameters) {
    const std::lock_guard lock(m_mutex);
    const auto found = std::find_if(m_scripted.begin(), m_scripted.end(), [&](const ScriptedResponse& scripted) {
        return FitsRequest(scripted.content, domain, path, parameters);
    });
    if (found == m_scripted.end()) {
        return std::nullopt;
    }
    Json content = found->content;
    if (found->left > 0 && --found->left == 0) {
        m_scripted.erase(found);
    }
    return content;
}

Json ScriptedResponses::List() const {
    const std::lock_guard lock(m_mutex);
    Json list = Json::array();
    for (const ScriptedResponse& scripted : m_scripted) {
        list.push_back(scripted.content);
        list.back()["times"] = scripted.left;
    }
    return list;
}

void ScriptedResponses::Clear() {
    const std::lock_guard lock(m_mutex);
    m_scripted.clear();
}

HeaderList ScriptedHeaders(const Json& script) {
    HeaderList headers;
    const Json& given = Member(script, "headers");
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

namespace {

/// The body with a text, so many times, in the place of the word "$filler".
std::string Filled(std::string body, const Json& filler) {
    constexpr std::string_view word = "$filler";
    const auto place = body.find(word);
    if (place == std::string::npos || !filler.is_object()) {
        return body;
    }
    const std::string text = TextOf(filler, "text");
    const long long times = std::clamp(NumberOf(filler, "times"), 0LL, largestFiller);
    std::string filled;
    filled.reserve(body.size() + text.size() * static_cast<std::size_t>(times));
    filled.append(body, 0, place);
    for (long long i = 0; i < times; ++i) {
        filled += text;
    }
    return filled.append(body, place + word.size());
}

}  // namespace

std::optional<std::string> ScriptedBody(const Json& script) {
    if (const Json& hex = Member(script, "bodyHex"); hex.is_string()) {
        return FromHex(hex.get_ref<const std::string&>());
    }
    if (const Json& text = Member(script, "body"); text.is_string()) {
        return Filled(text.get<std::string>(), Member(script, "filler"));
    }
    if (script.contains("json")) {
        return Dump(script.at("json"));
    }
    return std::nullopt;
}

}  // namespace vantix::simulator
