#include "DetailResponse.h"

#include <array>

namespace vantix::bench {
namespace {

constexpr int kShortCapabilities = 900;

constexpr std::array<const char*, 12> kReadCapabilities{
    "support_ptz",
    "support_talk",
    "ptz_left_right",
    "ptz_top_bottom",
    "ptz_preset",
    "support_ecdh_v2",
    "support_replay_download",
    "support_device_video_cover",
    "support_seek_playback",
    "support_seek_v2",
    "support_quickplay_way",
    "support_device_playback_small_speed",
};
/// Number of capabilities that servers send and the library does not read.
constexpr int kOtherCapabilities = 28;

std::string ShortList() {
    std::string list;
    for (int number = 1; number <= kShortCapabilities; ++number) {
        list += number == 1 ? "" : "|";
        list += number % 50 == 0 ? "1-2-3" : std::to_string(number % 2);
    }
    return list;
}

/// The text as the content of a JSON string.
std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '"' ? "\\\"" : std::string(1, c);
    }
    return escaped;
}

std::string Repeated(const std::string& piece, int times) {
    std::string text;
    for (int i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

std::string Camera(const std::string& serial, const std::string& channel) {
    return R"({"cameraId":"cam-0001-)" + channel + R"(","cameraNo":)" + channel + R"(,"deviceSerial":")" + serial +
           R"(","videoLevel":2,"type":1,"capability":")" + Repeated("1-1-0-1-", 24) +
           R"(0","status":1,"permission":127,"isShared":"0",)"
           R"("forceStreamType":0,"streamBiz":1,"streamBizUrl":"biz=1&cam=1&node=relay-node-17.example.test&zone=a","isTrust":"1","videoQualityInfos":[)"
           R"({"videoQualityName":"Fluent","videoLevel":0,"streamType":2},)"
           R"({"videoQualityName":"Balanced","videoLevel":1,"streamType":1},)"
           R"({"videoQualityName":"Full HD","videoLevel":2,"streamType":1}]})";
}

/// The members that both a device and its parent have, without braces.
std::string DeviceMembers(const std::string& serial, const std::string& belongSerial) {
    return R"("deviceSerial":")" + serial +
           R"(","deviceIP":"198.51.100.21","devicePort":8000,"cmdPort":9010,"httpPort":80,"streamPort":9020,)"
           R"("localIp":"192.168.1.21","localDevicePort":8000,"localCmdPort":9010,"localHttpPort":80,)"
           R"("localStreamPort":9020,"netType":2,"ppvsAddr":"ppvs.example.test","ppvsPort":8650,)"
           R"("casIp":"203.0.113.10","casPort":6500,"maskIp":255,"upnp":1,"cloudServiceStatus":1,)"
           R"("releaseVersion":"VERSION_17","belongSerial":")" +
           belongSerial +
           R"(","belongNo":3,"belongAdded":1,"isEncrypt":1,"encryptPwd":"5d41402abc4b2a76b9719d911017c592",)"
           R"("belongState":1,"vtmIp":"203.0.113.21","vtmPort":8554,"ttsIp":"203.0.113.40","ttsPort":8664,)"
           R"("deviceStatus":1,"supportChannelNums":1,"gbJtTtsIP":"203.0.113.41","gbJtTtsPort":8665,)"
           R"("publicKey":")" +
           Repeated("3059301306072a8648ce3d02", 8) + R"(","version":2,"isOwner":1)";
}

std::string Device(const std::string& serial) {
    return "{" + DeviceMembers(serial, "R20000016") +
           R"(,"deviceName":"Gate camera","deviceType":"CAM-4MP-W","category":"IPC","vtmBackups":[)"
           R"({"ip":"203.0.113.51","port":8554},{"ip":"203.0.113.52","port":8556}],"supportExtShort":")" +
           ShortList() + R"(","qxDeviceSupportExt":{"ShareVerify":"1","CloudPlayback":"1"},"supportExt":")" +
           Escaped(NestedText()) + R"(","belongDevice":{)" + DeviceMembers("R20000016", "") + "}}";
}

}  // namespace

std::string NestedText() {
    std::string text = "{";
    for (const char* name : kReadCapabilities) {
        text.append("\"").append(name).append("\":\"1\",");
    }
    for (int i = 1; i <= kOtherCapabilities; ++i) {
        text.append("\"support_device_feature_").append(std::to_string(i)).append("\":\"1-2-3-4\",");
    }
    text.back() = '}';
    return text;
}

namespace {

/// Texts that stand in the place of serial and channel until a response is made.
constexpr char kSerialHere[] = "<serial>";
constexpr char kChannelHere[] = "<channel>";

void Replace(std::string& text, const std::string& place, const std::string& value) {
    for (size_t at = text.find(place); at != std::string::npos; at = text.find(place, at + value.size())) {
        text.replace(at, place.size(), value);
    }
}

}  // namespace

std::string DetailResponse(const std::string& serial, const std::string& channel) {
    static const std::string pattern = R"({"result":{"code":"200","msg":"ok","data":{"camera":)" +
                                       Camera(kSerialHere, kChannelHere) + R"(,"device":)" + Device(kSerialHere) +
                                       "}}}";
    std::string response = pattern;
    Replace(response, kSerialHere, serial);
    Replace(response, kChannelHere, channel);
    return response;
}

}  // namespace vantix::bench
