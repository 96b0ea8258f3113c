#include "soak/JournalRules.h"
#include "support/ConsumerPath.h"

#include <algorithm>

namespace vantix::test {
namespace {

constexpr char kNone[] = "<none>";
constexpr char kRenewTokenPath[] = "/oauth/token/refreshToken";
constexpr char kRenewSessionPath[] = "/v3/apigateway/login";

bool BeginsWith(const std::string& text, const char* beginning) { return text.rfind(beginning, 0) == 0; }

bool Holds(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }

/// The credential of a platform request, in a form, an address or a JSON body.
std::string TokenOf(const ReceivedRequest& request) {
    const Json body = Json::parse(request.body, nullptr, false);
    return body.is_object() ? body.value("accessToken", kNone) : request.Parameter("accessToken");
}

/// A session stands nowhere in the request.
bool HasSession(const ReceivedRequest& request) {
    return request.Header("sessionId") != kNone || Holds(request.query, "se.soak.") ||
           Holds(request.query, "se.fresh.") || Holds(request.body, "se.soak.") || Holds(request.body, "se.fresh.") ||
           Holds(request.query, "sessionId=") || Holds(request.body, "sessionId");
}

bool IsSession(const Account& account, const std::string& session) {
    return BeginsWith(session, "se.fresh.4a7d18c9.") ||
           std::find(account.sessions.begin(), account.sessions.end(), session) != account.sessions.end();
}

bool IsAccessToken(const Account& account, const std::string& token) {
    return BeginsWith(token, "at.fresh.7c2e90b4.") ||
           std::find(account.accessTokens.begin(), account.accessTokens.end(), token) != account.accessTokens.end();
}

/// Whether the token is the one that the host gave with the call: of stream tokens, and of relays by slot 10.
bool HasGivenToken(const ReceivedRequest& request) {
    return request.path == "/api/user/token" ||
           (request.path == "/api/service/media/server/info" && request.Parameter("localIndex") != kNone);
}

std::string WrongInConsumer(const Account& account, const ReceivedRequest& request) {
    if (request.domain != "C") {
        return "a consumer request outside the C domain";
    }
    if (Holds(request.query + request.body, "accessToken") || request.Header("accessToken") != kNone) {
        return "a consumer request with an access token";
    }
    return IsSession(account, request.Header("sessionId")) ? "" : "a consumer request without a session";
}

/// The token of a device goes with requests about that channel alone; a token of a map that says "shared" never goes to
/// the platform, and tokens of other looks never go to the C domain.
std::string WrongInToken(const Account& account, const ReceivedRequest& request, const std::string& token) {
    if (IsAccessToken(account, token) || HasGivenToken(request)) {
        return "";
    }
    const bool isTk = BeginsWith(token, "tk.");
    if (isTk && request.domain == "C") {
        return "a Tk token at the C domain";
    }
    if (token == account.globalTkToken) {
        return "";
    }
    if (token == kSharedToken) {
        return "a platform request with the token of a shared channel";
    }
    if (!isTk && !BeginsWith(token, "b2c.own.")) {
        return "a platform request with no token of the account";
    }
    if (!isTk && request.domain == "C") {
        return "the token of an own channel at the C domain";
    }
    // The request of the P2P user alone is made with a device's token and names none.
    const bool isOfDevice = Holds(token, ("." + request.Parameter("deviceSerial") + "-").c_str());
    return isOfDevice || request.path == "/api/sdk/p2p/user/info/get" ? "" : "the token of another device";
}

std::string WrongInPlatform(const Account& account, const ReceivedRequest& request) {
    if (HasSession(request)) {
        return "a platform request with a session";
    }
    if (request.path == "/api/config/info") {
        return TokenOf(request) == kNone ? "" : "a token where none belongs";
    }
    return WrongInToken(account, request, TokenOf(request));
}

std::string WrongInTokenRenewal(const Account& account, const ReceivedRequest& request) {
    const bool isGood = request.domain == "B" && !HasSession(request) && TokenOf(request) == kNone &&
                        request.Parameter("refresh_token") == account.refreshToken &&
                        request.Parameter("open_id") == account.openId;
    return isGood ? "" : "a renewal of the token with something else";
}

bool NamesKnownDevice(const ReceivedRequest& request) {
    const std::string serial = request.Parameter("deviceSerial");
    const auto places = Places();
    return serial == kNone || serial.empty() ||
           std::any_of(places.begin(), places.end(), [&](const Place& place) { return serial == place.serial; });
}

std::string WrongByPath(const Account& account, const ReceivedRequest& request) {
    if (IsOfConsumer(request)) {
        return WrongInConsumer(account, request);
    }
    if (request.path == kRenewTokenPath) {
        return WrongInTokenRenewal(account, request);
    }
    if (BeginsWith(request.path, "/upload/")) {
        return HasSession(request) || Holds(request.body, "accessToken") ? "an upload with a credential" : "";
    }
    return BeginsWith(request.path, "/api/") ? WrongInPlatform(account, request) : "a path that no request has";
}

}  // namespace

bool IsOfConsumer(const ReceivedRequest& request) { return IsConsumerPath(request.path); }

bool IsRenewal(const ReceivedRequest& request) {
    return request.path == kRenewTokenPath || request.path == kRenewSessionPath;
}

std::string WrongInRequest(const Account& account, const ReceivedRequest& request) {
    std::string wrong = WrongByPath(account, request);
    if (wrong.empty() && !NamesKnownDevice(request)) {
        wrong = "a device that nobody asked for";
    }
    return wrong.empty()
               ? wrong
               : wrong + ": " + request.domain + " " + request.method + " " + request.path + "?" + request.query + " " +
                     request.body.substr(0, 1000) + " session " + request.Header("sessionId");
}

}  // namespace vantix::test
