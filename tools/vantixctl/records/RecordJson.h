#pragma once

/// @file
/// The data center's records as JSON, every field under its own name.

#include <string>
#include <vector>

#include "Json.h"

namespace vantix {
struct BelongDevInfo;
struct BWCheckInfo;
struct ConfigInfo;
struct DevChannelInfo;
struct DevDetailInfo;
struct DeviceList;
struct DeviceListItem;
struct P2PDevInfo;
struct P2PServerAddr;
struct P2PUserInfo;
struct RecordFile;
struct RecordFileList;
struct ServerInfo;
struct TransparentMsgDetail;
struct VideoQualityInfo;
struct VtmAddr;
}  // namespace vantix

namespace vantix::ctl {

Json ToJson(const BelongDevInfo& record);
Json ToJson(const BWCheckInfo& record);
Json ToJson(const ConfigInfo& record);
Json ToJson(const DevChannelInfo& record);
Json ToJson(const DevDetailInfo& record);
Json ToJson(const DeviceList& record);
Json ToJson(const DeviceListItem& record);
Json ToJson(const P2PDevInfo& record);
Json ToJson(const P2PServerAddr& record);
Json ToJson(const P2PUserInfo& record);
Json ToJson(const RecordFile& record);
Json ToJson(const RecordFileList& record);
Json ToJson(const ServerInfo& record);
Json ToJson(const TransparentMsgDetail& record);
Json ToJson(const VideoQualityInfo& record);
Json ToJson(const VtmAddr& record);

template <class Item>
Json ToJson(const std::vector<Item>& items) {
    Json list = Json::array();
    for (const Item& item : items) {
        list.push_back(ToJson(item));
    }
    return list;
}

}  // namespace vantix::ctl
