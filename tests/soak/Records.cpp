#include "soak/Records.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>

#include "soak/Generations.h"
#include "support/OutputJson.h"

namespace vantix::test {
namespace {

bool AreAll(const std::string& mark, std::initializer_list<std::string> texts) {
    return std::all_of(texts.begin(), texts.end(), [&](const std::string& text) { return text == mark; });
}
bool AreAll(int number, std::initializer_list<int> numbers) {
    return std::all_of(numbers.begin(), numbers.end(), [&](int one) { return one == number; });
}

/// Relays of one generation; the consumer servers send none.
bool AreOf(const std::string& mark, int number, const std::vector<VtmAddr>& relays) {
    return relays.empty() || (relays.size() == 1 && relays[0].strVtmAddr == mark && relays[0].iVtmPort == number);
}

bool IsChannel(const Place& place, const DevChannelInfo& c) {
    const bool isNumber = c.cameraNo == place.ch || (*place.parent != '\0' && c.cameraNo == place.parentChannel);
    const std::string id = std::string("cam-") + place.serial + "-" + std::to_string(place.ch);
    return isNumber && c.deviceSerial == place.serial && c.cameraId == id &&
           c.streamBizUrl == Mark(c.forceStreamType, place.serial) && c.videoQualityInfos.size() == 3;
}

/// The device or its parent, as a whole.
bool IsDevice(const Place& place, const DevDetailInfo& d) {
    const bool isNamed = d.deviceSerial == place.serial || (*place.parent != '\0' && d.deviceSerial == place.parent);
    const std::string mark = Mark(d.version, d.deviceSerial);
    return isNamed && AreAll(mark, {d.publicKey, d.deviceIP, d.localIp, d.casIp, d.vtmIp}) &&
           AreAll(d.version, {d.cmdPort, d.casPort}) && (d.devicePort == d.version || d.devicePort == 0) &&
           AreOf(mark, d.version, d.vtmBackups);
}

bool AreServers(const ServerInfo& s) {
    const int number = s.stun1Port;
    const std::string mark = Mark(number, kServersOwner);
    return AreAll(mark, {s.stun1Addr, s.stun2Addr, s.ttsAddr, s.vtmAddr}) &&
           AreAll(number, {s.stun2Port, s.vtmPort, s.pushDasPort}) && AreOf(mark, number, s.vtmBackups);
}

bool IsUser(const P2PUserInfo& u) {
    return u.data == Mark(u.version, kP2PUserOwner) && u.saltIndex == u.version && u.userId == "u-10001";
}
bool IsNoUser(const P2PUserInfo& u) { return AreAll("", {u.data, u.userId}) && AreAll(0, {u.version, u.saltIndex}); }

bool IsP2PDevice(const Place& place, const P2PDevInfo& p) {
    const std::string mark = Mark(p.defaultKeyVer, place.serial);
    return p.deviceSerial == place.serial && AreAll(mark, {p.defaultKey, p.strV3Talk}) && p.serverInfos.size() == 1 &&
           p.serverInfos[0].ip == mark && p.serverInfos[0].port == p.defaultKeyVer;
}

bool AreServersOf(const P2PDevInfo& p, const std::vector<P2PServerAddr>& servers) {
    return servers.size() == 1 && p.serverInfos.size() == 1 && servers[0].ip == p.serverInfos[0].ip &&
           servers[0].port == p.serverInfos[0].port;
}

bool IsConfiguration(const ConfigInfo& c) {
    return AreAll(Mark(c.dataCollect, kConfigOwner), {c.pushAddr, c.pushAuthAddr});
}
bool IsBandwidth(const BWCheckInfo& b) { return AreAll(Mark(b.version, kBandwidthOwner), {b.id, b.url, b.publicKey}); }
bool IsMessage(const TransparentMsgDetail& m) {
    return m.msgSeq == "M0000001" && !m.data.empty() && m.data.ends_with(kMessageOwner) &&
           AreAll(m.data, {m.msgType, m.sn});
}

/// All channels of a device were named at the same time.
bool IsList(const DeviceList& list) {
    std::map<std::string, std::string> marks;
    for (const DeviceListItem& item : list.devices) {
        if (item.deviceSerial == "V40000004") {
            continue;  // the one device whose data stays as it is
        }
        const std::string& mark = marks.emplace(item.deviceSerial, item.deviceName).first->second;
        if (!mark.ends_with("." + item.deviceSerial) || !AreAll(mark, {item.name, item.deviceName})) {
            return false;
        }
    }
    return list.total > 0 && !marks.empty();
}

/// A recording's name, times and size come from its hour.
bool IsFile(const Place& place, const RecordFile& file) {
    const std::string name = std::string("file-") + place.serial + "-" + std::to_string(place.ch) + "-0";
    if (file.fileId.size() != name.size() + 1 || !file.fileId.starts_with(name)) {
        return false;
    }
    const int hour = file.fileId.back() - '0';
    const std::string begin = std::string("2024-01-02 0").append(1, file.fileId.back());
    return file.startTime == begin + ":00:00" && file.endTime == begin + ":10:00" &&
           file.size == 1048576 + hour * 4096 && file.type == (hour % 2 == 0 ? 1 : 2);
}
bool AreFiles(const Place& place, const RecordFileList& list) {
    const Json all = Json::parse(list.strDeviceRecordList, nullptr, false);
    return all.is_array() && all.size() == list.files.size() &&
           std::all_of(list.files.begin(), list.files.end(),
                       [&](const RecordFile& file) { return IsFile(place, file); });
}

/// JSON in which all marks of an owner are of one generation.
bool IsResponse(const std::string& text) {
    if (Json::parse(text, nullptr, false).is_discarded()) {
        return false;
    }
    std::map<std::string, std::string> numbers;
    for (size_t at = text.find("\"g"); at != std::string::npos; at = text.find("\"g", at + 1)) {
        const size_t dot = text.find_first_not_of("0123456789", at + 2);
        const size_t end = text.find('"', at + 1);
        if (dot == at + 2 || dot >= end || text[dot] != '.') {
            continue;
        }
        const std::string number = text.substr(at + 2, dot - at - 2);
        if (numbers.emplace(text.substr(dot, end - dot), number).first->second != number) {
            return false;
        }
    }
    return true;
}

/// Issued by the cloud: the prefix and digits.
bool IsIssued(const std::string& text, const std::string& prefix) {
    return text.size() > prefix.size() && text.starts_with(prefix) &&
           std::all_of(text.begin() + static_cast<std::ptrdiff_t>(prefix.size()), text.end(),
                       [](unsigned char c) { return std::isdigit(c) != 0; });
}

using Check = bool (*)(const Place& place, const Outputs& o, bool withFaults);

bool HasDetail(const Place& place, const Outputs& o, bool /*withFaults*/) {
    return IsChannel(place, o.channel) && IsDevice(place, o.detail);
}
bool HasDevice(const Place& place, const Outputs& o, bool /*withFaults*/) { return IsDevice(place, o.detail); }
bool HasServers(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) { return AreServers(o.servers); }
bool HasUser(const Place& /*place*/, const Outputs& o, bool withFaults) {
    return IsUser(o.user) || (withFaults && IsNoUser(o.user));
}
bool HasP2PDevice(const Place& place, const Outputs& o, bool /*withFaults*/) { return IsP2PDevice(place, o.p2pDevice); }
bool HasP2PServers(const Place& place, const Outputs& o, bool /*withFaults*/) {
    return IsP2PDevice(place, o.p2pDevice) && AreServersOf(o.p2pDevice, o.p2pServers);
}
bool HasList(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) { return IsList(o.devices); }
bool HasFiles(const Place& place, const Outputs& o, bool /*withFaults*/) { return AreFiles(place, o.files); }
bool HasConfiguration(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) {
    return IsConfiguration(o.config);
}
bool HasBandwidth(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) { return IsBandwidth(o.bandwidth); }
bool HasMessage(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) { return IsMessage(o.message); }
bool HasResponse(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) { return IsResponse(o.text); }
/// A response that is handed out unread.
bool HasUnread(const Place& /*place*/, const Outputs& o, bool withFaults) { return withFaults || IsResponse(o.text); }
bool HasPrefetched(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) {
    return IsResponse(o.buffer.data());
}
template <const char* const& prefix>
bool HasIssued(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) {
    return IsIssued(o.text, prefix);
}
/// A response without a ticket is a success that copies nothing.
template <const char* const& prefix>
bool HasTicket(const Place& /*place*/, const Outputs& o, bool withFaults) {
    return IsIssued(o.text, prefix) || (withFaults && o.text.empty());
}
template <const char* const& text>
bool HasText(const Place& /*place*/, const Outputs& o, bool /*withFaults*/) {
    return o.text == text;
}

constexpr const char* kMediaTicket = "tk.media.";
constexpr const char* kCloudTicket = "tk.cloud.";
constexpr const char* kRelayTicket = "tk.relay.";
constexpr const char* kStreamToken = "st.5d1f3a0c.";
constexpr const char* kNewToken = "at.fresh.7c2e90b4.";
constexpr const char* kNewSession = "se.fresh.4a7d18c9.";
constexpr const char* kPushSession = "push.";
constexpr const char* kUserName = "sample-user";
constexpr const char* kUserId = "u-10001";

struct RecordRow {
    int slot;
    Check check;
};
constexpr RecordRow kRecords[] = {
    {1, HasTicket<kMediaTicket>},
    {2, HasTicket<kCloudTicket>},
    {3, HasTicket<kRelayTicket>},
    {4, HasDetail},
    {5, HasDetail},
    {6, HasDetail},
    {8, HasDetail},
    {9, HasServers},
    {10, HasResponse},
    {11, HasServers},
    {12, HasResponse},
    {13, HasResponse},
    {14, HasResponse},
    {15, HasList},
    {16, HasList},
    {17, HasList},
    {18, HasResponse},
    {19, HasResponse},
    {20, HasText<kUserName>},
    {21, HasConfiguration},
    {22, HasMessage},
    {23, HasUser},
    {24, HasUser},
    {25, HasUser},
    {26, HasP2PDevice},
    {27, HasP2PServers},
    {28, HasP2PDevice},
    {29, HasP2PDevice},
    {32, HasResponse},
    {34, HasUnread},
    {36, HasIssued<kNewToken>},
    {37, HasIssued<kStreamToken>},
    {38, HasPrefetched},
    {40, HasUnread},
    {41, HasFiles},
    {42, HasFiles},
    {43, HasResponse},
    {44, HasResponse},
    {45, HasResponse},
    {46, HasResponse},
    {47, HasFiles},
    {48, HasResponse},
    {55, HasDevice},
    {56, HasDevice},
    {57, HasText<kUserId>},
    {58, HasIssued<kPushSession>},
    {59, HasBandwidth},
    {68, HasDetail},
    {72, HasIssued<kNewSession>},
};

const RecordRow* RowOf(int slot) {
    const auto* const row = std::find_if(std::begin(kRecords), std::end(kRecords),
                                         [slot](const RecordRow& one) { return one.slot == slot; });
    return row == std::end(kRecords) ? nullptr : row;
}

}  // namespace

bool HandsOutRecord(int slot) { return RowOf(slot) != nullptr; }

std::string WrongInRecord(const ChosenCall& call, const Outputs& outputs, bool withFaults) {
    const RecordRow* const row = RowOf(call.operation->slot);
    if (row == nullptr || row->check(*call.place, outputs, withFaults)) {
        return {};
    }
    return std::string(call.operation->name) + " of " + call.place->serial + " channel " +
           std::to_string(call.place->ch) + " handed out " + ToJson(outputs).dump();
}

}  // namespace vantix::test
