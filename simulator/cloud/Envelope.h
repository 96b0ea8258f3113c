#pragma once

#include "../Json.h"

#include <string>
#include <string_view>

namespace vantix::simulator {

/// Where the body of a response has its code.
enum class Envelope {
    result,      ///< {"result":{"code":"200","msg":…}}
    resultCode,  ///< {"resultCode":"200","resultDesc":…}
    meta,        ///< {"meta":{"code":200,"message":…}}
};

/// Response codes of the platform.
namespace code {
inline constexpr std::string_view success = "200";
inline constexpr std::string_view sessionExpired = "401";
inline constexpr std::string_view badParameter = "10001";
inline constexpr std::string_view tokenExpired = "10002";
inline constexpr std::string_view noDevice = "20002";
inline constexpr std::string_view deviceOffline = "20007";
inline constexpr std::string_view noPermission = "20018";
inline constexpr std::string_view noChannel = "20032";
inline constexpr std::string_view nothingFound = "20034";
inline constexpr std::string_view serverFailed = "50000";
}  // namespace code

/// The message for a code; a general one for codes that are not in the table.
std::string_view MessageOf(std::string_view code);

/// The body of a response: the envelope with code and message, and the members of `payload` merged into it.
Json Wrap(Envelope envelope, std::string_view code, std::string_view message, const Json& payload);

}  // namespace vantix::simulator
