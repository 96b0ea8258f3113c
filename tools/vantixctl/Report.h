#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Command.h"
#include "Context.h"

namespace vantix::ctl {

/// Writes text to standard output.
void Print(std::string_view text);

/// What an operation answered, as a document for machines.
Json Document(const Command& command, const Outcome& outcome, int64_t milliseconds);

/// Tells the person why an operation failed.
void ComplainAbout(std::string_view operation, int32_t code);

/// Runs an operation and prints its answer. Returns the exit status and leaves the document in `document`.
int RunOperation(const Context& context, const Session& session, const Command& command, const Arguments& arguments,
                 Json& document);

}  // namespace vantix::ctl
