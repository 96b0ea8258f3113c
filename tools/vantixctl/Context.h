#pragma once

#include "session/Session.h"
#include "text/Style.h"

namespace vantix::ctl {

/// Everything that a command needs besides its own arguments.
struct Context {
    SessionChoice session;
    bool json = false;         ///< for machines
    bool showSecrets = false;  ///< do not mask them for people
    Painter paint{false};      ///< for standard output
    int width = 100;           ///< of the screen
};

}  // namespace vantix::ctl
