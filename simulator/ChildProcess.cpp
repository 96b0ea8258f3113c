#include "ChildProcess.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

namespace vantix::simulator {
namespace {

constexpr int notFound = 127;
constexpr int signalBase = 128;
/// A child that does not end after a signal is killed after this time.
constexpr std::chrono::seconds grace{10};

using Clock = std::chrono::steady_clock;

/// Replaces the forked process by the command. Calls only what is safe between fork and exec. The child is killed when
/// the simulator dies, so that it never outlives the cloud.
[[noreturn]] void Execute(char** command, const sigset_t& mask) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    sigprocmask(SIG_SETMASK, &mask, nullptr);
    execvp(command[0], command);
    const char* problem = std::strerror(errno);
    for (const char* text : {static_cast<const char*>(command[0]), ": ", problem, "\n"}) {
        (void)!write(STDERR_FILENO, text, std::strlen(text));
    }
    _exit(notFound);
}

std::optional<int> StatusOf(pid_t child) {
    int state = 0;
    if (waitpid(child, &state, WNOHANG) != child) {
        return std::nullopt;
    }
    if (WIFSIGNALED(state)) {
        return signalBase + WTERMSIG(state);
    }
    return WEXITSTATUS(state);
}

/// Waits for the next signal; 0 when none arrives within half a second.
int NextSignal(int signals) {
    pollfd watched{signals, POLLIN, 0};
    signalfd_siginfo info{};
    if (poll(&watched, 1, 500) == 1 && read(signals, &info, sizeof info) == static_cast<ssize_t>(sizeof info)) {
        return static_cast<int>(info.ssi_signo);
    }
    return 0;
}

int WaitFor(pid_t child, int signals) {
    std::optional<Clock::time_point> deadline;
    for (;;) {
        if (const auto status = StatusOf(child)) {
            return *status;
        }
        const int signal = NextSignal(signals);
        if (signal != 0 && signal != SIGCHLD) {
            kill(child, signal);
            deadline = deadline.value_or(Clock::now() + grace);
        }
        if (deadline && Clock::now() > *deadline) {
            kill(child, SIGKILL);
        }
    }
}

}  // namespace

int RunChildProcess(char** command, const std::string& controlAddress, int signals, const sigset_t& mask) {
    setenv("VANTIX_SIMULATOR", controlAddress.c_str(), 1);
    const pid_t child = fork();
    if (child == 0) {
        Execute(command, mask);
    }
    if (child < 0) {
        std::perror("fork");
        return 1;
    }
    return WaitFor(child, signals);
}

}  // namespace vantix::simulator
