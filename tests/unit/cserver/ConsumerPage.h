#pragma once

/// @file
/// A device page of the consumer servers in which every member is there and no two have the same value.

#include <string>
#include <vector>

#include "support/TestJson.h"
#include "unit/platform/DetailRecords.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::test {

/// The device that the page is about. It has two cameras there; another device stands beside it everywhere.
inline constexpr char kPageSerial[] = "S";

nlohmann::json GoldenPage();

/// The members of the page's first camera and of its device, by JSON pointer, and the fields that they fill. Members
/// that have rules of their own are not among them.
const std::vector<Member<DevChannelInfo>>& PageCameraRows();
const std::vector<Member<BelongDevInfo>>& PageDeviceRows();

/// The golden page with another extension text.
nlohmann::json PageWithExtension(const std::string& text);

}  // namespace vantix::test
