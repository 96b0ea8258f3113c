#include "cserver/Tokens.h"

#include "cserver/ConsumerEnvelope.h"
#include "cserver/RequestTable.h"
#include "log/Logger.h"
#include "requests/ClientInfo.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = cserver_requests;

/// The refresh's own check, whose codes are returned bare; only an answer without an envelope is malformed.
int CheckRefresh(const CallSite& site, const std::string& body) {
    json::JsonCppDocument document;
    if (!document.Parse(body)) {
        VANTIX_LOG_ERROR(site, level::kError, "ZQR TEST QX_API_B2C_REFRESH_SESSION platform response bad, szInfo = %s",
                         body.c_str());
        return VANTIX_RESP_NOT_JSON;
    }
    if (!document.Root().Member("meta").IsObject()) {
        VANTIX_LOG_ERROR(site, level::kError, "%s",
                         Filled(requests::kRefreshSession.parserFailure, body, VANTIX_RESP_BAD_FORMAT).c_str());
        return VANTIX_PLATFORM_ERROR_BASE + VANTIX_RESP_BAD_FORMAT;
    }
    const int code = consumer::Code(document.Root());
    if (code != 0) {
        VANTIX_LOG_INFO(site, level::kInfo, "ZQR TEST QX_API_B2C_REFRESH_SESSION Platform Response Error:%d, Resp:%s",
                        code, body.c_str());
    }
    return code;
}

}  // namespace

int GetStreamTokensFromCServer(const ConsumerRoute& route, std::string& answer) {
    return RequestCall(VANTIX_HERE, requests::kStreamTokens, route).With(route.SessionId()).Fetch(answer);
}

int RefreshSessionFromCServer(const ConsumerRoute& route, SessionInfo& session) {
    const CallSite site = VANTIX_HERE;
    const ClientInfo client;
    std::string body;
    int result = RequestCall(site, requests::kRefreshSession, route, &client)
                     .With(session.refreshSessionId, client.featureCode)
                     .Fetch(body);
    if (result == VANTIX_NOERROR) {
        result = CheckRefresh(site, body);
    }
    if (result != VANTIX_NOERROR) {
        return result;
    }
    const int parsed = ParseRefreshSessionnFromCServer(body, session);
    if (parsed != VANTIX_NOERROR) {
        VANTIX_LOG_ERROR(site, level::kError, "%s",
                         Filled(requests::kRefreshSession.parserFailure, body, parsed).c_str());
        return VANTIX_PLATFORM_ERROR_BASE + parsed;
    }
    return VANTIX_NOERROR;
}

int ParseRefreshSessionnFromCServer(const std::string& body, SessionInfo& session) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, consumer::Code, [&](const JsonCppView& root) -> int {
        const JsonCppView info = root.Member("sessionInfo");
        if (!info.Member("sessionId").Read(session.sessionId)) {
            return json::Malformed(site, body, info.IsObject() ? "sessionId" : "sessionInfo");
        }
        info.Member("refreshSessionId").Read(session.refreshSessionId);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
