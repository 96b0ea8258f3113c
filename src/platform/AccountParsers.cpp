// Reading the responses about the account.

#include "json/Fields.h"
#include "log/Logger.h"
#include "platform/Account.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;

constexpr json::Field<ConfigInfo> kConfigFields[] = {
    {"pushAddr", &ConfigInfo::pushAddr},     {"pushAuthAddr", &ConfigInfo::pushAuthAddr},
    {"streamType", &ConfigInfo::streamType}, {"dataCollect", &ConfigInfo::dataCollect},
    {"openP2P", &ConfigInfo::openP2P},
};

/// A member that is a text or a number.
struct MessageMember {
    const char* key;
    std::string TransparentMsgDetail::*field;
};
constexpr MessageMember kMessageMembers[] = {
    {"msgSeq", &TransparentMsgDetail::msgSeq}, {"msgType", &TransparentMsgDetail::msgType},
    {"data", &TransparentMsgDetail::data},     {"destination", &TransparentMsgDetail::destination},
    {"sn", &TransparentMsgDetail::sn},         {"createDate", &TransparentMsgDetail::createDate},
};

/// The configuration's own rule.
int ConfigurationCode(const JsonCppView& root) {
    int32_t code = 0;
    return root.Member("result").Member("code").ReadIntOrText(code) ? SuccessAsZero(code) : VANTIX_RESP_BAD_FORMAT;
}

/// Reads the four members of the bandwidth check; false when one is missing.
bool ReadBWCheck(const JsonCppView& data, BWCheckInfo& info) {
    return data.Member("id").Read(info.id) && data.Member("url").Read(info.url) &&
           data.Member("publicKey").Read(info.publicKey) && data.Member("version").Read(info.version);
}

}  // namespace

int ParseConfigInfoFromPlatform(TextView body, ConfigInfo& config) {
    return ReadObjectResponse(VANTIX_HERE, body, ConfigurationCode, ResultOrRootData,
                              [&](const JsonCppView& data) { json::ReadFields<kConfigFields>(data, config); });
}

int ParseUsernameFromPlatform(TextView body, std::string& userName) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) {
        return root.Member("userName").Read(userName)
                   ? 0
                   : LogMissingText(site, body,
                                    "platform response invalid, [userName] not exist or not string, szInfo = %s");
    });
}

int ParseUserIdFromPlatform(TextView body, std::string& userId) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "ParseUserId = %s", body.c_str());
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) {
        return ResultData(root).Member("userId").Read(userId)
                   ? 0
                   : LogMissingText(site, body,
                                    "platform response invalid, [userId] not exist or not string, szInfo = %s");
    });
}

int ParsePushSessionIdFromPlatform(TextView body, std::string& pushSessionId) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "ParsePushSessionId = %s", body.c_str());
    return ReadResponse(site, body, StrictMetaCode, [&](const JsonCppView& root) {
        // The line names another key than the one that is read. The text is fixed.
        return root.Member("pushSessionId").Read(pushSessionId)
                   ? 0
                   : LogMissingText(site, body,
                                    "platform response invalid, [userId] not exist or not string, szInfo = %s");
    });
}

int ParseBWCheckInfoFromPlatform(TextView body, BWCheckInfo& info) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "BWCheckInfo = %s", body.c_str());
    return ReadResponse(site, body, StrictMetaCode, [&](const JsonCppView& root) -> int {
        BWCheckInfo fresh;
        if (!ReadBWCheck(RootData(root), fresh)) {
            return LogMissingText(site, body,
                                  "platform response invalid, [publicKey] not exist or not string, szInfo = %s");
        }
        info = std::move(fresh);
        return VANTIX_NOERROR;
    });
}

int ParseTransparentMsgDetailFromPlatform(TextView body, TransparentMsgDetail& detail) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) -> int {
        const JsonCppView result = root.Member("result");
        if (!result.IsObject()) {
            return LogNoObject(site, body, "platform response bad, [result] is not object, Resp:%s");
        }
        const JsonCppView message = result.Member("msgData");
        if (!message.IsObject()) {
            return LogNoObject(site, body, "platform response bad, [msgData] is not object, Resp:%s");
        }
        for (const MessageMember& member : kMessageMembers) {
            message.Member(member.key).ReadText(detail.*member.field);
        }
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
