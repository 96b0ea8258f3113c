#pragma once

/// @file
/// Masks the values of credentials in log texts, by their keys.

#include <span>
#include <string>
#include <string_view>

namespace vantix {

/// The text in the log that replaces a masked value.
inline constexpr std::string_view kMask = "***";

/// Whether a parameter's value is masked in the log ("appKey", "accessToken", "sessionId"; exact case).
bool IsSecretParameter(std::string_view key);

/// Whether a header's value is masked in the log ("accessToken", "sessionId"; exact case).
bool IsSecretHeader(std::string_view key);

/// A copy of a JSON text in which the values of secret parameters are masked. Works on any text: it need not
/// be well-formed.
std::string MaskedJson(std::string_view text);

/// A copy of a text in which the value of every member of these names, whatever it is and however deep it stands, is
/// `"***"`. Works on any text, also on JSON that is cut off.
std::string MaskedMembers(std::string_view text, std::span<const std::string_view> names);

}  // namespace vantix
