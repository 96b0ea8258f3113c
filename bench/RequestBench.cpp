// One request on a new connection each. A post goes through the interface; it returns the body of the response.

#include <cstdio>
#include <string>

#include "BareRequest.h"
#include "Cases.h"
#include "Center.h"
#include "DetailResponse.h"
#include "RequestTexts.h"
#include "core/routes/Routes.h"
#include "core/settings/Settings.h"
#include "core/tokens/B2CTokens.h"
#include "core/tokens/TkTokens.h"
#include "cserver/RequestTable.h"
#include "log/Logger.h"
#include "requests/RequestCall.h"

namespace vantix::bench {
namespace {

template <bool Tls, int LogLevel>
void Prepare() {
    UseAddress(ServerAddress(Tls));
    Center().setLogLevel(LogLevel);
}

void Post() {
    static const std::string serial = kSerial;
    static const std::string alarmId = kAlarmId;
    std::string json;
    Require(Center().getRecordByAlarmID(serial, 1, alarmId, json) == VANTIX_NOERROR && !json.empty(),
            "the post failed");
}

/// The route of a host that set just this address and this session.
template <bool Tls>
const ConsumerRoute& Route() {
    static const ConsumerRoute route = [] {
        Settings settings;
        settings.CDomain.Assign(ServerAddress(Tls));
        settings.sessionId.Assign(kSession);
        return Routes(settings, TkTokens(), B2CTokens()).ToRenewSession();
    }();
    return route;
}

template <bool Tls>
void PrepareGet() {
    Center().setLogLevel(kQuiet);
    Route<Tls>();
}

/// No operation hands on the body of such a request unread, so this one ends where the parser would begin.
template <bool Tls>
void Get() {
    ResponseBody body;
    RequestCall<cserver_requests::kDeviceFiles> call(VANTIX_HERE, Route<Tls>(), "deviceSerial"_key = kSerial,
                                                     "channelNo"_key = 1, "startTime"_key = kDay, "stopTime"_key = kDay,
                                                     "recordType"_key = 1);
    Require(call.Fetch(body) == VANTIX_NOERROR && body.Text().size() > 0, "the GET failed");
}

/// What the server is to return to every request.
void PrintResponse(long /*amount*/) { std::fputs(DetailResponse(kSerial).c_str(), stdout); }

}  // namespace

std::vector<OneShot> RequestRuns() { return {{"request/response", PrintResponse}}; }

std::vector<Case> RequestCases() {
    return {
        MakeCase<Prepare<false, kQuiet>, Post>("request/post/plain", kFewRounds),
        MakeCase<Prepare<true, kQuiet>, Post>("request/post/tls", kFewRounds),
        MakeCase<Prepare<false, kUsual>, Post>("request/logged/plain", kFewRounds),
        MakeCase<Prepare<true, kUsual>, Post>("request/logged/tls", kFewRounds),
        MakeCase<PrepareGet<false>, Get<false>>("request/get/plain", kFewRounds),
        MakeCase<PrepareGet<true>, Get<true>>("request/get/tls", kFewRounds),
    };
}

}  // namespace vantix::bench
