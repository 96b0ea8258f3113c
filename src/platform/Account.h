#pragma once

/// @file
/// The account and its settings on the platform.
///
/// Requests return 0, 100000 + the transport's code or 300000 + the response code; parsers return response codes.

#include <string>

#include "base/TextView.h"
#include "requests/Route.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix {

/// The platform's configuration. Needs no credential.
int GetConfigInfoFromPlatform(const PlatformRoute& route, ConfigInfo& config);

/// The name of the account that the credential stands for.
int GetUsernameFromPlatform(const PlatformRoute& route, std::string& userName);

/// Its id.
int GetUserIdFromPlatform(const PlatformRoute& route, std::string& userId);

/// Registers this client for pushes.
int getPushSessionIdFromPlatform(const PlatformRoute& route, std::string& pushSessionId);

/// Where this client may measure its bandwidth.
int getBWCheckInfoFromPlatform(const PlatformRoute& route, int type, const std::string& checkTime, int localIndex,
                               BWCheckInfo& info);

/// A message that the platform passed through from a device.
int GetTransparentMsgDetailFromPlatform(const PlatformRoute& route, const std::string& msgSeq,
                                        TransparentMsgDetail& detail);

/// Sets a channel's picture quality level; the response as it came.
int SetVideoDefinitionOnPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo,
                                 int videoLevel, std::string& response);

/// Marks an alarm as read.
int SetAlarmReadOnPlatform(const PlatformRoute& route, const std::string& alarmId);

/// Has a code rule of its own: the "code" of "result", textual or a number. "data" stands inside "result" or at the
/// root.
int ParseConfigInfoFromPlatform(TextView body, ConfigInfo& config);

/// "userName" must be a string.
int ParseUsernameFromPlatform(TextView body, std::string& userName);

/// "result"."data"."userId" must be a string.
int ParseUserIdFromPlatform(TextView body, std::string& userId);

/// "pushSessionId" must be a string; the envelope's code must be there.
int ParsePushSessionIdFromPlatform(TextView body, std::string& pushSessionId);

/// All members of "data" must be there, and the envelope's code.
int ParseBWCheckInfoFromPlatform(TextView body, BWCheckInfo& info);

/// "result"."msgData" must be an object; each of its members is a text or a number, and optional.
int ParseTransparentMsgDetailFromPlatform(TextView body, TransparentMsgDetail& detail);

}  // namespace vantix
