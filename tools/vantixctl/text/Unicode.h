#pragma once

/// @file
/// UTF-8 text on a terminal.

#include <string>
#include <string_view>
#include <vector>

namespace vantix::ctl {

/// The text with a blank for each control character: a server could control the terminal with them.
std::string Printable(std::string_view text);

/// Number of columns that the text takes on a terminal.
int DisplayWidth(std::string_view text);

/// The text cut into lines of at most `width` columns, preferably after a blank, "&", "," or "|".
std::vector<std::string> Wrapped(std::string_view text, int width);

/// "***" for a secret; a long one keeps its first characters, so that two differ.
std::string Masked(std::string_view secret);

}  // namespace vantix::ctl
