#pragma once

/// @file
/// The platform's records as JSON, every field under the name that it has in the response or in the record.

#include "records/RefreshTokenInfo.h"
#include "records/RelayServerInfo.h"
#include "support/TestJson.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {

nlohmann::json ToJson(const ServerInfo& info);
nlohmann::json ToJson(const RelayServerInfo& relay);
nlohmann::json ToJson(const ConfigInfo& config);
nlohmann::json ToJson(const P2PUserInfo& info);
/// Without `deviceSerial` and `isUpdate`, which no response fills.
nlohmann::json ToJson(const P2PDevInfo& info);
nlohmann::json ToJson(const RefreshTokenInfo& info);
nlohmann::json ToJson(const BWCheckInfo& info);
nlohmann::json ToJson(const TransparentMsgDetail& detail);
nlohmann::json ToJson(const DeviceList& list);
/// The files, and the text as JSON under "data".
nlohmann::json ToJson(const RecordFileList& list);

}  // namespace vantix::test
