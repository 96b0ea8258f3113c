#pragma once

/// @file
/// One request of the consumer servers as its tests see it: how it is called, what must go over the wire, what must
/// come back, and what becomes of each answer that is refused.

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "requests/RequestCall.h"
#include "support/SimulatorClient.h"

namespace vantix::test {

/// Milliseconds that every transfer takes in these tests.
inline constexpr int kTransferCost = 3;

/// A line that must be written once. In its message "$body" stands for the answer.
struct ExpectedLine {
    std::string message;
    std::string tag;
    unsigned level = 5;

    std::string Word() const { return level == 5 ? "ERROR" : "INFO "; }
};

/// An answer, what becomes of it, and the lines that say so.
struct ConsumerRefusal {
    Json plan;
    int result = 0;
    std::vector<ExpectedLine> lines;
};

/// One transfer of a request.
struct ConsumerTransfer {
    std::string path;
    std::string transportFailure;  ///< The line's text before the code.
    std::string cost;              ///< What the line about the elapsed time begins with; empty when there is none.
    std::vector<ConsumerRefusal> refusals;
};

/// In the values of `query` and `headers`, "$session", "$refresher" and "$feature" stand for the caller's.
struct ConsumerCase {
    std::string name;                                          ///< Of the test.
    std::string function;                                      ///< The request function, which is also its log tag.
    std::string transport;                                     ///< The free function that it goes through.
    std::string query;                                         ///< Exactly, in the wire's order.
    std::vector<std::pair<std::string, std::string>> headers;  ///< In the wire's order.
    std::vector<ConsumerTransfer> transfers;                   ///< In their order; all but one have a single one.
    /// Runs the request and writes what it filled, which held something before.
    std::function<int(const Caller& caller, const Json& account, Json& output)> call;
    /// Checks what a good answer of the sample account fills.
    std::function<void(const Json& output, const SimulatorClient& cloud)> expect;
    std::string expiredAs = "300401";  ///< What an expired session becomes.
};

void PrintTo(const ConsumerCase& row, std::ostream* out);

/// The seven requests.
std::vector<ConsumerCase> ConsumerCases();

}  // namespace vantix::test
