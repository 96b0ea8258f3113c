#pragma once

#include <string>

namespace vantix {

/// The key of a channel: serial, "_", channel number, written without a format, since every hit in a cache makes one. A
/// serial of no or more than 128 characters is logged and is itself the key.
std::string getDevDetailInfoMapKey(const std::string& serial, int ch);

}  // namespace vantix
