#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vantix {

/// Requests name their path by its index in one table that both server families share.
namespace endpoint {
inline constexpr uint32_t kDeviceDetail = 1;
inline constexpr uint32_t kServerInfo = 2;
inline constexpr uint32_t kSetVideoLevel = 3;
inline constexpr uint32_t kUserName = 4;
inline constexpr uint32_t kTransparentMsg = 5;
inline constexpr uint32_t kConfig = 6;
inline constexpr uint32_t kStreamTokens = 7;
inline constexpr uint32_t kRecordByAlarm = 8;
inline constexpr uint32_t kDeviceList = 9;
inline constexpr uint32_t kAlarmList = 10;
inline constexpr uint32_t kCloudFiles = 11;
inline constexpr uint32_t kSetAlarmRead = 12;
inline constexpr uint32_t kDeviceInfo = 13;
inline constexpr uint32_t kSharedDeviceList = 14;
inline constexpr uint32_t kRefreshToken = 15;
inline constexpr uint32_t kBusinessDeviceList = 16;
inline constexpr uint32_t kLocalFilesByTime = 17;
inline constexpr uint32_t kP2PUserInfo = 18;
inline constexpr uint32_t kP2PDevInfo = 19;
inline constexpr uint32_t kDeviceFilesSdk = 20;
inline constexpr uint32_t kTicket = 21;
inline constexpr uint32_t kCloudFilesPerDay = 22;
inline constexpr uint32_t kCloudFileDetails = 23;
inline constexpr uint32_t kLocalVideoQuery = 24;
inline constexpr uint32_t kPermission = 25;
inline constexpr uint32_t kDeviceFiles = 26;
inline constexpr uint32_t kRelayTicket = 27;
inline constexpr uint32_t kRelayServer = 28;
inline constexpr uint32_t kCloudRecordList = 29;
inline constexpr uint32_t kCloudUploadUrl = 30;
inline constexpr uint32_t kCloudTicket = 31;
inline constexpr uint32_t kUserId = 32;
inline constexpr uint32_t kPushRegistration = 33;
inline constexpr uint32_t kBandwidthCheck = 34;
inline constexpr uint32_t kConsumerDevicePagelist = 35;
inline constexpr uint32_t kConsumerStreamTokens = 37;
inline constexpr uint32_t kConsumerSystemInfo = 38;
inline constexpr uint32_t kConsumerUserInfo = 39;
inline constexpr uint32_t kConsumerP2PConfig = 40;
inline constexpr uint32_t kConsumerSharedDevices = 42;
inline constexpr uint32_t kConsumerRecords = 43;
inline constexpr uint32_t kConsumerLogin = 45;
}  // namespace endpoint

/// The path of an index; empty for 46 and above.
std::string EndpointPath(uint32_t index);
/// The same as it stands in the table.
std::string_view EndpointPathView(uint32_t index);

}  // namespace vantix
