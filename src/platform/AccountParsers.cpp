// Reading the answers about the account.

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

struct MessageMember {
    const char* key;
    std::string TransparentMsgDetail::*field;
};
constexpr MessageMember kMessageMembers[] = {
    {"msgSeq", &TransparentMsgDetail::msgSeq}, {"msgType", &TransparentMsgDetail::msgType},
    {"data", &TransparentMsgDetail::data},     {"destination", &TransparentMsgDetail::destination},
    {"sn", &TransparentMsgDetail::sn},         {"createDate", &TransparentMsgDetail::createDate},
};

/// The configuration answer's own code rule.
int ResultCode(const JsonCppView& root) {
    int32_t code = 0;
    return root.Member("result").Member("code").ReadIntOrText(code) ? json::SuccessAsZero(code) : json::kBadFormat;
}

/// Reads the four members of the bandwidth answer; false when one is missing.
bool ReadBWCheck(const JsonCppView& data, BWCheckInfo& info) {
    return data.Member("id").Read(info.id) && data.Member("url").Read(info.url) &&
           data.Member("publicKey").Read(info.publicKey) && data.Member("version").Read(info.version);
}

}  // namespace

int ParseConfigInfoFromPlatform(const std::string& body, ConfigInfo& config) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, ResultCode, [&](const JsonCppView& root) -> int {
        const JsonCppView inResult = root.Member("result").Member("data");
        const JsonCppView data = inResult.IsObject() ? inResult : root.Member("data");
        if (!data.IsObject()) {
            return json::Malformed(site, body);
        }
        json::ReadFields(data, kConfigFields, config);
        return VANTIX_NOERROR;
    });
}

int ParseUsernameFromPlatform(const std::string& body, std::string& userName) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        if (!root.Member("userName").Read(userName)) {
            VANTIX_LOG_ERROR(site, level::kError,
                             "platform response invalid, [userName] not exist or not string, szInfo = %s",
                             body.c_str());
            return VANTIX_RESP_BAD_FORMAT;
        }
        return VANTIX_NOERROR;
    });
}

int ParseUserIdFromPlatform(const std::string& body, std::string& userId) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "ParseUserId = %s", body.c_str());
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        if (!root.Member("result").Member("data").Member("userId").Read(userId)) {
            VANTIX_LOG_ERROR(site, level::kError,
                             "platform response invalid, [userId] not exist or not string, szInfo = %s", body.c_str());
            return VANTIX_RESP_BAD_FORMAT;
        }
        return VANTIX_NOERROR;
    });
}

int ParsePushSessionIdFromPlatform(const std::string& body, std::string& pushSessionId) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "ParsePushSessionId = %s", body.c_str());
    return json::ReadAnswer(site, body, json::StrictMetaCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        if (!root.Member("pushSessionId").Read(pushSessionId)) {
            // The text names another key than the one that is read, and is kept so.
            VANTIX_LOG_ERROR(site, level::kError,
                             "platform response invalid, [userId] not exist or not string, szInfo = %s", body.c_str());
            return VANTIX_RESP_BAD_FORMAT;
        }
        return VANTIX_NOERROR;
    });
}

int ParseBWCheckInfoFromPlatform(const std::string& body, BWCheckInfo& info) {
    const CallSite site = VANTIX_HERE;
    VANTIX_LOG_INFO(site, level::kInfo, "BWCheckInfo = %s", body.c_str());
    return json::ReadAnswer(site, body, json::StrictMetaCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        BWCheckInfo fresh;
        if (!ReadBWCheck(root.Member("data"), fresh)) {
            VANTIX_LOG_ERROR(site, level::kError,
                             "platform response invalid, [publicKey] not exist or not string, szInfo = %s",
                             body.c_str());
            return VANTIX_RESP_BAD_FORMAT;
        }
        info = std::move(fresh);
        return VANTIX_NOERROR;
    });
}

int ParseTransparentMsgDetailFromPlatform(const std::string& body, TransparentMsgDetail& detail) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView result = root.Member("result");
        if (!result.IsObject()) {
            VANTIX_LOG_INFO(site, level::kInfo, "platform response bad, [result] is not object, Resp:%s", body.c_str());
            return VANTIX_RESP_BAD_FORMAT;
        }
        const JsonCppView message = result.Member("msgData");
        if (!message.IsObject()) {
            VANTIX_LOG_INFO(site, level::kInfo, "platform response bad, [msgData] is not object, Resp:%s",
                            body.c_str());
            return VANTIX_RESP_BAD_FORMAT;
        }
        for (const MessageMember& member : kMessageMembers) {
            message.Member(member.key).ReadText(detail.*member.field);
        }
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
