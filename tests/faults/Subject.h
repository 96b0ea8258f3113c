#pragma once

#include <string>
#include <vector>

#include "integration/SampleAccount.h"
#include "support/Operations.h"
#include "support/SimulatorClient.h"

namespace vantix::test {

/// Which servers a call goes to.
enum class Family { kPlatform, kConsumer };

/// An operation that meets the faults, and what its server sends and expects.
struct Subject {
    std::string name;
    Family family;
    std::string operation;
    bool isTask = false;  ///< The asynchronous front.
    int mode = 0;
    std::string serial;  ///< Of channel 1.
    std::string path;
    std::string body;      ///< A small response that is served and says that all is well.
    std::string longBody;  ///< The same with a text "$filler".
    std::string listBody;  ///< The same with elements "$filler" that no record takes, at the end of a list.
    std::string refreshPath;
    std::string expiredCode;

    bool IsConsumer() const { return family == Family::kConsumer; }
};

/// The platform's own device, the same through the asynchronous front, and a shared device of the consumer servers.
const std::vector<Subject>& Subjects();

}  // namespace vantix::test
