#pragma once

/// @file
/// A response of the consumer servers about a device, in which every member is there and no two have the same value.

#include <string>

#include "support/RecordFields.h"
#include "support/TestJson.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"

namespace vantix::test {

/// The device that it is about, with two cameras; another device stands beside it everywhere.
inline constexpr char kSerial[] = "S";

Json WholeDevice();

/// The same with another extension text.
Json DeviceWithExtension(const std::string& text);

/// What it says of the first camera and of the device. Members that have rules of their own are not among them.
const RecordFields<DevChannelInfo>& CameraRows();
const RecordFields<BelongDevInfo>& DeviceRows();

}  // namespace vantix::test
