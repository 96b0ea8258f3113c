#pragma once

/// @file
/// Both JSON libraries read numbers with a fraction through the host's locale, which may write them with a comma. A
/// locale belongs to the whole process, so it is the text that is adapted, not the locale.

#include <string>

namespace vantix::json {

/// Whether the C locale, which json11 reads with, has another decimal point than ".".
bool CLocaleHasOtherPoint();

/// Whether the global C++ locale, which JsonCpp reads with, has another decimal point than ".".
bool CppLocaleHasOtherPoint();

/// Writes every number with a fraction as an equal one without a decimal point ("1.25" becomes "125e-2"). Strings, and
/// what is no number, stay as they are.
std::string WithoutDecimalPoints(const std::string& text);

}  // namespace vantix::json
