#pragma once

#include <string>

namespace vantix::bench {

/// A device detail answer of about 6.5 KB, as a server sends it: a camera, a device with 45 members, among them 900
/// capabilities by number and 40 capabilities by name in a nested text, and the device's parent.
std::string DetailAnswer(const std::string& serial);

/// The nested text of that answer, as the JSON that it holds.
std::string NestedText();

}  // namespace vantix::bench
