#include "platform/ResponseChecks.h"

#include "base/NumberText.h"
#include "json/JsonCppReader.h"
#include "log/Logger.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
int CheckResponseInfoFromPlatform(const std::string& body) {
    json::JsonCppDocument document;
    return json::ParseBody(VANTIX_HERE, body, document) ? json::EnvelopeCode(document.Root()) : VANTIX_RESP_NOT_JSON;
}

int CheckResponseAuthInfoFromPlatform(const std::string& body) {
    json::JsonCppDocument document;
    if (!json::ParseBody(VANTIX_HERE, body, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    std::string code;
    if (!document.Root().Member("result").Member("code").Read(code)) {
        return VANTIX_RESP_BAD_FORMAT;
    }
    return json::SuccessAsZero(DecimalPrefix(code));
}

int CheckCloudResponseInfoFromPlatform(const std::string& body) {
    json::JsonCppDocument document;
    if (!json::ParseBody(VANTIX_HERE, body, document)) {
        return VANTIX_RESP_NOT_JSON;
    }
    if (!document.Root().Member("meta").IsObject()) {
        // The text names another key than the one that is tested, and is kept so.
        VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "platform response bad, [result] is not object, Resp:%s",
                        body.c_str());
        return VANTIX_RESP_BAD_FORMAT;
    }
    return json::StrictMetaCode(document.Root());
}

std::function<int(const std::string& body)> Keeping(int (*check)(const std::string& body), std::string& answer) {
    return [check, &answer](const std::string& body) {
        const int code = check(body);
        if (code == 0) {
            answer = body;
        }
        return code;
    };
}

int ConvertVerifyErrorCode(int code) {
    struct Row {
        int platform;
        int token;
    };
    constexpr Row kRows[] = {
        {200, VANTIX_NOERROR},
        {10001, VANTIX_VERIFY_CODE_10001},
        {10002, VANTIX_VERIFY_TOKEN_EXPIRED},
        {20031, VANTIX_VERIFY_CODE_20031},
    };
    int converted = VANTIX_VERIFY_OTHER;
    for (const Row& row : kRows) {
        if (row.platform == code) {
            converted = row.token;
        }
    }
    VANTIX_LOG_INFO(VANTIX_HERE, level::kInfo, "%s: OpenAPIRet:%d, TokenError:%d", "Authentication server response",
                    code, converted);
    return converted;
}

}  // namespace vantix
