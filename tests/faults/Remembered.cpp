#include "faults/Remembered.h"

#include "integration/SampleAccount.h"
#include "support/OutputJson.h"

namespace vantix::test {
namespace {

struct Question {
    const char* operation = "";
    const char* serial = "";
    int ch = 1;
    bool usesToken = false;
};

/// Answered from what the core remembers, when it has it.
constexpr Question kCached[] = {
    {"getDevInfoCache", kCamera},
    {"getDevInfoCache", kRecorder, 2},
    {"getDeviceRecord", kCamera},
    {"getDeviceRecordAlt", kRecorder, 2},
    {"getChannelCacheValue", kRecorder, 2},
    {"IsSupportSeekPlayback", kCamera},
    {"getServerInfoSync", "", 1, true},
    {"getP2PUserInfoByToken", "", 1, true},
    {"getP2PDevInfoCached", kCamera},
    {"getDeviceTkTokensByNumber", kCamera},
    {"getB2CTokensByNumber", kCamera},
    {"getB2CTokensByNumber", kShared},
    {"getAccessToken", ""},
    {"getRefreshToken", ""},
    {"getOpenID", ""},
    {"getScope", ""},
    {"getState", ""},
    {"getTokenExpireTime", ""},
    {"getGlobalTkToken", ""},
    {"getSharedAccessToken", ""},
    {"getSessionId", ""},
    {"getAuthAddr", ""},
    {"getAppId", ""},
    {"getPermissionMode", ""},
    {"getCacheTime", ""},
    {"isOpenP2P", ""},
    {"isVTDUType1", ""},
};

Json Reply(IVantixDataCenter& center, const Question& question, const std::string& token) {
    Arguments arguments = {.serial = question.serial, .ch = question.ch};
    if (question.usesToken) {
        arguments.token = token;
    }
    Outputs outputs = Prefilled();
    const int result = Call(center, question.operation, arguments, outputs).result;
    Json reply = ToJson(outputs);
    reply["result"] = result;
    reply["live"] = outputs.live == nullptr ? "" : *outputs.live;
    return reply;
}

}  // namespace

void FillCaches(IVantixDataCenter& center, const std::string& token) {
    Call(center, "getDevDetailInfoSync", {.serial = kCamera, .force = true});
    Call(center, "getDevDetailInfoSync", {.serial = kRecorder, .ch = 2, .force = true});
    Call(center, "setChannelCacheValue", {.serial = kRecorder, .ch = 2, .number = 5});
    Call(center, "getServerInfoSync", {.token = token});
    Call(center, "getP2PUserInfoByToken", {.token = token});
    Call(center, "getP2PDevInfoCached", {.serial = kCamera, .force = true});
}

Json Remembered(IVantixDataCenter& center, const std::string& token) {
    Json remembered;
    for (const Question& question : kCached) {
        const std::string name = std::string(question.operation).append(" ").append(question.serial);
        remembered[name] = Reply(center, question, token);
    }
    return remembered;
}

}  // namespace vantix::test
