#include "platform/Tokens.h"

#include <cstdio>

#include "platform/RequestTable.h"
#include "platform/ResponseChecks.h"
#include "requests/Envelope.h"
#include "requests/RequestCall.h"
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

/// Reads the members of a refresh: null, or the key of the first that is missing.
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
    return RequestCall<requests::kTicket>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                          "channelNo"_key = channelNo)
        .Run([&](TextView body) { return ParseTicketInfoFromPlatform(body, ticket); });
}

int GetCloudTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int localIndex, int spaceId,
                               std::string& ticket) {
    return RequestCall<requests::kCloudTicket>(VANTIX_HERE, route, "spaceId"_key = spaceId,
                                               "deviceSerial"_key = deviceSerial, "localIndex"_key = localIndex)
        .Run([&](TextView body) { return ParseRealyTicketInfoFromPlatform(body, ticket); });
}

int GetRelayTicketInfoBySerial(const PlatformRoute& route, const std::string& deviceSerial, int channelNo,
                               std::string& ticket) {
    return RequestCall<requests::kRelayTicket>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                               "channelNo"_key = channelNo)
        .Run([&](TextView body) { return ParseRealyTicketInfoFromPlatform(body, ticket); });
}

int GetAuthInfoFromPlatform(const PlatformRoute& route, const std::string& deviceSerial, int cameraNo, bool playback) {
    return RequestCall<requests::kPermission>(VANTIX_HERE, route, "deviceSerial"_key = deviceSerial,
                                              "cameraNo"_key = cameraNo,
                                              "permission"_key = playback ? "Replay" : "Real")
        .Run(CheckResponseAuthInfoFromPlatform);
}

int GetStreamTokensFromPlatform(const PlatformRoute& route, int count, std::string& response) {
    return RequestCall<requests::kStreamTokens>(VANTIX_HERE, route, "count"_key = count)
        .Run(Keeping(CheckResponseInfoFromPlatform, response));
}

int GetStreamTokensFromPlatform(const PlatformRoute& route, int count, std::deque<std::string>& tokens) {
    return RequestCall<requests::kStreamTokensParsed>(VANTIX_HERE, route, "count"_key = count).Run([&](TextView body) {
        return ParseTokensFromPlatform(body, tokens);
    });
}

int RefreshTokenFromPlatform(const AuthorizationRoute& route, const RefreshCredentials& credentials,
                             RefreshTokenInfo& info) {
    return RequestCall<requests::kRefreshToken>(VANTIX_HERE, route, "refresh_token"_key = credentials.refreshToken,
                                                "client_id"_key = route.AppKey(), "open_id"_key = credentials.openId,
                                                "scope"_key = credentials.scope, "state"_key = credentials.state)
        .Run([&](TextView body) { return ParseRefreshTokenFromPlatform(body, info); });
}

int ParseTicketInfoFromPlatform(TextView body, std::string& ticket) {
    return ReadResponse(VANTIX_HERE, body, MetaCode, [&](const JsonCppView& root) -> int {
        root.Member("ticketInfo").Member("ticket").Read(ticket);
        return VANTIX_NOERROR;
    });
}

int ParseRealyTicketInfoFromPlatform(TextView body, std::string& ticket) {
    return ReadObjectResponse(VANTIX_HERE, body, MetaCode, RootData,
                              [&](const JsonCppView& data) { data.Member("ticket").Read(ticket); });
}

int ParseTokensFromPlatform(TextView body, std::deque<std::string>& tokens) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) -> int {
        const JsonCppView array = root.Member("tokenArray");
        if (!array.IsArray()) {
            return LogMalformed(site, body);
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

int ParseRefreshTokenFromPlatform(TextView body, RefreshTokenInfo& info) {
    const CallSite site = VANTIX_HERE;
    return ReadResponse(site, body, EnvelopeCode, [&](const JsonCppView& root) -> int {
        const JsonCppView data = ResultOrRootData(root);
        if (!data.IsObject()) {
            return LogMalformed(site, body, "data");
        }
        RefreshTokenInfo fresh;
        if (const char* missing = ReadRefresh(data, fresh)) {
            return LogMalformed(site, body, missing);
        }
        info = std::move(fresh);
        return VANTIX_NOERROR;
    });
}

}  // namespace vantix
