#pragma once

#include <functional>
#include <string>
#include <vector>

#include "vantix/IVantixDataCenter.h"
#include "vantix/records/CloudFileQuery.h"

namespace vantix::test {

/// What an operation is called with; every text argument of it is one of these.
struct Arguments {
    std::string serial;
    std::string token;
    std::string text;  ///< Times, JSON, ids, paths.
    int number = 1;    ///< Channels, pages, kinds.

    // The same, where an operation takes them together.
    TimeSpan span{text, text};
    CloudFileQuery query{text, text, number};
};

/// An operation of the interface with its name. Those without a code return 0 here.
struct Operation {
    const char* name;
    std::function<int(IVantixDataCenter& dataCenter, const Arguments& arguments)> call;
};

/// Those that return a code, in the order of their slots. Asynchronous ones wait for their future.
const std::vector<Operation>& OperationsWithCode();

/// All others.
const std::vector<Operation>& OperationsWithoutCode();

/// The operation of this name, or one that cannot be called.
Operation OperationNamed(const std::string& name);

}  // namespace vantix::test
