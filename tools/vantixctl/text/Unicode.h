#pragma once

/// @file
/// UTF-8 text as a terminal shows it.

#include <string>
#include <string_view>
#include <vector>

namespace vantix::ctl {

/// The text without control characters, which a server could use to take over the terminal: each becomes a blank.
std::string Printable(std::string_view text);

/// Columns that the text takes on a terminal.
int DisplayWidth(std::string_view text);

/// The text cut into lines of at most `width` columns, preferably behind a blank, "&", "," or "|".
std::vector<std::string> Wrapped(std::string_view text, int width);

/// "***" for a secret, with the first characters of a long one so that two can be told apart.
std::string Masked(std::string_view secret);

}  // namespace vantix::ctl
