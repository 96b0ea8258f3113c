#pragma once

/// @file
/// What operations fill, as JSON, and the picture that they upload.

#include <string>

#include "RecordJson.h"
#include "vantix/records/BWCheckInfo.h"
#include "vantix/records/ConfigInfo.h"
#include "vantix/records/DeviceList.h"
#include "vantix/records/P2PDevInfo.h"
#include "vantix/records/P2PUserInfo.h"
#include "vantix/records/RecordFileList.h"
#include "vantix/records/ServerInfo.h"
#include "vantix/records/TransparentMsgDetail.h"

namespace vantix::test {

/// A relay server as the interface hands it out.
struct RelayText {
    std::string json;
};
/// An address to upload to as the interface hands it out.
struct UploadText {
    std::string json;
};

Json OutputJson(const std::string& text);
Json OutputJson(const RelayText& relay);
Json OutputJson(const UploadText& upload);
Json OutputJson(const Detail& detail);
Json OutputJson(const ServerInfo& info);
Json OutputJson(const P2PUserInfo& info);
Json OutputJson(const P2PDevInfo& info);
Json OutputJson(const DeviceList& list);
Json OutputJson(const ConfigInfo& config);
Json OutputJson(const TransparentMsgDetail& detail);
Json OutputJson(const BWCheckInfo& info);
Json OutputJson(const RecordFileList& list);

/// Where the picture goes to; no upload that was asked for has this name.
inline constexpr char kUploadPath[] = "/upload/unknown";

}  // namespace vantix::test
