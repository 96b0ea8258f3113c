#pragma once

#include "Cloud.h"
#include "Parameters.h"

namespace vantix::simulator {

/// The answer of the account's data to a request, without any plan.
Answer AnswerFrom(Cloud& cloud, const Request& request, const Parameters& parameters);

/// An answer that carries this code in the envelope of the path.
Answer AnswerWithCode(const std::string& path, const std::string& code, const std::string& message);

/// A plain web page for a status, as gateways send it.
Answer AnswerWithStatus(int status);

}  // namespace vantix::simulator
