#pragma once

/// @file
/// The commands of the tool's own. Each returns the exit status.

#include <span>

#include "Command.h"
#include "Context.h"

namespace vantix::ctl {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

int RunTour(Context& context, const Arguments& arguments);
int RunDetail(Context& context, const Arguments& arguments);
int RunExplain(Context& context, const Arguments& arguments);
int RunPrefetch(Context& context, const Arguments& arguments);
int RunWatch(Context& context, const Arguments& arguments);
int RunOperations(Context& context, const Arguments& arguments);
int RunCompletion(Context& context, const Arguments& arguments);
int RunHelp(Context& context, const Arguments& arguments);

std::span<const Command> ToolCommands();

}  // namespace vantix::ctl
