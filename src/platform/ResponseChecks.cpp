#include "platform/ResponseChecks.h"

#include "base/NumberText.h"
#include "json/JsonCppReader.h"
#include "log/Logger.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

/// The permission query's own rule.
int PermissionCode(const json::JsonCppView& root) {
    std::string code;
    return root.Member("result").Member("code").Read(code) ? SuccessAsZero(DecimalPrefix(code))
                                                           : VANTIX_RESP_BAD_FORMAT;
}

}  // namespace

int CheckResponseInfoFromPlatform(TextView body) { return CheckResponse(VANTIX_HERE, body, EnvelopeCode); }

int CheckResponseAuthInfoFromPlatform(TextView body) { return CheckResponse(VANTIX_HERE, body, PermissionCode); }

int CheckCloudResponseInfoFromPlatform(TextView body) {
    const CallSite site = VANTIX_HERE;
    json::JsonCppDocument document;
    if (const int code = ParseBody(site, body, document); code != 0) {
        return code;
    }
    if (!HasMeta(document.Root())) {
        // The line names another key than the one that is tested. The text is fixed.
        return LogNoObject(site, body, "platform response bad, [result] is not object, Resp:%s");
    }
    return StrictMetaCode(document.Root());
}

std::optional<int> VerifyErrorOf(TextView body) {
    json::JsonCppDocument document;
    if (!document.Parse(body)) {
        return std::nullopt;
    }
    std::string resultCode;
    const bool isText = document.Root().Member("resultCode").Read(resultCode);
    return isText ? ConvertVerifyErrorCode(DecimalPrefix(resultCode)) : static_cast<int>(VANTIX_NOERROR);
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
