#pragma once

#include "Cloud.h"
#include "Parameters.h"

namespace vantix::simulator {

/// Handles a request with the account's data, which it may change, without regard to scripted responses.
Response HandleRequest(Cloud& cloud, const Request& request, const Parameters& parameters);

/// A response with this code in the envelope of the path, without a payload.
Response ResponseWithCode(const std::string& path, const std::string& code, const std::string& message);

/// A response with this status and a short HTML body, as gateways send it.
Response ResponseWithStatus(int status);

}  // namespace vantix::simulator
