#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace vantix::simulator {

/// Members keep the order in which they were written, as a reader of an answer expects.
using Json = nlohmann::ordered_json;

/// Compact text; bytes that are no UTF-8 become U+FFFD. Never throws for content.
std::string Dump(const Json& value);

/// The value, or nothing when the text is not JSON.
std::optional<Json> Parse(std::string_view text);

/// The member, or a null value when `object` is no object or has no such member.
const Json& Member(const Json& object, std::string_view key);

/// The member as text: a string as it is, a number in decimal, anything else the fallback.
std::string TextOf(const Json& object, std::string_view key, std::string_view fallback = {});

/// The member as a number: a number (reals truncated), a decimal text, anything else the fallback.
long long NumberOf(const Json& object, std::string_view key, long long fallback = 0);

/// Leading decimal number of a text; the fallback when there is none or it does not fit.
long long ToNumber(std::string_view text, long long fallback = 0);

}  // namespace vantix::simulator
