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

/// The entry of a device in a group: under its serial, or the element of a list that names it, or the group itself
/// when it is a single object without keys by serial.
json::JsonCppView EntryOf(const json::JsonCppView& group, const std::string& serial);

}  // namespace vantix::consumer
