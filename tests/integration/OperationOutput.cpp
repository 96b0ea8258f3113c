#include "OperationOutput.h"

namespace vantix::test {

Json OutputJson(const std::string& text) { return text; }

Json OutputJson(const RelayText& relay) {
    const Json flat = Json::parse(relay.json, nullptr, false);
    if (!flat.is_object()) {
        return relay.json;
    }
    return {{"domain", flat.at("domain")},
            {"port", flat.at("port")},
            {"publicKey", {{"key", flat.at("publicKey")}, {"version", flat.at("version")}}}};
}

Json OutputJson(const UploadText& upload) {
    return {{"data", Json::parse(upload.json, nullptr, false)}, {"files", Json::array()}};
}

Json OutputJson(const Detail& detail) { return ToJson(detail); }

Json OutputJson(const ServerInfo& info) {
    return {{"vtmAddr", info.vtmAddr}, {"vtmPort", info.vtmPort}, {"vtmBackups", info.vtmBackups.size()}};
}

Json OutputJson(const P2PUserInfo& info) {
    return {{"userId", info.userId}, {"data", info.data}, {"version", info.version}, {"saltIndex", info.saltIndex}};
}

Json OutputJson(const P2PDevInfo& info) {
    return {
        {"defaultKey", info.defaultKey}, {"serverInfos", info.serverInfos.size()}, {"V3Download", info.strV3Download}};
}

Json OutputJson(const DeviceList& list) {
    Json json = {{"total", list.total}, {"devices", Json::array()}};
    for (const DeviceListItem& item : list.devices) {
        json["devices"].push_back({{"deviceSerial", item.deviceSerial},
                                   {"channelNo", item.channelNo},
                                   {"name", item.name},
                                   {"deviceName", item.deviceName},
                                   {"deviceType", item.deviceType},
                                   {"status", item.status},
                                   {"isEncrypt", item.isEncrypt}});
    }
    return json;
}

Json OutputJson(const ConfigInfo& config) {
    return {{"pushAddr", config.pushAddr},
            {"pushAuthAddr", config.pushAuthAddr},
            {"streamType", config.streamType},
            {"dataCollect", config.dataCollect},
            {"openP2P", config.openP2P}};
}

Json OutputJson(const TransparentMsgDetail& detail) {
    return {{"msgSeq", detail.msgSeq},           {"msgType", detail.msgType}, {"data", detail.data},
            {"destination", detail.destination}, {"sn", detail.sn},           {"createDate", detail.createDate}};
}

Json OutputJson(const BWCheckInfo& info) {
    return {{"id", info.id}, {"url", info.url}, {"publicKey", info.publicKey}, {"version", info.version}};
}

Json OutputJson(const RecordFileList& list) {
    Json json = {{"files", Json::array()}, {"data", Json::parse(list.strDeviceRecordList, nullptr, false)}};
    for (const RecordFile& file : list.files) {
        json["files"].push_back({{"startTime", file.startTime},
                                 {"endTime", file.endTime},
                                 {"type", file.type},
                                 {"size", file.size},
                                 {"fileId", file.fileId}});
    }
    return json;
}

}  // namespace vantix::test
