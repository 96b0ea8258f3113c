#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Command.h"
#include "Context.h"

namespace vantix::ctl {

/// Writes text to standard output.
void Print(std::string_view text);

/// The outcome of an operation, as a JSON document.
Json Document(const Command& command, const Outcome& outcome, int64_t milliseconds);

/// Prints why an operation failed, to standard error.
void PrintFailure(std::string_view operation, int32_t code);

/// Runs an operation, stores its outcome in `document` and, without --json, prints it. Returns the exit status.
int RunOperation(const Context& context, const Session& session, const Command& command,
                 const ArgumentValues& arguments, Json& document);

}  // namespace vantix::ctl
