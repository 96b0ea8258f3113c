#include "../cloud/Endpoint.h"

#include <utility>

namespace vantix::simulator {
namespace {

/// A member of a group and the member of the stored "device" part with its value.
struct GroupMember {
    const char* name;
    const char* source;
};

/// A group of the response, keyed by serial. It is sent when the request's filter is empty or names it, or when the
/// group has no filter name.
struct Group {
    std::string_view filter;
    const char* name;
    std::array<GroupMember, 11> members;
};

constexpr std::array groups = {
    Group{"CONNECTION",
          "connectionInfos",
          {{{"netIp", "deviceIP"},
            {"netCmdPort", "cmdPort"},
            {"netHttpPort", "httpPort"},
            {"localIp", "localIp"},
            {"localCmdPort", "localCmdPort"},
            {"localHttpPort", "localHttpPort"},
            {"localStreamPort", "localStreamPort"},
            {"netType", "netType"},
            {"upnp", "upnp"},
            {"casIp", "casIp"},
            {"casPort", "casPort"}}}},
    Group{"STATUS", "statusInfos", {{{"isEncrypt", "isEncrypt"}, {"encryptPwd", "encryptPwd"}}}},
    Group{"HIDDNS", "hiddnsInfos", {{{"domain", "deviceIP"}, {"cmdPort", "cmdPort"}, {"httpPort", "httpPort"}}}},
    Group{"", "cloudInfos", {{{"status", "cloudServiceStatus"}}}},
};

/// Whether the comma-separated list names the word.
bool Names(std::string_view list, std::string_view word) {
    while (!list.empty()) {
        const auto entry = list.substr(0, list.find(','));
        if (entry == word) {
            return true;
        }
        list.remove_prefix(std::min(entry.size() + 1, list.size()));
    }
    return false;
}

Json GroupEntry(const Group& group, const Json& part) {
    Json entry = Json::object();
    for (const GroupMember& member : group.members) {
        if (member.name != nullptr && !Member(part, member.source).is_null()) {
            entry[member.name] = Member(part, member.source);
        }
    }
    return entry;
}

Json KeyEntry(const Json& p2p) {
    return {{"secretKey", Member(p2p, "secretKey")}, {"version", Member(p2p, "keyVersion")}};
}

Json Camera(const Json& camera, const Json& part) {
    Json entry;
    entry["channelNo"] = Member(camera, "cameraNo");
    entry["cameraName"] = Member(camera, "cameraName");
    for (const char* name : {"cameraId", "deviceSerial", "videoLevel", "permission", "streamBizUrl"}) {
        entry[name] = Member(camera, name);
    }
    entry["isShared"] = NumberOf(camera, "isShared");
    entry["vtmInfo"] = {{"forceStreamType", Member(camera, "forceStreamType")},
                        {"externalIp", Member(part, "vtmIp")},
                        {"port", Member(part, "vtmPort")},
                        {"internalIp", "10.0.0.1"}};
    entry["videoQualityInfos"] = Member(camera, "videoQualityInfos");
    return entry;
}

/// Capabilities by name and by number in one JSON text, as the consumer servers send them.
std::string Capabilities(const Json& part) {
    Json all = Member(part, "supportExt").is_object() ? Member(part, "supportExt") : Json::object();
    std::string_view list = Member(part, "supportExtShort").is_string()
                                ? std::string_view(Member(part, "supportExtShort").get_ref<const std::string&>())
                                : std::string_view();
    for (int number = 1; !list.empty(); ++number) {
        const auto value = list.substr(0, list.find('|'));
        if (value != "0") {
            all.push_back({std::to_string(number), std::string(value)});
        }
        list.remove_prefix(std::min(value.size() + 1, list.size()));
    }
    return Dump(all);
}

/// The six P2P capabilities under the numbers of the consumer servers.
std::string NumberedP2p(const Json& p2p) {
    const Json& named = Member(p2p, "capability");
    Json numbered = Json::object();
    for (const auto& [name, number] : {std::pair{"V3", "263"},
                                       {"V3Sec", "264"},
                                       {"DirectPlayback_EndFlag", "267"},
                                       {"V3Download", "289"},
                                       {"V3Playback", "265"},
                                       {"V3Talk", "266"}}) {
        if (!Member(named, name).is_null()) {
            numbered[number] = Member(named, name);
        }
    }
    return Dump(numbered);
}

Json DeviceEntry(const Json& device, const Json& part) {
    return {{"deviceSerial", Member(device, "deviceSerial")},
            {"deviceName", Member(device, "deviceName")},
            {"deviceType", Member(device, "deviceType")},
            {"status", Member(part, "deviceStatus")},
            {"supportExt", Capabilities(part)},
            {"channelNumber", Member(part, "supportChannelNums")},
            {"isOwner", Member(part, "isOwner")},
            {"qxDeviceCapability", NumberedP2p(Member(device, "p2p"))},
            {"kmsInfos", KeyEntry(Member(device, "p2p"))}};
}

void AddGroups(const std::string& filter, const std::string& serial, const Json& device, Json& response) {
    const Json& part = Member(device, "device");
    const auto isRequested = [&filter](std::string_view name) {
        return filter.empty() || name.empty() || Names(filter, name);
    };
    for (const Group& group : groups) {
        if (isRequested(group.filter)) {
            response[group.name][serial] = GroupEntry(group, part);
        }
    }
    if (isRequested("WIFI")) {
        response["wifiInfos"][serial] = {{"mask", TextOf(part, "maskIp")}, {"netType", "wire"}};
    }
    if (isRequested("TTS")) {
        response["ttsInfos"][serial] = {
            {"externalIp", Member(part, "ttsIp")},
            {"port", Member(part, "ttsPort")},
            {"publicKey", {{"key", Member(part, "publicKey")}, {"version", Member(part, "version")}}}};
    }
    if (isRequested("KMS")) {
        response["kmsInfos"][serial] = KeyEntry(Member(device, "p2p"));
    }
    if (isRequested("P2P")) {
        response["p2pInfos"] = Member(Member(device, "p2p"), "serverInfos");
    }
}

Outcome PageList(Call& call) {
    const Json& device = *call.Device();
    const Json& part = Member(device, "device");
    Outcome outcome;
    Json& response = outcome.payload;
    response["page"] = {{"offset", 0}, {"limit", 1}, {"totalResults", 1}, {"hasNext", false}};
    response["deviceInfos"] = Json::array({DeviceEntry(device, part)});
    response["cameraInfos"] = Json::array();
    for (const Json& camera : Member(device, "cameras")) {
        response["cameraInfos"].push_back(Camera(camera, part));
    }
    AddGroups(call.parameters.Text("filter"), call.parameters.Text("deviceSerial"), device, response);
    if (const Json& changes = Member(device, "pageList"); changes.is_object()) {
        response.merge_patch(changes);
    }
    return outcome;
}

constexpr std::array pageListEndpoints = {
    Endpoint{"/v3/userdevices/v1/devices/pagelist",
             Method::get,
             Envelope::meta,
             Authentication::session,
             {"deviceSerial"},
             PageList},
};

}  // namespace

std::span<const Endpoint> PageListEndpoints() { return pageListEndpoints; }

}  // namespace vantix::simulator
