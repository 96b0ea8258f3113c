#pragma once

#include <functional>
#include <string>

#include "core/QueryTable.h"
#include "core/Source.h"
#include "log/Logger.h"

namespace vantix {

/// The channel of operations on a whole device.
inline constexpr int kFirstChannel = 1;

/// What a query is about: a channel, or the account as a whole.
struct Subject {
    std::string serial;
    int ch = kFirstChannel;

    static Subject Account() { return {}; }
};

/// Sends a query's request.
using SendQuery = std::function<int(const Caller& caller)>;

}  // namespace vantix
