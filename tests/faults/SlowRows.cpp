// Servers that keep a call waiting: every transfer ends after thirty seconds, twenty of them for connecting.

#include "faults/FaultRow.h"

namespace vantix::test {
namespace {

constexpr char kEndless[] = "HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n";

/// Thirty seconds for each transfer, and what a busy machine needs besides.
Outcome TimedOut(size_t requests = 1, size_t connections = 0) {
    return {.result = 100028,
            .requests = requests,
            .connections = connections,
            .secondsAtLeast = 29.5,
            .secondsAtMost = 40};
}

/// The handshake is part of connecting, for which there are twenty seconds.
Outcome NoHandshake() {
    return {.result = 100028, .requests = 0, .connections = 1, .secondsAtLeast = 19.5, .secondsAtMost = 30};
}

/// All requests for the row's own device meet the response.
FaultRow Slow(const std::string& name, Json script) {
    script["match"] = {{"deviceSerial", "$serial"}};
    return {.name = name, .script = script, .serial = name, .outcome = TimedOut()};
}

/// Each of the three transfers takes nearly as long as it may.
FaultRow StallsInCallRefreshAndRepeat() {
    const std::string name = "StallsInCallRefreshAndRepeat";
    const Json own = {{"deviceSerial", "$serial"}};
    constexpr int kNearlyThirtySeconds = 28'000;
    constexpr char kRefreshed[] =
        R"({"result":{"code":"200","data":{"access_token":"renewed","openId":"open","refresh_token":"next",)"
        R"("expires_in":7200}},"meta":{"code":200},"sessionInfo":{"sessionId":"renewed"}})";
    return {
        .name = name,
        .script =
            Json::array({{{"match", own}, {"code", "$expired"}, {"delayMs", kNearlyThirtySeconds}, {"times", 1}},
                         {{"path", "$refresh"}, {"body", kRefreshed}, {"delayMs", kNearlyThirtySeconds}, {"times", 1}},
                         {{"match", own}, {"hold", "forever"}}}),
        .serial = name,
        .outcome = {.result = 100028, .requests = 3, .renewed = "renewed", .secondsAtLeast = 85, .secondsAtMost = 91}};
}

}  // namespace

std::vector<FaultRow> SlowRows() {
    const std::string endless = kEndless;
    return {
        {.name = "SilenceAfterAccept", .port = {{"then", "keepOpen"}}, .outcome = NoHandshake()},
        Slow("StalledResponse", {{"hold", "forever"}}),
        Slow("DrippedHeaders", {{"raw", endless}, {"drip", {{"bytes", 1}, {"ms", 1000}}}}),
        Slow("DrippedBody", {{"raw", endless + std::string(1000, ' ')}, {"drip", {{"bytes", 48}, {"ms", 2000}}}}),
        // Each request waits four seconds; the eighth meets the end of the time.
        {.name = "SlowRedirectLoop",
         .script = {{"status", 307},
                    {"headers", {{"Location", "$path?$query"}}},
                    {"match", {{"deviceSerial", "$serial"}}},
                    {"delayMs", 4000}},
         .serial = "SlowRedirectLoop",
         .outcome = TimedOut(8)},
        StallsInCallRefreshAndRepeat(),
        {.name = "SilentServerOfAnUpload",
         .families = {Family::kPlatform},
         .port = {{"then", "keepOpen"}},
         .operation = "UploadCloudPicFile",
         .outcome = NoHandshake()},
        {.name = "StalledWithinTheBody",
         .port = {{"tls", {{"protocol", "http/1.1"}}},
                  {"send", "HTTP/1.1 200 OK\r\nContent-Length: $length\r\n\r\n$half"},
                  {"then", "keepOpen"}},
         .outcome = TimedOut(0, 1)},
    };
}

}  // namespace vantix::test
