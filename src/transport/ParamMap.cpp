#include "transport/ParamMap.h"

#include <algorithm>
#include <cstdio>

#include "log/Masking.h"

namespace vantix {
namespace {

template <class ValueOf>
std::string Join(const ParamMap::Entries& entries, ValueOf valueOf) {
    std::string text;
    for (const auto& [key, value] : entries) {
        if (!text.empty()) {
            text += '&';
        }
        text.append(key).append("=").append(valueOf(key, value));
    }
    return text;
}

}  // namespace

void ParamMap::Add(const char* key, const char* value) {
    if (key != nullptr && value != nullptr) {
        m_entries.emplace(key, value);
    }
}

void ParamMap::Add(const char* key, const std::string& value) {
    if (key != nullptr) {
        m_entries.emplace(key, value);
    }
}

void ParamMap::Add(const char* key, int value) {
    char text[12] = {};
    std::snprintf(text, sizeof(text), "%d", value);
    if (text[0] != '\0') {
        Add(key, text);
    }
}

bool ParamMap::HasZeroByte() const {
    return std::any_of(m_entries.begin(), m_entries.end(),
                       [](const auto& entry) { return entry.second.find('\0') != std::string::npos; });
}

std::string ParamMap::Serialize() const {
    return Join(m_entries, [](const std::string&, const std::string& value) -> std::string_view { return value; });
}

std::string ParamMap::SerializeMasked() const {
    return Join(m_entries, [](const std::string& key, const std::string& value) -> std::string_view {
        return IsSecretParameter(key) ? kMask : std::string_view(value);
    });
}

}  // namespace vantix
