#pragma once

/// @file
/// The operations of `CRequest` as rows, so that what holds for all of them stands once.

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "transport/CRequest.h"

namespace vantix::test {

inline constexpr const char* kAddress = "https://cloud.test:8443/api/x";
inline constexpr const char* kParameters = "a=1&b=2";

/// One operation of `CRequest`. The second text is a parameter string, or a local path.
struct Operation {
    const char* name;
    const char* tag;
    std::function<int(const CRequest& request, const char* address, const char* second, char** response,
                      uint32_t* length)>
        run;
    bool takesFile = false;
};

inline ParamMap TwoEntries() {
    ParamMap entries;
    entries.Add("b", "2");
    entries.Add("A", "1");
    return entries;
}

/// All of them; headers and form fields are those of `entries`.
std::vector<Operation> Operations(const ParamMap& entries = TwoEntries());

/// A small file that is there, for the operation that sends one.
std::string ExistingFile();

/// What an operation left behind. Owns the block.
class Outcome {
public:
    /// Runs an operation against an address with a parameter string (or with an existing file).
    explicit Outcome(const Operation& operation, const CRequest& request = CRequest(),
                     const std::string& address = kAddress);
    ~Outcome();
    Outcome(const Outcome&) = delete;
    Outcome& operator=(const Outcome&) = delete;

    int result = -1;
    char* response = nullptr;
    uint32_t length = 4711;

    std::string Body() const { return {response, length}; }
};

}  // namespace vantix::test
