#pragma once

#include <string>

namespace vantix {

/// Replaces the first blank of a time text by "%20"; only that one, and nothing else is escaped.
std::string WithFirstBlankEscaped(std::string text);

}  // namespace vantix
