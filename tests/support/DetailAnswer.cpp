#include "support/DetailAnswer.h"

namespace vantix::test {

nlohmann::json DetailAnswer(const std::string& serial, int channel) {
    nlohmann::json answer;
    answer["result"]["code"] = "200";
    nlohmann::json& data = answer["result"]["data"];
    data["camera"] = {{"deviceSerial", serial}, {"cameraNo", channel}, {"status", 1}};
    data["device"] = {{"deviceSerial", serial}, {"releaseVersion", "VERSION_17"}, {"deviceStatus", 1}};
    return answer;
}

nlohmann::json MarkedDetailAnswer(const std::string& serial, int channel, const std::string& mark) {
    nlohmann::json answer = DetailAnswer(serial, channel);
    nlohmann::json& data = answer["result"]["data"];
    const std::string text = "a text longer than any short string, " + mark;
    for (const char* key : {"cameraId", "capability", "streamBizUrl"}) {
        data["camera"][key] = text;
    }
    data["camera"]["videoQualityInfos"] = {{{"videoQualityName", text}, {"videoLevel", 1}, {"streamType", 1}}};
    for (const char* key : {"deviceIP", "localIp", "ppvsAddr", "casIp", "encryptPwd", "vtmIp", "ttsIp",
                            "supportExtShort", "gbJtTtsIP", "publicKey"}) {
        data["device"][key] = text;
    }
    data["device"]["vtmBackups"] = {{{"ip", text}, {"port", 1}}};
    data["device"]["supportExt"] = {{"support_ecdh_v2", text}};
    data["device"]["belongSerial"] = serial + "-parent";
    data["device"]["belongDevice"] = data["device"];
    data["device"]["belongDevice"].erase("belongDevice");
    data["device"]["belongDevice"]["deviceSerial"] = serial + "-parent";
    data["device"]["belongDevice"]["belongSerial"] = "";
    return answer;
}

std::string CodeAnswer(const std::string& code) { return R"({"resultCode":")" + code + R"("})"; }

}  // namespace vantix::test
