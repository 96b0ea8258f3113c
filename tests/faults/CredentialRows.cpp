// Credentials that have expired, and servers that do not renew them.

#include "faults/FaultRow.h"

namespace vantix::test {
namespace {

/// So many responses that say "expired".
Json Expired(int times = 1) { return {{"path", "$path"}, {"code", "$expired"}, {"times", times}}; }

Json Refresh(Json response) {
    response["path"] = "$refresh";
    return response;
}

Json RefreshWith(const std::string& body) { return Refresh({{"body", body}}); }

/// The repeat: what the cloud says of a token that it did not make itself is not of interest.
Json Good() { return {{"path", "$path"}, {"body", "$body"}}; }

/// The authorisation service's response; the token as it stands there.
std::string Token(const std::string& token, const std::string& expiresIn = "7200") {
    return R"({"result":{"code":"200","data":{"access_token":)" + token +
           R"(,"openId":"open","refresh_token":"next","expires_in":)" + expiresIn + "}}}";
}

std::string Session(const std::string& info) { return R"({"meta":{"code":200},"sessionInfo":)" + info + "}"; }

constexpr char kRenewedSession[] = R"({"sessionId":"renewed","refreshSessionId":"next"})";

/// Expired once: refreshed once, repeated once, with the new credential.
FaultRow Renewed(const std::string& name, Family family, const std::string& refresh, const std::string& sent) {
    return {.name = name,
            .families = {family},
            .script = Json::array({Expired(), RefreshWith(refresh), Good()}),
            .outcome = {.requests = 3, .sent = sent, .renewed = "renewed"}};
}

/// The refresh fails: the old credential is kept, and the first result returned.
FaultRow NotRenewed(const std::string& name, Family family, const Json& refresh) {
    const bool isConsumer = family == Family::kConsumer;
    return {.name = name,
            .families = {family},
            .script = Json::array({Expired(0), Refresh(refresh)}),
            .outcome = {.result = isConsumer ? 300401 : 310002, .requests = 2}};
}

std::vector<FaultRow> TokenRows() {
    constexpr Family kFamily = Family::kPlatform;
    const std::string sent = "accessToken=renewed&";
    return {
        Renewed("ExpiredThenGood", kFamily, Token("\"renewed\""), sent),
        Renewed("ExpiresAtOnce", kFamily, Token("\"renewed\"", "0"), sent),
        Renewed("ExpiresInThePast", kFamily, Token("\"renewed\"", "-1"), sent),
        NotRenewed("ExpiresBeyondEveryNumber", kFamily, {{"body", Token("\"renewed\"", "1e20")}}),
        NotRenewed("ExpiresInAText", kFamily, {{"body", Token("\"renewed\"", "\"x\"")}}),
        {.name = "ExpiredTwice",
         .families = {kFamily},
         .script = Json::array({Expired(0), RefreshWith(Token("\"renewed\""))}),
         .outcome = {.result = 310002, .requests = 3, .sent = sent, .renewed = "renewed"}},
        NotRenewed("RefreshIsRefused", kFamily, {{"code", "10002"}}),
        NotRenewed("RefreshIsGarbage", kFamily, {{"body", "garbage"}}),
        NotRenewed("RefreshIsEmpty", kFamily, {{"body", ""}}),
        NotRenewed("RefreshIsNotAnswered", kFamily, {{"closeWithoutResponse", true}}),
        NotRenewed("RefreshHasNoToken", kFamily,
                   {{"body", R"({"result":{"code":"200","data":{"openId":"o","refresh_token":"n","expires_in":7}}})"}}),
        NotRenewed("RefreshHasANumberAsToken", kFamily, {{"body", Token("5")}}),
        NotRenewed("RefreshHasAnEmptyToken", kFamily, {{"body", Token("\"\"")}}),
    };
}

std::vector<FaultRow> SessionRows() {
    constexpr Family kFamily = Family::kConsumer;
    const std::string sent = "sessionId: renewed";
    return {
        Renewed("SessionGoneThenGood", kFamily, Session(kRenewedSession), sent),
        {.name = "SessionGoneTwice",
         .families = {kFamily},
         .script = Json::array({Expired(0), RefreshWith(Session(kRenewedSession))}),
         .outcome = {.result = 300401, .requests = 3, .sent = sent, .renewed = "renewed"}},
        NotRenewed("SessionRefreshIsRefused", kFamily, {{"code", "401"}}),
        NotRenewed("SessionRefreshIsGarbage", kFamily, {{"body", "garbage"}}),
        NotRenewed("SessionRefreshIsEmpty", kFamily, {{"body", ""}}),
        NotRenewed("SessionRefreshIsNotAnswered", kFamily, {{"closeWithoutResponse", true}}),
        NotRenewed("SessionRefreshHasNoSession", kFamily, {{"body", Session(R"({"refreshSessionId":"next"})")}}),
        NotRenewed("SessionRefreshHasANumberAsSession", kFamily, {{"body", Session(R"({"sessionId":5})")}}),
        NotRenewed("SessionRefreshHasAnEmptySession", kFamily, {{"body", Session(R"({"sessionId":""})")}}),
    };
}

/// All are told "expired" before one of them has renewed anything.
FaultRow ManyCallers(const std::string& name, Family family, const std::string& refresh) {
    Json expired = Expired(64);
    expired["hold"] = "many";
    return {.name = name,
            .families = {family},
            .script = Json::array({expired, RefreshWith(refresh), Good()}),
            .callers = 64,
            .hold = "many",
            .outcome = {.requests = 64 + 1 + 64,
                        .requestsAtMost = 64 + 64 + 64,
                        .renewed = "renewed",
                        .keptMiB = 8}};  // 64 callers at once
}

}  // namespace

std::vector<FaultRow> CredentialRows() {
    std::vector<FaultRow> rows = TokenRows();
    for (FaultRow& row : SessionRows()) {
        rows.push_back(std::move(row));
    }
    rows.push_back(ManyCallers("SixtyFourCallersWithAnExpiredToken", Family::kPlatform, Token("\"renewed\"")));
    rows.push_back(ManyCallers("SixtyFourCallersWithoutASession", Family::kConsumer, Session(kRenewedSession)));
    return rows;
}

}  // namespace vantix::test
