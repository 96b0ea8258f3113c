#include "Json.h"

#include <charconv>

namespace vantix::simulator {

std::string Dump(const Json& value) { return value.dump(-1, ' ', false, Json::error_handler_t::replace); }

std::optional<Json> Parse(std::string_view text) {
    Json value = Json::parse(text, nullptr, false);
    if (value.is_discarded()) {
        return std::nullopt;
    }
    return value;
}

const Json& Member(const Json& object, std::string_view key) {
    static const Json absent;
    if (!object.is_object()) {
        return absent;
    }
    const auto found = object.find(std::string(key));
    return found == object.end() ? absent : *found;
}

std::string TextOf(const Json& object, std::string_view key, std::string_view fallback) {
    const Json& member = Member(object, key);
    if (member.is_string()) {
        return member.get<std::string>();
    }
    if (member.is_number()) {
        return Dump(member);
    }
    return std::string(fallback);
}

long long ToNumber(std::string_view text, long long fallback) {
    long long value = fallback;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
    return parsed.ec == std::errc() ? value : fallback;
}

long long NumberOf(const Json& object, std::string_view key, long long fallback) {
    const Json& member = Member(object, key);
    if (member.is_number_integer()) {
        return member.get<long long>();
    }
    if (member.is_number_float()) {
        const double real = member.get<double>();
        return real > -9e18 && real < 9e18 ? static_cast<long long>(real) : fallback;
    }
    if (member.is_string()) {
        return ToNumber(member.get_ref<const std::string&>(), fallback);
    }
    return fallback;
}

}  // namespace vantix::simulator
