#pragma once

#include <string>

#include "requests/Route.h"

namespace vantix {

/// Which of the two server families a fetch goes to, and with what.
struct Source {
    bool isConsumer = false;
    Caller caller;
};

/// The token that a fetch was asked with, which chooses family and domain, and the credential that the platform gets.
struct FetchTokens {
    std::string choosing;
    std::string carried;
};

}  // namespace vantix
