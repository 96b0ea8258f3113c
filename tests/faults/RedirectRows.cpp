// Redirects: libcurl follows them, over http and https alone.

#include "faults/FaultRow.h"

namespace vantix::test {
namespace {

Json RedirectTo(const char* address, int status = 302) {
    return {{"status", status}, {"headers", {{"Location", address}}}, {"body", "moved"}};
}

Json Times(int times, Json script) {
    script["times"] = times;
    return script;
}

/// To itself for ever, with so much in the headers that libcurl's 300 KiB for all headers of a transfer end it soon:
/// its own end of every loop that is fast enough.
Json LoopWithLongHeaders(int status) {
    return {{"status", status}, {"headers", {{"Location", "$path"}, {"X-Long", std::string(40'000, 'x')}}}};
}

std::vector<FaultRow> RefusedRows() {
    // The transport of Windows is built without files, and does not know such addresses.
    const Outcome file = {.result = 100001, .onWindows = {100003}};
    return {
        {.name = "ToAFile", .script = RedirectTo("file:///etc/hostname"), .outcome = file},
        {.name = "ToGopher", .script = RedirectTo("gopher://127.0.0.1/"), .outcome = {.result = 100001}},
        {.name = "ToScp", .script = RedirectTo("scp://127.0.0.1/response"), .outcome = {.result = 100001}},
        {.name = "ToSmb", .script = RedirectTo("smb://127.0.0.1/share/response"), .outcome = {.result = 100001}},
        {.name = "ToFtp", .script = RedirectTo("ftp://127.0.0.1/response"), .outcome = {.result = 100001}},
        {.name = "ToNothing",
         .script = {{"raw", "HTTP/1.1 302 Found\r\nLocation:\r\nContent-Length: 0\r\n\r\n"}},
         .outcome = {.result = 300001}},
        {.name = "WithoutALocation", .script = {{"status", 302}, {"body", "moved"}}, .outcome = {.result = 300001}},
        {.name = "ToAPortThatRefuses", .script = RedirectTo("$closed"), .outcome = {.result = 100007}},
        {.name = "ToPlainHttpAtATlsPort",
         .script = RedirectTo("http://$host"),
         .outcome = {.result = kSomeTransportFailure}},
    };
}

std::vector<FaultRow> FollowedRows() {
    return {
        {.name = "LoopThatLibcurlEnds",
         .script = LoopWithLongHeaders(307),
         .outcome = {.result = 100056, .requests = 8}},
        // The second request of a 302 is a GET without the form, so the platform finds no parameter.
        {.name = "FoundToItself",
         .script = Times(1, RedirectTo("$path")),
         .outcome = {.result = 300001, .requests = 2, .journal = {"B POST form token", "B GET"}},
         .consumer = Outcome{.result = 310001, .requests = 2, .journal = {"C GET session", "C GET session"}}},
        {.name = "TemporaryRedirectToItself",
         .script = Times(1, RedirectTo("$path", 307)),
         .outcome = {.requests = 2, .journal = {"B POST form token", "B POST form token"}, .isAsBefore = true},
         .consumer = Outcome{.result = 310001, .requests = 2, .journal = {"C GET session", "C GET session"}}},
        // Observed, and left as it is: what was sent goes to the other origin too, the session with it.
        {.name = "TemporaryRedirectToTheOtherFamily",
         .script = Times(1, RedirectTo("$other$path?$query", 307)),
         .outcome = {.requests = 2, .journal = {"B POST form token", "C POST form token"}, .isAsBefore = true},
         .consumer = Outcome{.requests = 2, .journal = {"C GET session", "B GET session"}, .isAsBefore = true}},
        {.name = "FoundAtTheOtherFamily",
         .script = Times(1, RedirectTo("$other$path", 302)),
         .outcome = {.result = 300001, .requests = 2, .journal = {"B POST form token", "C GET"}},
         .consumer = Outcome{.result = 310001, .requests = 2, .journal = {"C GET session", "B GET session"}}},
    };
}

}  // namespace

std::vector<FaultRow> RedirectRows() {
    std::vector<FaultRow> rows = RefusedRows();
    for (FaultRow& row : FollowedRows()) {
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace vantix::test
