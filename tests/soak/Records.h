#pragma once

#include <string>

#include "soak/Choice.h"
#include "support/Operations.h"

namespace vantix::test {

/// What is torn or foreign in what a successful call handed out; nothing when all of it belongs together. With faults
/// the P2P user may be empty: a refusal of its first response is a success without a record.
std::string WrongInRecord(const ChosenCall& call, const Outputs& outputs, bool withFaults);

/// Whether there is something to check for this operation.
bool HandsOutRecord(int slot);

}  // namespace vantix::test
