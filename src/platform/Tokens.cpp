#include "platform/Tokens.h"

#include <cstdio>

#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/Envelope.h"
#include "requests/ResponseReader.h"
#include "vantix/ReturnCodes.h"

namespace vantix {
namespace {

using json::JsonCppView;
namespace requests = platform_requests;

struct RequiredText {
    const char* key;
    std::string RefreshTokenInfo::*field;
};
constexpr RequiredText kRefreshTexts[] = {
    {"access_token", &RefreshTokenInfo::access_token},
    {"openId", &RefreshTokenInfo::openId},
    {"refresh_token", &RefreshTokenInfo::refresh_token},
};

/// Reads the members of the refresh answer: null, or the key of the first that is missing.
const char* ReadRefresh(const JsonCppView& data, RefreshTokenInfo& info) {
    for (const RequiredText& text : kRefreshTexts) {
        if (!data.Member(text.key).Read(info.*text.field)) {
            return text.key;
        }
    }
    int64_t seconds = 0;
    if (!data.Member("expires_in").ReadNumber(seconds)) {
        return "expires_in";
    }
    char text[24] = {};
    std::snprintf(text, sizeof(text), "%lld", static_cast<long long>(seconds));
    info.expires_in = text;
    return nullptr;
}

}  // namespace

int GetTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                          std::string& ticket) {
    return RequestCall(VANTIX_HERE, requests::kTicket, route)
        .With(deviceSerial, channelNo)
        .Run([&](const std::string& body) { return ParseTicketInfoFromPlatform(body, ticket); });
}

int GetCloudTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int localIndex, int spaceId,
                               std::string& ticket) {
    return RequestCall(VANTIX_HERE, requests::kCloudTicket, route)
        .With(spaceId, deviceSerial, localIndex)
        .Run([&](const std::string& body) { return ParseRealyTicketInfoFromPlatform(body, ticket); });
}

int GetRelayTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                               std::string& ticket) {
    return RequestCall(VANTIX_HERE, requests::kRelayTicket, route)
        .With(deviceSerial, channelNo)
        .Run([&](const std::string& body) { return ParseRealyTicketInfoFromPlatform(body, ticket); });
}

int GetAuthInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo, bool playback) {
    return RequestCall(VANTIX_HERE, requests::kPermission, route)
        .With(deviceSerial, cameraNo, playback ? "Replay" : "Real")
        .Run(CheckResponseAuthInfoFromPlatform);
}

int GetStreamTokensFromPlatform(const PlatformRoute& route, int count, std::string& answer) {
    return RequestCall(VANTIX_HERE, requests::kStreamTokens, route)
        .With(count)
        .Run(Keeping(CheckResponseInfoFromPlatform, answer));
}

int GetStreamTokensFromPlatform(const PlatformRoute& route, int count, std::deque<std::string>& tokens) {
    return RequestCall(VANTIX_HERE, requests::kStreamTokensParsed, route).With(count).Run([&](const std::string& body) {
        return ParseTokensFromPlatform(body, tokens);
    });
}

int RefreshTokenFromPlatform(const AuthorizationRoute& route, const RefreshCredentials& credentials,
                             RefreshTokenInfo& info) {
    return RequestCall(VANTIX_HERE, requests::kRefreshToken, route)
        .With(credentials.refreshToken, route.AppKey(), credentials.openId, credentials.scope, credentials.state)
        .Run([&](const std::string& body) { return ParseRefreshTokenFromPlatform(body, info); });
}

int ParseTicketInfoFromPlatform(const std::string& body, std::string& ticket) {
    return json::ReadAnswer(VANTIX_HERE, body, json::MetaCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        root.Member("ticketInfo").Member("ticket").Read(ticket);
        return VANTIX_NOERROR;
    });
}

int ParseRealyTicketInfoFromPlatform(const std::string& body, std::string& ticket) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::MetaCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView data = root.Member("data");
        if (!data.IsObject()) {
            return json::Malformed(site, body);
        }
        data.Member("ticket").Read(ticket);
        return VANTIX_NOERROR;
    });
}

int ParseTokensFromPlatform(const std::string& body, std::deque<std::string>& tokens) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView array = root.Member("tokenArray");
        if (!array.IsArray()) {
            return json::Malformed(site, body);
        }
        std::string token;
        for (size_t i = 0; i < array.Size(); ++i) {
            if (array.Element(i).Read(token)) {
                tokens.push_back(token);
            }
        }
        return VANTIX_NOERROR;
    });
}

int ParseRefreshTokenFromPlatform(const std::string& body, RefreshTokenInfo& info) {
    const CallSite site = VANTIX_HERE;
    return json::ReadAnswer(site, body, json::EnvelopeCode<JsonCppView>, [&](const JsonCppView& root) -> int {
        const JsonCppView inResult = root.Member("result").Member("data");
        const JsonCppView data = inResult.IsObject() ? inResult : root.Member("data");
        if (!data.IsObject()) {
            return json::Malformed(site, body, "data");
        }
        RefreshTokenInfo fresh;
        if (const char* missing = ReadRefresh(data, fresh)) {
            return json::Malformed(site, body, missing);
        }
        info = std::move(fresh);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
