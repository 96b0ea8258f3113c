#pragma once

#include <functional>
#include <string>

#include "support/SimulatorClient.h"
#include "vantix/IVantixDataCenter.h"

namespace vantix::test {

/// What differs from call to call of one operation; everything else has the values of the platform's own cases.
struct OperationInput {
    std::string serial = "C10000001";
    int ch = 1;
    std::string token{};    ///< Of the operations that take one.
    std::string address{};  ///< The loopback cloud's, of the upload.
    bool retried = false;
};

/// Calls an operation and waits for its future, if it hands one back. The result is the operation's, or the future's;
/// what it filled becomes JSON, in the shape of the platform's own cases where there is one.
using OperationCall = std::function<int(IVantixDataCenter& center, const OperationInput& input, Json& output)>;

/// How to call the operation of this slot name; an empty function when it is unknown here.
OperationCall CallOf(const std::string& operation);

}  // namespace vantix::test
