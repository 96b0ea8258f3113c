#pragma once

/// @file
/// The operations of the interface as rows, one file for each family.

#include <span>

#include "Command.h"

namespace vantix::ctl {

std::span<const Command> DetailOperations();
std::span<const Command> ServerOperations();
std::span<const Command> ListOperations();
std::span<const Command> TokenOperations();
std::span<const Command> RecordingOperations();
std::span<const Command> SettingOperations();

}  // namespace vantix::ctl
