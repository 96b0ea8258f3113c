#include "Parameters.h"

#include "../Bytes.h"
#include "../Json.h"

#include <strings.h>

#include <algorithm>

namespace vantix::simulator {
namespace {

std::string Decoded(std::string_view text) {
    std::string decoded;
    decoded.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' && at + 2 < text.size()) {
            if (const auto byte = FromHex(text.substr(at + 1, 2))) {
                decoded += *byte;
                at += 2;
                continue;
            }
        }
        decoded += text[at];
    }
    return decoded;
}

}  // namespace

Parameters::Parameters(const Request& request) {
    AddForm(request.query);
    const std::string type = HeaderValue(request.headers, "Content-Type");
    if (type.starts_with("application/json")) {
        AddJson(request.body);
    } else if (!type.starts_with("multipart/")) {
        AddForm(request.body);
    }
}

void Parameters::AddForm(std::string_view form) {
    while (!form.empty()) {
        const std::string_view pair = form.substr(0, form.find('&'));
        form.remove_prefix(std::min(pair.size() + 1, form.size()));
        const auto equals = pair.find('=');
        if (equals != std::string_view::npos) {
            m_values.emplace(Decoded(pair.substr(0, equals)), Decoded(pair.substr(equals + 1)));
        }
    }
}

void Parameters::AddJson(std::string_view text) {
    const auto json = Parse(text);
    if (!json || !json->is_object()) {
        return;
    }
    for (const auto& [key, value] : json->items()) {
        m_values.emplace(key, value.is_string() ? value.get<std::string>() : Dump(value));
    }
}

bool Parameters::Has(std::string_view name) const { return m_values.find(name) != m_values.end(); }

std::string Parameters::Text(std::string_view name) const {
    const auto found = m_values.find(name);
    return found == m_values.end() ? std::string() : found->second;
}

long long Parameters::Number(std::string_view name, long long fallback) const { return ToNumber(Text(name), fallback); }

std::string HeaderValue(const HeaderList& headers, std::string_view name) {
    const auto found = std::find_if(headers.begin(), headers.end(), [name](const auto& header) {
        return header.first.size() == name.size() && strncasecmp(header.first.data(), name.data(), name.size()) == 0;
    });
    return found == headers.end() ? std::string() : found->second;
}

}  // namespace vantix::simulator
