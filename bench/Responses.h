#pragma once

#include <string>

namespace vantix::bench {

/// A consumer server's response about a recorder with 64 channels: the cameras, the device, and its groups.
std::string ConsumerPage(const std::string& serial);

/// A page of the platform's device list: 200 devices of one channel.
std::string DeviceListResponse();

/// The media servers of a user's area.
std::string ServerInformationResponse();

/// The 1,000 recordings of a day.
std::string RecordingsResponse();

}  // namespace vantix::bench
