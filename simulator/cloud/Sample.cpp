#include "Sample.h"

namespace vantix::simulator {
namespace {

Json Servers() {
    return {{"stun1Addr", "stun1.example.test"},
            {"stun1Port", 6002},
            {"stun2Addr", "stun2.example.test"},
            {"stun2Port", 6002},
            {"ttsAddr", "tts.example.test"},
            {"ttsPort", 8664},
            {"vtmAddr", "vtm.example.test"},
            {"vtmPort", 8554},
            {"authAddr", "auth.example.test"},
            {"nodeJsAddr", "node.example.test"},
            {"nodeJsHttpPort", 8080},
            {"logAddr", "log.example.test"},
            {"pushAddr", "push.example.test"},
            {"microCloudMode", false},
            {"pushDasDomain", "das.example.test"},
            {"pushDasPort", 8666},
            {"vtmBackups",
             {{{"addr", "vtm-b1.example.test"}, {"port", 8554}}, {{"addr", "vtm-b2.example.test"}, {"port", 8556}}}}};
}

Json TkEntry(const std::string& serial, int channel) {
    const std::string tail = serial + "-" + std::to_string(channel);
    return {{"deviceTkToken", "tk.device-" + tail},   {"deviceVideoTkToken", "tk.video-" + tail},
            {"previewTkToken", "tk.preview-" + tail}, {"playTackTkToken", "tk.playback-" + tail},
            {"talkTkToken", "tk.talk-" + tail},       {"deviceSerial", serial},
            {"channelNo", std::to_string(channel)}};
}

Json B2cEntry(const std::string& serial, int shared) {
    return {{"token", "b2c." + serial}, {"deviceSerial", serial}, {"channelNo", "1"}, {"isShared", shared}};
}

Json Alarm(int number, const std::string& serial, int channel, int type, bool read) {
    const std::string digits = std::to_string(1000 + number);
    return {{"alarmId", "AL" + digits},
            {"alarmName", type == 10002 ? "Motion at the gate" : "Person in the yard"},
            {"alarmType", type},
            {"alarmTime", "2024-01-02 0" + std::to_string(number) + ":05:00"},
            {"deviceSerial", serial},
            {"channelNo", channel},
            {"isChecked", read ? 1 : 0},
            {"isEncrypt", 0},
            {"picUrl", "https://pictures.example.test/AL" + digits + ".jpg"},
            {"recState", 5}};
}

Json Alarms() {
    return {Alarm(1, "C10000001", 1, 10002, false), Alarm(2, "C10000001", 1, 10000, true),
            Alarm(3, "R20000016", 3, 10002, false), Alarm(4, "R20000016", 7, 10000, false),
            Alarm(5, "S60000006", 1, 10002, false)};
}

Json Messages() {
    return Json::array({{{"msgSeq", "M0000001"},
                         {"msgType", "transparent"},
                         {"data", R"({"door":"open"})"},
                         {"destination", "C10000001"},
                         {"sn", "SN-0001"},
                         {"createDate", "2024-01-02 03:04:05"}}});
}

Json Configuration() {
    return {{"pushAddr", "push.example.test"},
            {"pushAuthAddr", "push-auth.example.test"},
            {"streamType", 2},
            {"dataCollect", 1},
            {"openP2P", 1}};
}

void AddSecrets(Json& account, const std::string& bDomain) {
    account["accessToken"] = "at.sample.5f0c2d7e81b34a96";
    account["sharedAccessToken"] = "at.shared.0b9d61f2c7e84d35";
    account["refreshToken"] = "rt.sample.a1d4e97b20c65f38";
    account["openId"] = "open-7f31c2";
    account["appKey"] = "app-key-4c8e15";
    account["authAddr"] = bDomain;
    account["scope"] = "all";
    account["state"] = "sample-state";
    account["expiresIn"] = 604800;
    account["sessionId"] = "se.sample.e2b85d0f974c13a6";
    account["refreshSessionId"] = "rs.sample.93c7f1d06be8254a";
    account["globalTkToken"] = "tk.global-77";
    account["tkTokens"] = {TkEntry("C10000001", 1), TkEntry("R20000016", 1), TkEntry("R20000016", 2),
                           TkEntry("B30000003", 1)};
    account["b2cTokens"] = {B2cEntry("C10000001", 0), B2cEntry("S60000006", 1)};
}

}  // namespace

Json SampleAccount(const std::string& bDomain) {
    Json account;
    AddSecrets(account, bDomain);
    account["userId"] = "u-10001";
    account["userName"] = "sample-user";
    account["servers"] = Servers();
    account["config"] = Configuration();
    account["p2pUser"] = {{"data", "p2p-user-secret-1b2c3d4e"}, {"version", 2}, {"saltIndex", 7}};
    account["relayServer"] = {{"domain", "relay.example.test"},
                              {"port", 8600},
                              {"publicKey", {{"key", "relay-public-key-0001"}, {"version", 3}}}};
    account["bandwidth"] = {
        {"id", "bwc-0001"}, {"url", "bwc.example.test:9000"}, {"publicKey", "bwc-public-key-0001"}, {"version", 1}};
    account["alarms"] = Alarms();
    account["messages"] = Messages();
    return account;
}

}  // namespace vantix::simulator
