#pragma once

/// @file
/// The envelope of the consumer servers, and where their groups stand.

#include <string>

#include "json/JsonCppReader.h"

namespace vantix::consumer {

/// The envelope's code: that of "meta" when it is an integer; 200 is success. Without one the answer is a success.
int Code(const json::JsonCppView& root);

/// A member that stands beside "data" or, failing that, inside it.
json::JsonCppView Find(const json::JsonCppView& root, const char* key);

/// Whether an entry tells a "deviceSerial" and it is another one.
bool NamesAnother(const json::JsonCppView& entry, const std::string& serial);

/// The entry of a device in a group: under its serial as a key, else the element of a list that names it, else a single
/// object (the group itself, or a list's only element) that names no other device. Nothing when there is none.
json::JsonCppView EntryOf(const json::JsonCppView& group, const std::string& serial);

}  // namespace vantix::consumer
