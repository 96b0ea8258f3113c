#pragma once

#include "transport/ResponseBody.h"

namespace vantix {

/// Converts a body from UTF-8 to the system's ANSI code page; characters outside it become the page's default
/// character. A failed conversion leaves an empty body. Where the system has no such page the body stays as it is.
void Utf8ToAnsi(ResponseBody& body);

}  // namespace vantix
