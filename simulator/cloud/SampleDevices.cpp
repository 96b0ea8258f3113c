#include "Sample.h"

#include <array>
#include <string_view>

namespace vantix::simulator {
namespace {

/// What differs between the sample devices.
struct Row {
    std::string_view serial;
    std::string_view name;
    std::string_view type;
    std::string_view category;
    int channels;
    std::string_view release;
    int status;  ///< 1 online, 2 offline
    std::string_view parent;
    int parentChannel;
    bool shared;
    bool nestedAsText;
};

constexpr std::array sampleRows = {
    Row{"C10000001", "Gate camera", "CAM-4MP-W", "IPC", 1, "VERSION_17", 1, "", 0, false, true},
    Row{"R20000016", "Office recorder", "REC-16", "XVR", 16, "VERSION_17", 1, "", 0, false, false},
    Row{"B30000003", "Stairs camera", "CAM-2MP", "IPC", 1, "VERSION_17", 1, "R20000016", 3, false, true},
    Row{"B30000004", "Cellar camera", "CAM-2MP", "IPC", 1, "VERSION_17", 1, "F50000005", 2, false, false},
    Row{"V40000004", "Old camera", "CAM-1MP", "IPC", 1, "VERSION_16", 1, "", 0, false, false},
    Row{"F50000005", "Store recorder", "REC-4", "XVR", 4, "VERSION_17", 2, "", 0, false, true},
    Row{"S60000006", "Neighbour's camera", "CAM-4MP-W", "IPC", 1, "VERSION_17", 1, "", 0, true, true},
};

constexpr int shortCapabilities = 900;

/// Capabilities with fixed values, by number from 1; the others follow a pattern.
constexpr std::array<std::pair<int, int>, 10> namedCapabilities = {
    {{149, 2}, {257, 1}, {585, 1}, {836, 1}, {263, 1}, {264, 1}, {265, 1}, {266, 1}, {267, 1}, {289, 1}}};

std::string ShortValue(int number) {
    for (const auto& [named, value] : namedCapabilities) {
        if (named == number) {
            return std::to_string(value);
        }
    }
    if (number % 11 == 0) {
        return "-1";
    }
    if (number % 7 == 0) {
        return "1-2-3";
    }
    return number % 3 == 0 ? "1" : "0";
}

std::string ShortCapabilities() {
    std::string list;
    for (int number = 1; number <= shortCapabilities; ++number) {
        list += number == 1 ? "" : "|";
        list += ShortValue(number);
    }
    return list;
}

Json NamedCapabilities() {
    return {{"support_ptz", "1"},
            {"support_talk", "3"},
            {"ptz_left_right", "1"},
            {"ptz_top_bottom", "1"},
            {"ptz_preset", "1"},
            {"support_ecdh_v2", "1"},
            {"support_replay_download", "1"},
            {"support_device_video_cover", "1"},
            {"support_seek_playback", "1"},
            {"support_seek_v2", "1"},
            {"support_quickplay_way", "2"},
            {"support_device_playback_small_speed", "1"},
            {"support_upgrade", "1"},
            {"support_message", "1"},
            {"support_wifi", "1"},
            {"support_defence", "1"}};
}

void AddAddresses(Json& device, int host) {
    const std::string tail = std::to_string(host);
    device["deviceIP"] = "198.51.100." + tail;
    device["devicePort"] = 8000;
    device["cmdPort"] = 9010;
    device["httpPort"] = 80;
    device["streamPort"] = 9020;
    device["localIp"] = "192.168.1." + tail;
    device["localDevicePort"] = 8000;
    device["localCmdPort"] = 9010;
    device["localHttpPort"] = 80;
    device["localStreamPort"] = 9020;
    device["netType"] = 2;
    device["ppvsAddr"] = "ppvs.example.test";
    device["ppvsPort"] = 8650;
    device["casIp"] = "203.0.113.10";
    device["casPort"] = 6500;
    device["maskIp"] = 255;
    device["upnp"] = 1;
}

void AddParent(Json& device, const Row& row) {
    device["belongSerial"] = row.parent;
    device["belongNo"] = row.parentChannel;
    device["belongAdded"] = row.parent.empty() ? 0 : 1;
    device["isEncrypt"] = row.channels > 1 ? 1 : 0;
    device["encryptPwd"] = row.channels > 1 ? "5d41402abc4b2a76b9719d911017c592" : "";
    device["belongState"] = row.parent.empty() ? 0 : 1;
}

void AddMedia(Json& device, int host) {
    device["vtmIp"] = "203.0.113." + std::to_string(host);
    device["vtmPort"] = 8554;
    device["ttsIp"] = "203.0.113.40";
    device["ttsPort"] = 8664;
}

void AddCapabilities(Json& device, const Row& row) {
    device["deviceStatus"] = row.status;
    device["supportExtShort"] = ShortCapabilities();
    device["supportChannelNums"] = row.channels;
    device["gbJtTtsIP"] = "203.0.113.41";
    device["gbJtTtsPort"] = 8665;
    device["publicKey"] = "device-public-key-" + std::string(row.serial);
    device["version"] = 2;
    device["isOwner"] = row.shared ? 0 : 1;
    device["vtmBackups"] = {{{"ip", "203.0.113.51"}, {"port", 8554}}, {{"ip", "203.0.113.52"}, {"port", 8556}}};
    device["qxDeviceSupportExt"] = {{"ShareVerify", row.shared ? "1" : "0"}, {"CloudPlayback", "1"}};
    device["supportExt"] = NamedCapabilities();
}

Json DevicePart(const Row& row, int host) {
    Json device;
    device["deviceSerial"] = row.serial;
    AddAddresses(device, host);
    device["cloudServiceStatus"] = 1;
    device["releaseVersion"] = row.release;
    AddParent(device, row);
    AddMedia(device, host);
    AddCapabilities(device, row);
    return device;
}

Json Camera(const Row& row, int number) {
    const std::string digits = std::to_string(number);
    Json camera;
    camera["cameraId"] = "cam-" + std::string(row.serial) + "-" + digits;
    camera["cameraNo"] = number;
    camera["cameraName"] = row.channels == 1 ? std::string(row.name) : std::string(row.name) + " " + digits;
    camera["deviceSerial"] = row.serial;
    camera["videoLevel"] = 2;
    camera["type"] = row.channels == 1 ? 1 : 2;
    camera["capability"] = "1-1-0-1";
    camera["status"] = row.status == 1 ? 1 : 0;
    camera["permission"] = row.shared ? 3 : 127;
    camera["isShared"] = row.shared ? "1" : "0";
    camera["forceStreamType"] = 0;
    camera["streamBiz"] = 1;
    camera["streamBizUrl"] = "biz=1&cam=" + digits;
    camera["isTrust"] = "1";
    camera["videoQualityInfos"] = {{{"videoQualityName", "Fluent"}, {"videoLevel", 0}, {"streamType", 2}},
                                   {{"videoQualityName", "Balanced"}, {"videoLevel", 1}, {"streamType", 1}},
                                   {{"videoQualityName", "Full HD"}, {"videoLevel", 2}, {"streamType", 1}}};
    return camera;
}

Json P2pPart(const Row& row) {
    const std::string serial(row.serial);
    return {{"serverInfos", {{{"ip", "203.0.113.61"}, {"port", 6200}}, {{"ip", "203.0.113.62"}, {"port", 6201}}}},
            {"defaultKey", "p2p-key-" + serial},
            {"defaultKeyVer", "4"},
            {"capability",
             {{"V3", "1"},
              {"V3Sec", "1"},
              {"DirectPlayback_EndFlag", "1"},
              {"V3Download", "1"},
              {"V3Playback", "1"},
              {"V3Talk", row.shared ? "0" : "1"}}},
            {"secretKey", "kms-key-" + serial},
            {"keyVersion", 5}};
}

Json Recording(const Row& row, int channel, int hour, std::string_view place) {
    const std::string day = "2024-01-02 ";
    const std::string clock{'0', static_cast<char>('0' + hour % 10)};
    return {{"channelNo", channel},
            {"startTime", day + clock + ":00:00"},
            {"endTime", day + clock + ":10:00"},
            {"type", hour % 2 == 0 ? 1 : 2},
            {"size", 1048576 + hour * 4096},
            {"place", place},
            {"fileId", "file-" + std::string(row.serial) + "-" + std::to_string(channel) + "-" + clock}};
}

Json Recordings(const Row& row) {
    Json recordings = Json::array();
    for (int channel = 1; channel <= row.channels; ++channel) {
        for (const int hour : {1, 2, 3}) {
            recordings.push_back(Recording(row, channel, hour, "device"));
        }
        recordings.push_back(Recording(row, channel, 4, "cloud"));
        recordings.push_back(Recording(row, channel, 5, "cloud"));
        recordings.push_back(Recording(row, channel, 6, "platform"));
    }
    return recordings;
}

Json NestedAsText(const Row& row) {
    if (row.nestedAsText) {
        return {"qxDeviceSupportExt", "supportExt", "belongDevice"};
    }
    return Json::array();
}

Json Device(const Row& row, int host) {
    Json device;
    device["deviceSerial"] = row.serial;
    device["deviceName"] = row.name;
    device["deviceType"] = row.type;
    device["category"] = row.category;
    device["deviceVersion"] = "V5.7.1 build 240102";
    device["addTime"] = "2023-06-01 12:00:00";
    device["defence"] = 1;
    device["alarmSoundMode"] = 2;
    device["offlineNotify"] = 1;
    device["shared"] = row.shared;
    device["nestedAsText"] = NestedAsText(row);
    device["device"] = DevicePart(row, host);
    device["cameras"] = Json::array();
    for (int number = 1; number <= row.channels; ++number) {
        device["cameras"].push_back(Camera(row, number));
    }
    device["p2p"] = P2pPart(row);
    device["recordings"] = Recordings(row);
    return device;
}

}  // namespace

Json SampleDevices() {
    Json devices = Json::array();
    int host = 20;
    for (const Row& row : sampleRows) {
        devices.push_back(Device(row, ++host));
    }
    return devices;
}

Json SampleCamera(const std::string& serial) {
    Row row = sampleRows.front();
    row.serial = serial;
    row.name = "Camera";
    return Device(row, 90);
}

}  // namespace vantix::simulator
