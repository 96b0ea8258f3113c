#pragma once

/// @file
/// Which member of a consumer server's response about a device fills which field.

#include <string>

#include "cserver/DeviceDetail.h"
#include "json/JsonCppReader.h"

namespace vantix::consumer {

/// Reads a camera and what it says of its device; false when it is none, or belongs to another device.
bool ReadCamera(const json::JsonCppView& camera, const std::string& deviceSerial, ConsumerChannel& entry);

/// Reads the device's entry, its capabilities and its groups.
void ReadDevice(const json::JsonCppView& root, const std::string& deviceSerial, DevDetailInfo& device);

}  // namespace vantix::consumer
