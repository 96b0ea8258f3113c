#include "support/DetailResponse.h"

namespace vantix::test {

nlohmann::json DetailResponse(const std::string& serial, int channel) {
    nlohmann::json response;
    response["result"]["code"] = "200";
    nlohmann::json& data = response["result"]["data"];
    data["camera"] = {{"deviceSerial", serial}, {"cameraNo", channel}, {"status", 1}};
    data["device"] = {{"deviceSerial", serial}, {"releaseVersion", "VERSION_17"}, {"deviceStatus", 1}};
    return response;
}

nlohmann::json MarkedDetailResponse(const std::string& serial, int channel, const std::string& mark) {
    nlohmann::json response = DetailResponse(serial, channel);
    nlohmann::json& data = response["result"]["data"];
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
    return response;
}

std::string CodeResponse(const std::string& code) { return R"({"resultCode":")" + code + R"("})"; }

}  // namespace vantix::test
