#include "ChildProcess.h"
#include "Simulator.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <optional>
#include <string_view>

namespace {

namespace simulator = vantix::simulator;

constexpr int usageError = 2;

constexpr const char* usage =
    "usage: vantix-simulator [--b-port N] [--c-port N] [--control-port N] [--until-eof]\n"
    "       vantix-simulator [ports] --run -- COMMAND [ARGUMENT...]\n"
    "\n"
    "Without --run: prints the addresses as a line of JSON and serves until SIGINT, SIGTERM or SIGHUP,\n"
    "with --until-eof also until standard input ends. With --run: serves while COMMAND runs, with\n"
    "VANTIX_SIMULATOR=<control address> in its environment, and exits with its status.\n";

struct Arguments {
    simulator::Options options;
    bool untilEof = false;
    bool run = false;
    char** command = nullptr;  ///< null-terminated, part of argv
};

bool ReadPort(const char* text, std::uint16_t& port) {
    if (text == nullptr) {
        return false;
    }
    const char* end = text + std::strlen(text);
    const auto parsed = std::from_chars(text, end, port);
    return parsed.ec == std::errc() && parsed.ptr == end;
}

std::uint16_t* PortOf(std::string_view name, simulator::Options& options) {
    if (name == "--b-port") {
        return &options.bPort;
    }
    if (name == "--c-port") {
        return &options.cPort;
    }
    return name == "--control-port" ? &options.controlPort : nullptr;
}

std::optional<Arguments> ReadArguments(char** argv) {
    Arguments arguments;
    for (char** at = argv + 1; *at != nullptr; ++at) {
        const std::string_view name = *at;
        if (std::uint16_t* port = PortOf(name, arguments.options); port != nullptr) {
            if (!ReadPort(*++at, *port)) {
                return std::nullopt;
            }
        } else if (name == "--until-eof") {
            arguments.untilEof = true;
        } else if (name == "--run") {
            arguments.run = true;
        } else if (name == "--" && arguments.run && at[1] != nullptr) {
            arguments.command = at + 1;
            return arguments;
        } else {
            return std::nullopt;
        }
    }
    return arguments.run ? std::nullopt : std::optional(arguments);
}

/// Blocks the signals for every thread started later; the returned descriptor receives them instead.
int BlockSignals(sigset_t& before) {
    sigset_t handled;
    sigemptyset(&handled);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGCHLD, SIGPIPE}) {
        sigaddset(&handled, number);
    }
    sigprocmask(SIG_BLOCK, &handled, &before);
    sigdelset(&handled, SIGPIPE);  // only blocked: the descriptor does not receive it
    return signalfd(-1, &handled, SFD_CLOEXEC);
}

bool InputEnded() {
    std::array<char, 256> ignored{};
    return read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0;
}

int ServeUntilStopped(int signals, bool untilEof) {
    std::array<pollfd, 2> watched = {{{signals, POLLIN, 0}, {untilEof ? STDIN_FILENO : -1, POLLIN, 0}}};
    for (;;) {
        if (poll(watched.data(), watched.size(), -1) < 0) {
            continue;
        }
        if (watched[0].revents != 0) {
            signalfd_siginfo info{};
            if (read(signals, &info, sizeof info) > 0 && info.ssi_signo != SIGCHLD) {
                return 0;
            }
        }
        if (watched[1].revents != 0 && InputEnded()) {
            return 0;
        }
    }
}

int Start(const Arguments& arguments) {
    sigset_t before;
    const int signals = BlockSignals(before);
    simulator::Simulator cloud(arguments.options);
    if (arguments.run) {
        return simulator::RunChildProcess(arguments.command, cloud.ControlAddress(), signals, before);
    }
    std::printf("{\"bDomain\":\"%s\",\"cDomain\":\"%s\",\"control\":\"%s\"}\n", cloud.BDomain().c_str(),
                cloud.CDomain().c_str(), cloud.ControlAddress().c_str());
    std::fflush(stdout);
    return ServeUntilStopped(signals, arguments.untilEof);
}

}  // namespace

int main(int /*argc*/, char** argv) {
    const auto arguments = ReadArguments(argv);
    if (!arguments) {
        std::fputs(usage, stderr);
        return usageError;
    }
    try {
        return Start(*arguments);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "vantix-simulator: %s\n", problem.what());
        return 1;
    }
}
