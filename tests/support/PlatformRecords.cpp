#include "support/PlatformRecords.h"

namespace vantix::test {

using Json = nlohmann::json;

Json ToJson(const ServerInfo& info) {
    Json json = {{"stun1Addr", info.stun1Addr},
                 {"stun1Port", info.stun1Port},
                 {"stun2Addr", info.stun2Addr},
                 {"stun2Port", info.stun2Port},
                 {"ttsAddr", info.ttsAddr},
                 {"ttsPort", info.ttsPort},
                 {"vtmAddr", info.vtmAddr},
                 {"vtmPort", info.vtmPort},
                 {"authAddr", info.authAddr},
                 {"nodeJsAddr", info.nodeJsAddr},
                 {"nodeJsHttpPort", info.nodeJsHttpPort},
                 {"logAddr", info.logAddr},
                 {"pushAddr", info.pushAddr},
                 {"microCloudMode", info.microCloudMode},
                 {"pushDasDomain", info.pushDasDomain},
                 {"pushDasPort", info.pushDasPort},
                 {"vtmBackups", Json::array()},
                 {"iRequestCost", info.iRequestCost}};
    for (const VtmAddr& backup : info.vtmBackups) {
        json["vtmBackups"].push_back({{"addr", backup.strVtmAddr}, {"port", backup.iVtmPort}});
    }
    return json;
}

Json ToJson(const RelayServerInfo& relay) {
    return {{"domain", relay.domain},
            {"port", relay.port},
            {"publicKey", {{"key", relay.publicKey}, {"version", relay.version}}}};
}

Json ToJson(const ConfigInfo& config) {
    return {{"pushAddr", config.pushAddr},
            {"pushAuthAddr", config.pushAuthAddr},
            {"streamType", config.streamType},
            {"dataCollect", config.dataCollect},
            {"openP2P", config.openP2P}};
}

Json ToJson(const P2PUserInfo& info) {
    return {{"userId", info.userId},
            {"data", info.data},
            {"version", info.version},
            {"saltIndex", info.saltIndex},
            {"iRequestCost", info.iRequestCost}};
}

Json ToJson(const P2PDevInfo& info) {
    Json json = {{"serverInfos", Json::array()},
                 {"defaultKey", info.defaultKey},
                 {"defaultKeyVer", info.defaultKeyVer},
                 {"iRequestCost", info.iRequestCost},
                 {"capability",
                  {{"V3", info.strV3},
                   {"V3Sec", info.strV3Sec},
                   {"DirectPlayback_EndFlag", info.strDirectPlayback_EndFlag},
                   {"V3Download", info.strV3Download},
                   {"V3Playback", info.strV3Playback},
                   {"V3Talk", info.strV3Talk}}}};
    for (const P2PServerAddr& server : info.serverInfos) {
        json["serverInfos"].push_back({{"ip", server.ip}, {"port", server.port}});
    }
    return json;
}

Json ToJson(const RefreshTokenInfo& info) {
    return {{"access_token", info.access_token},
            {"openId", info.openId},
            {"refresh_token", info.refresh_token},
            {"expires_in", info.expires_in}};
}

Json ToJson(const BWCheckInfo& info) {
    return {{"id", info.id}, {"url", info.url}, {"publicKey", info.publicKey}, {"version", info.version}};
}

Json ToJson(const TransparentMsgDetail& detail) {
    return {{"msgSeq", detail.msgSeq},           {"msgType", detail.msgType}, {"data", detail.data},
            {"destination", detail.destination}, {"sn", detail.sn},           {"createDate", detail.createDate}};
}

Json ToJson(const DeviceList& list) {
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

Json ToJson(const RecordFileList& list) {
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
