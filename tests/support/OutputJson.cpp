#include "support/OutputJson.h"

#include "support/DetailJson.h"
#include "support/PlatformRecords.h"

namespace vantix::test {
namespace {

constexpr char kBefore[] = "before";

Json ServersJson(const std::vector<P2PServerAddr>& servers) {
    Json json = Json::array();
    for (const P2PServerAddr& server : servers) {
        json.push_back({{"ip", server.ip}, {"port", server.port}});
    }
    return json;
}

Json WithSerial(const P2PDevInfo& device) {
    Json json = ToJson(device);
    json["deviceSerial"] = device.deviceSerial;
    json["isUpdate"] = device.isUpdate;
    return json;
}

Json WithTrust(const DevChannelInfo& channel) {
    Json json = ToJson(channel);
    json["iIsTrust"] = channel.iIsTrust;
    return json;
}

}  // namespace

Outputs Prefilled() {
    Outputs outputs;
    outputs.text = kBefore;
    outputs.channel.cameraId = kBefore;
    outputs.detail.deviceIP = kBefore;
    outputs.detail.iCloseBlong = 1;  // the host's, which no request touches
    outputs.servers.stun1Addr = kBefore;
    outputs.servers.vtmBackups = {{kBefore, 1}};
    outputs.user.userId = kBefore;
    outputs.user.data = kBefore;
    outputs.p2pDevice.defaultKey = kBefore;
    outputs.p2pDevice.serverInfos = {{kBefore, 1}};
    outputs.p2pServers = {{kBefore, 1}};
    outputs.devices.total = 4711;
    outputs.devices.devices = {{.deviceSerial = kBefore, .name = "", .deviceName = "", .deviceType = ""}};
    outputs.files.files = {{.startTime = kBefore, .endTime = "", .fileId = ""}};
    outputs.files.strDeviceRecordList = R"("before")";
    outputs.config.pushAddr = kBefore;
    outputs.message.data = kBefore;
    outputs.bandwidth.id = kBefore;
    return outputs;
}

Json ToJson(const Outputs& outputs) {
    return {{"text", outputs.text},
            {"channel", WithTrust(outputs.channel)},
            {"detail", ToJson(outputs.detail)},
            {"servers", ToJson(outputs.servers)},
            {"user", ToJson(outputs.user)},
            {"p2pDevice", WithSerial(outputs.p2pDevice)},
            {"p2pServers", ServersJson(outputs.p2pServers)},
            {"devices", ToJson(outputs.devices)},
            {"files", ToJson(outputs.files)},
            {"config", ToJson(outputs.config)},
            {"message", ToJson(outputs.message)},
            {"bandwidth", ToJson(outputs.bandwidth)},
            {"buffer", std::string(outputs.buffer.data())}};
}

Json Changes(const Json& before, const Json& after) {
    if (!before.is_object() || !after.is_object()) {
        return after;
    }
    Json changes = Json::object();
    for (const auto& [key, value] : after.items()) {
        if (const Json old = before.value(key, Json()); old != value) {
            changes[key] = Changes(old, value);
        }
    }
    return changes;
}

}  // namespace vantix::test
