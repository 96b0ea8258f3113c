#pragma once

/// @file
/// One request as a host causes it and a server sees it: which operation sends it, what goes over the wire, what comes
/// back and what that fills, and the log lines of it all. Everything is written out; nothing is taken from the library.

#include <string>
#include <vector>

#include "support/Operations.h"
#include "support/TestJson.h"

namespace vantix::test {

/// A log line. In the message "$body" stands for the response.
struct ExpectedLine {
    unsigned level;
    std::string word;
    std::string tag;
    std::string message;
};

/// A response that is refused, and what becomes of it.
struct Refusal {
    std::string body;
    int result;
    /// What the request function writes after the line about the elapsed time, all of it and in this order.
    std::vector<ExpectedLine> lines{};
    /// What its parser or check writes, besides what it writes of every response.
    std::vector<ExpectedLine> parserLines{};
    Json fills = Json::object();  ///< Besides the elapsed time.
};

/// Another request of the same call, and the response that it gets.
struct Exchange {
    const char* path;
    const char* response;
};

/// The host's credentials are "access-token", "app-key" and "session-id"; "$feature" stands for the machine's feature
/// code.
struct RequestCase {
    std::string name;      ///< Of the test.
    std::string function;  ///< The request function, which is the tag of its lines.
    std::string operation;
    Arguments arguments{};
    int mode = 0;  ///< In mode 2 the camera S60000006 is shared, with the token "shared-token".

    std::string transport;  ///< The tag of the lines about the address and the end.
    std::string sender;     ///< The tag of the line about the response.
    std::string domain = "B";
    std::string method = "POST";
    std::string path;
    std::string query{};
    std::string body{};
    std::vector<std::string> headers{};  ///< Those that the library adds, as "name: value".

    std::vector<Exchange> before{};  ///< Requests of the same call that come first.
    std::string response;
    std::vector<Exchange> after{};      ///< Those that follow this response.
    Json fills;                         ///< What the call changes in `Prefilled` outputs.
    std::vector<ExpectedLine> lines{};  ///< What the request function writes of this response, after the elapsed time.

    std::vector<std::string> costLines{};        ///< The request function's lines about elapsed times, 3 ms each.
    Json costFills = Json::object();             ///< What a failed call changes.
    std::string unsent = "SyncRequest error:7";  ///< The request function's line when there is no server.
    int unsentResult = 100007;
    std::vector<Refusal> refusals{};

    bool IsForm() const { return !body.empty() && body.front() != '{'; }
};

void PrintTo(const RequestCase& row, std::ostream* out);

/// Every request of the platform, by subject.
std::vector<RequestCase> DeviceRequests();
std::vector<RequestCase> ServerRequests();
std::vector<RequestCase> TokenRequests();
std::vector<RequestCase> ListRequests();
std::vector<RequestCase> RecordingRequests();
std::vector<RequestCase> AccountRequests();
/// All of those.
std::vector<RequestCase> PlatformRequests();
/// Every request of the consumer servers.
std::vector<RequestCase> ConsumerRequests();

/// The refusals that all requests of the platform share. A parser reports a code; a mere check does not. `label` begins
/// the request function's own line.
std::vector<Refusal> ParserRefusals(const std::string& function, const std::string& parser, const std::string& label);
std::vector<Refusal> CheckRefusals(const std::string& function, const std::string& check, const std::string& label);
/// The same refusals, with this result each.
std::vector<Refusal> With(int result, std::vector<Refusal> refusals);

/// Gives the data center what the row's call needs: mode, credentials, tokens, empty caches. The domains are the
/// caller's.
void PrepareFor(const RequestCase& row, IVantixDataCenter& center);

/// The text with the machine's feature code in its place.
std::string WithFeatureCode(std::string text);
/// The parameters, JSON text or header as the log shows them.
std::string Masked(const std::string& text);

/// The paths of a request function's rows, each once, in their order.
std::vector<std::string> PathsOf(const std::string& function);

}  // namespace vantix::test
