#pragma once

/// @file
/// One request of the open platform as its tests see it: how it is called, what must go over the wire, what must come
/// back, and what its log lines say.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "requests/RequestCall.h"
#include "support/SimulatorClient.h"

namespace vantix::test {

using Pairs = std::vector<std::pair<std::string, std::string>>;

/// Milliseconds that every request takes in these tests.
inline constexpr int kCost = 3;

struct PlatformCase {
    std::string name;       ///< Of the test.
    std::string function;   ///< The request function, which is also its log tag.
    std::string transport;  ///< The free function that it goes through.
    std::string path;
    /// In any order; the wire's order is that of the keys. "$token", "$key", "$session" and "$feature" stand for the
    /// caller's.
    Pairs parameters;
    /// Runs the request and writes what it filled, which held something before.
    std::function<int(const Caller& caller, Json& output)> call;
    /// Checks what a good answer of the sample account fills.
    std::function<void(const Json& output, const SimulatorClient& cloud)> expect;
    std::string parser;  ///< Whose line says that an answer is no JSON.
    std::string label;   ///< Of the line about a refused answer.
    std::string transportFailure = "SyncRequest error:";
    std::string cost{};          ///< What the line about the elapsed time begins with.
    Pairs headers{};             ///< Besides those that every request has.
    std::string body{};          ///< Of a JSON post.
    bool parserLogsCode = true;  ///< A parser shows a platform code, a mere check does not.
    bool isOnConsumer = false;   ///< Goes to the consumer servers, with the session for a credential.

    bool IsForm() const { return transport == "SyncRequest"; }
    bool IsJson() const { return transport == "SyncRequestjson"; }
};

void PrintTo(const PlatformCase& row, std::ostream* out);

/// The rows of a subject.
std::vector<PlatformCase> DeviceCases();
std::vector<PlatformCase> ServerCases();
std::vector<PlatformCase> TokenCases();
std::vector<PlatformCase> ListCases();
std::vector<PlatformCase> RecordingCases();
std::vector<PlatformCase> AccountCases();
/// All of them.
std::vector<PlatformCase> PlatformCases();

/// The parameters that most requests carry, with more behind them.
Pairs WithClient(Pairs more);

}  // namespace vantix::test
