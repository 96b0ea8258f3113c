#pragma once

#include <string>

#include "json/JsonCppReader.h"

namespace vantix::consumer {

/// Whether an entry holds a "deviceSerial" and it is another one.
bool NamesAnother(const json::JsonCppView& entry, const std::string& serial);

/// The entry of a device in a group: under its serial as a key, else the element of a list that names it, else a single
/// object (the group itself, or a list's only element) that names no other device. Nothing when there is none.
json::JsonCppView EntryOf(const json::JsonCppView& group, const std::string& serial);

}  // namespace vantix::consumer
