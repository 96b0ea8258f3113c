#pragma once

#include <csignal>
#include <string>

namespace vantix::simulator {

/// Runs the command with VANTIX_SIMULATOR in its environment, passes signals on to it, and returns its exit status:
/// 128 + the number of the signal that ended it, 127 when there is no such command. `signals` is a signalfd that
/// delivers SIGINT, SIGTERM, SIGHUP and SIGCHLD; `mask` is the signal mask of the child.
int RunChildProcess(char** command, const std::string& controlAddress, int signals, const sigset_t& mask);

}  // namespace vantix::simulator
