#pragma once

#include <string>

#include "support/Inputs.h"
#include "support/Transfers.h"

namespace vantix::fuzz {

/// What is known of a response when it is sent.
enum class Verdict {
    Good,     ///< In the server's shape.
    Refused,  ///< No parser accepts it.
    Failed,   ///< There is no response: the transfer failed.
    Unknown,  ///< Changed or made up by the input.
};

struct MadeResponse {
    TransferResult result;
    Verdict verdict = Verdict::Failed;
};

/// The path of an address, without the query.
std::string PathOf(const std::string& url);
/// A parameter of the query, the form or the JSON text; empty when it is not there.
std::string ParameterOf(const SentRequest& request, const std::string& key);

/// Makes the response that the input wants for this request, in the pieces that it wants. `stamp` stands in a member of
/// each record, such as "ip-7".
MadeResponse MakeResponse(Input& input, const SentRequest& request, const std::string& stamp);

}  // namespace vantix::fuzz
