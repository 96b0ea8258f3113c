#pragma once

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace vantix::simulator {

/// JSON whose members keep the order in which they were added.
using Json = nlohmann::ordered_json;

/// Compact text; bytes that are not UTF-8 become U+FFFD. Never throws, whatever the value holds.
std::string Dump(const Json& value);

/// The value, or nothing when the text is not JSON.
std::optional<Json> Parse(std::string_view text);

/// The member, or a null value when `object` is not an object or has no such member.
const Json& Member(const Json& object, std::string_view key);

/// The member as text: a string unchanged, a number in decimal; the fallback for anything else.
std::string TextOf(const Json& object, std::string_view key, std::string_view fallback = {});

/// The member as a number: a number (a real one truncated) or a decimal text; the fallback for anything else.
long long NumberOf(const Json& object, std::string_view key, long long fallback = 0);

/// The decimal number at the beginning of a text; the fallback when there is none or it is out of range.
long long ToNumber(std::string_view text, long long fallback = 0);

}  // namespace vantix::simulator
