#include "cserver/Tokens.h"

#include "cserver/RequestTable.h"
#include "log/Logger.h"
#include "requests/ClientInfo.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = cserver_requests;

/// The refresh's own check, whose codes are returned bare; only a response without an envelope is malformed.
int CheckAndLog(const CallSite& site, TextView body) {
    json::JsonCppDocument document;
    if (!document.Parse(body)) {
        VANTIX_LOG_ERROR(site, level::kError, "ZQR TEST QX_API_B2C_REFRESH_SESSION platform response bad, szInfo = %s",
                         body.c_str());
        return VANTIX_RESP_NOT_JSON;
    }
    if (!HasMeta(document.Root())) {
        return LogRefusal(site, requests::kRefreshSession.parserFailure, body, VANTIX_RESP_BAD_FORMAT);
    }
    const int code = OptionalMetaCode(document.Root());
    if (code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:%d, Resp:%s",
                        code, body.c_str());
    }
    return code;
}

}  // namespace

int GetStreamTokensFromCServer(const ConsumerRoute& route, std::string& response) {
    return RequestCall<requests::kStreamTokens>(VANTIX_HERE, route, "sessionId"_key = route.SessionId())
        .FetchText(response);
}

int RefreshSessionFromCServer(const ConsumerRoute& route, SessionInfo& session) {
    const CallSite site = VANTIX_HERE;
    const ClientInfo client;
    ResponseBody body;
    int result =
        RequestCall<requests::kRefreshSession>(site, route, client, "refreshSessionId"_key = session.refreshSessionId,
                                               "featureCode"_key = client.featureCode)
            .Fetch(body);
    if (result == VANTIX_NOERROR) {
        result = CheckAndLog(site, body.Text());
    }
    if (result != VANTIX_NOERROR) {
        return result;
    }
    return LogRefusal(site, requests::kRefreshSession.parserFailure, body.Text(),
                      ParseRefreshSessionnFromCServer(body.Text(), session));
}

int ParseRefreshSessionnFromCServer(TextView body, SessionInfo& session) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, OptionalMetaCode, [&](const JsonCppView& root) -> int {
        const JsonCppView info = root.Member("sessionInfo");
        if (!info.Member("sessionId").Read(session.sessionId)) {
            return LogMalformed(site, body, info.IsObject() ? "sessionId" : "sessionInfo");
        }
        info.Member("refreshSessionId").Read(session.refreshSessionId);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
