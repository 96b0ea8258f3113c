#pragma once

/// @file
/// The records of a device detail, and a whole response in which every member is there and no two have the same value.

#include <string>

#include "support/RecordFields.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::test {

/// "camera".
const RecordFields<DevChannelInfo>& CameraFields();
/// "device".
const RecordFields<BelongDevInfo>& DeviceFields();
/// "belongDevice" inside it.
const RecordFields<BelongDevInfo>& ParentFields();
/// Members of "supportExt" that are numbers as text.
const RecordFields<DevDetailInfo>& CapabilityFields();

Json WholeDetail();
/// Its text as the file has it.
std::string WholeDetailText();

/// The parts of a response.
inline Json& Data(Json& response) { return response["result"]["data"]; }
inline Json& Camera(Json& response) { return Data(response)["camera"]; }
inline Json& Device(Json& response) { return Data(response)["device"]; }

/// Whether two records are equal in every field that a response fills.
bool Same(const DevChannelInfo& left, const DevChannelInfo& right);
bool Same(const BelongDevInfo& left, const BelongDevInfo& right);
bool Same(const DevDetailInfo& left, const DevDetailInfo& right);

}  // namespace vantix::test
