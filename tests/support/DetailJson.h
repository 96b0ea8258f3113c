#pragma once

/// @file
/// Device detail records as JSON under the cloud's own member names, so that a record can be held against what the
/// cloud stores, and against itself before and after.

#include "support/SimulatorClient.h"
#include "vantix/records/BelongDevInfo.h"
#include "vantix/records/DevChannelInfo.h"
#include "vantix/records/DevDetailInfo.h"

namespace vantix::test {

/// The pair of records that the detail operations fill.
struct Detail {
    DevChannelInfo channel;
    DevDetailInfo device;
};

Json ToJson(const DevChannelInfo& channel);
/// The members that device and parent share.
Json ToJson(const BelongDevInfo& device);
/// Those, the capabilities and the bookkeeping.
Json ToJson(const DevDetailInfo& device);
Json ToJson(const Detail& detail);

/// Expects the records to hold every member that the cloud stores for the channel.
void ExpectStored(const SimulatorClient& cloud, const std::string& serial, int cameraNo, const Detail& detail);

}  // namespace vantix::test
