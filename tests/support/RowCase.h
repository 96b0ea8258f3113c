#pragma once

/// @file
/// One row of a request table as a server and a reader of the log see it. Everything is written out; nothing is taken
/// from the table.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "support/CleanSwitches.h"
#include "support/FakeClock.h"
#include "support/FixedFeatureCode.h"
#include "support/LogCapture.h"
#include "support/ScriptedTransport.h"

namespace vantix::test {

/// A response that is refused.
struct RefusedResponse {
    std::string body;
    int result;
    std::string line;  ///< The request function's last line.
};

struct RowCase {
    std::string name;      ///< Of the test.
    std::string function;  ///< The request function, which is the tag of its lines.
    std::function<int()> send;
    std::string method = "POST";
    std::string url;
    std::string body{};
    std::vector<std::string> headers{};
    std::string cost{};     ///< The line about an elapsed time of 3 milliseconds, where there is one.
    std::string notSent{};  ///< The line about a transfer that fails with 7.
    std::vector<RefusedResponse> refused{};
};

void PrintTo(const RowCase& row, std::ostream* out);

/// Runs a row. Earlier requests of the same call get the responses in `before`.
class RequestRows : public testing::TestWithParam<RowCase> {
protected:
    RequestRows() { m_clock.SetSteadyStep(3'000'000); }

    static const RowCase& Row() { return GetParam(); }
    /// The request function's lines: word, level and message each.
    std::vector<std::string> OwnLines() const;

    CleanSwitches m_switches;
    FixedFeatureCode m_featureCode;
    FakeClock m_clock;
    ScriptedTransport m_transport;
    LogCapture m_log;
};

}  // namespace vantix::test
