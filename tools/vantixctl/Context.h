#pragma once

#include "session/Session.h"
#include "text/Style.h"

namespace vantix::ctl {

/// What every command needs besides its own arguments.
struct Context {
    SessionChoice session;
    bool json = false;         ///< print JSON instead of tables
    bool showSecrets = false;  ///< do not mask them in tables
    Painter paint{false};      ///< colours standard output
    int width = 100;           ///< of the screen, in columns
};

}  // namespace vantix::ctl
