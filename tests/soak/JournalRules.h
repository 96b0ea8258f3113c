#pragma once

#include <string>

#include "soak/Account.h"
#include "support/SimulatorClient.h"

namespace vantix::test {

/// Whether a request belongs to the consumer servers. One of theirs has a path like the platform's.
bool IsOfConsumer(const ReceivedRequest& request);
/// Whether it renews a credential.
bool IsRenewal(const ReceivedRequest& request);

/// What is wrong with a request that the cloud received; nothing when it is as it should be.
std::string WrongInRequest(const Account& account, const ReceivedRequest& request);

}  // namespace vantix::test
