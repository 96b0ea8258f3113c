#pragma once

/// @file
/// The commands of the tool that are not operations of the interface. Each returns the exit status.

#include <span>

#include "Command.h"
#include "Context.h"

namespace vantix::ctl {

constexpr int kSuccess = 0;
constexpr int kFailure = 1;

int RunTour(Context& context, const ArgumentValues& arguments);
int RunDetail(Context& context, const ArgumentValues& arguments);
int RunExplain(Context& context, const ArgumentValues& arguments);
int RunPrefetch(Context& context, const ArgumentValues& arguments);
int RunWatch(Context& context, const ArgumentValues& arguments);
int RunOperations(Context& context, const ArgumentValues& arguments);
int RunCompletion(Context& context, const ArgumentValues& arguments);
int RunHelp(Context& context, const ArgumentValues& arguments);

std::span<const Command> ToolCommands();

}  // namespace vantix::ctl
