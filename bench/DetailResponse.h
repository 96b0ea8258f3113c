#pragma once

#include <string>

namespace vantix::bench {

/// A device detail response of about 6.5 KB, as a server sends it: a camera, a device with 45 members, which include
/// 900 capabilities by number and 40 capabilities by name in a nested text, and the device's parent.
std::string DetailResponse(const std::string& serial, const std::string& channel = "1");

/// The nested text of that response, as JSON.
std::string NestedText();

}  // namespace vantix::bench
