#include "Responses.h"

#include <array>
#include <cstdio>

#include "DetailResponse.h"

namespace vantix::bench {
namespace {

/// `count` elements, each made from its number, as a JSON array.
template <class Make>
std::string Array(int count, Make make) {
    std::string text = "[";
    for (int number = 1; number <= count; ++number) {
        text += number == 1 ? "" : ",";
        text += make(number);
    }
    return text + "]";
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

/// The text as a JSON string.
std::string JsonString(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '"' ? "\\\"" : std::string(1, c);
    }
    return Quoted(escaped);
}

std::string PageCamera(const std::string& serial, int number) {
    const std::string text = std::to_string(number);
    return R"({"cameraId":"5c9f7d2e8b4a46f1a0d3e6b7c8)" + text + R"(","channelNo":)" + text + R"(,"deviceSerial":)" +
           Quoted(serial) + R"(,"cameraName":"Hall )" + text +
           R"(","cameraCover":"https://static.example.test/covers/camera.png","videoLevel":2,"permission":-1,)"
           R"("isShared":0,"streamBizUrl":"biz=1&cam=1&node=relay-node-17.example.test&zone=a","vtmInfo":{)"
           R"("domain":"vtm.example.test","externalIp":"203.0.113.21","internalIp":"10.1.2.3","port":8554,)"
           R"("forceStreamType":0},"videoQualityInfos":[)"
           R"({"videoQualityName":"Fluent","videoLevel":0,"streamType":2},)"
           R"({"videoQualityName":"Full HD","videoLevel":2,"streamType":1}]})";
}

std::string PageGroups(const std::string& serial) {
    const auto group = [&](const char* name, const std::string& members) {
        return ",\"" + std::string(name) + "\":{" + Quoted(serial) + ":" + members + "}";
    };
    return group("connectionInfos",
                 R"({"localIp":"192.168.1.21","netIp":"198.51.100.21","localHttpPort":80,"localCmdPort":9010,)"
                 R"("localStreamPort":9020,"netHttpPort":80,"netCmdPort":9010,"netType":2,"upnp":1,)"
                 R"("casIp":"203.0.113.10","casPort":6500})") +
           group("wifiInfos", R"({"ssid":"office","address":"192.168.1.21","mask":"255.255.255.0","signal":88})") +
           group("cloudInfos", R"({"status":1,"validDays":30})") +
           group("statusInfos", R"({"isEncrypt":1,"encryptPwd":"5d41402abc4b2a76b9719d911017c592","globalStatus":1})") +
           group("ttsInfos", R"({"domain":"tts.example.test","externalIp":"203.0.113.40","port":8664})") +
           group("kmsInfos", R"({"publicKey":"3059301306072a8648ce3d020106082a8648ce3d030107034200","version":2})");
}

std::string Clock(int second) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "2026-01-02 %02d:%02d:%02d", second / 3600, second / 60 % 60, second % 60);
    return text.data();
}

std::string Recording(int number) {
    constexpr int kSeconds = 86;  // a day has 1,000 of them
    return R"({"startTime":")" + Clock((number - 1) * kSeconds) + R"(","endTime":")" + Clock(number * kSeconds - 1) +
           R"(","type":1,"size":)" + std::to_string(1048576 + 4096 * number) + R"(,"fileId":"ch01_)" +
           std::to_string(20260102000000 + number) + R"(","channelType":"D","videoType":2,"locked":0})";
}

std::string ListedDevice(int number) {
    const std::string serial = "C" + std::to_string(10000000 + number);
    return R"({"deviceSerial":")" + serial + R"(","deviceName":"Gate )" + std::to_string(number) +
           R"(","deviceType":"CAM-4MP-W","status":1,"isEncrypt":1,"defence":0,"deviceVersion":"V5.7.3 build 240101",)"
           R"("addTime":"2025-11-03 10:20:30","category":"IPC","cameraInfo":[{"cameraId":"cam-)" +
           serial + R"(","cameraNo":1,"cameraName":"Gate )" + std::to_string(number) +
           R"( entry","status":1,"isShared":"0","picUrl":"https://static.example.test/covers/camera.png"}]})";
}

}  // namespace

std::string ConsumerPage(const std::string& serial) {
    constexpr int kChannels = 64;
    return R"({"meta":{"code":200,"message":"ok","moreInfo":null},"page":{"offset":0,"limit":10,"totalResults":1,)"
           R"("hasNext":false},"deviceInfos":[{"deviceSerial":)" +
           Quoted(serial) + R"(,"name":"Recorder","fullSerial":"NVR-64-)" + serial +
           R"(","deviceType":"NVR-64","channelNumber":64,"isOwner":1,"version":"V4.61.0 build 231201","supportExt":)" +
           JsonString(NestedText()) + R"(}],"cameraInfos":)" +
           Array(kChannels, [&](int number) { return PageCamera(serial, number); }) + PageGroups(serial) + "}";
}

std::string DeviceListResponse() {
    constexpr int kDevices = 200;
    return R"({"result":{"code":"200","msg":"ok","page":{"total":200,"page":0,"size":200},"data":{"deviceInfos":)" +
           Array(kDevices, ListedDevice) + "}}}";
}

std::string ServerInformationResponse() {
    return R"({"resultCode":"0","resultDesc":"ok","serverResp":{"stun1Addr":"stun1.example.test","stun1Port":6002,)"
           R"("stun2Addr":"stun2.example.test","stun2Port":6002,"ttsAddr":"tts.example.test","ttsPort":8664,)"
           R"("vtmAddr":"vtm.example.test","vtmPort":8554,"authAddr":"auth.example.test",)"
           R"("nodeJsAddr":"node.example.test","nodeJsHttpPort":8080,"logAddr":"log.example.test",)"
           R"("pushAddr":"push.example.test","microCloudMode":false,"pushDasDomain":"das.example.test",)"
           R"("pushDasPort":8666,"vtmBackups":[{"addr":"203.0.113.51","port":8554},)"
           R"({"addr":"203.0.113.52","port":8556}]}})";
}

std::string RecordingsResponse() {
    constexpr int kRecordings = 1000;
    return R"({"meta":{"code":200,"message":"ok"},"data":)" + Array(kRecordings, Recording) + "}";
}

}  // namespace vantix::bench
