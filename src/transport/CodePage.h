#pragma once

#include <string>

namespace vantix {

/// Converts UTF-8 to the system's ANSI code page; characters outside it become the page's default character. A failed
/// conversion gives an empty text. Where the system has no such page the text comes back unchanged.
std::string Utf8ToAnsi(const std::string& text);

}  // namespace vantix
