#pragma once

#include <string>
#include <vector>

#include "Command.h"
#include "session/Session.h"
#include "text/Style.h"

namespace vantix::ctl {

/// A command and what it was given.
struct Invocation {
    const Command* command = nullptr;
    Arguments arguments;
    bool help = false;  ///< its help was asked for
};

/// Everything that the command line says.
struct CommandLine {
    std::vector<Invocation> invocations;  ///< "then" stands between them
    SessionChoice session;
    ColourChoice colour = ColourChoice::Auto;
    std::string credentials;  ///< file, empty for none
    bool json = false;
    bool showSecrets = false;
    bool help = false;
    bool version = false;
};

/// An option that every command understands, besides the settings.
struct GlobalOption {
    std::string_view name;         ///< without the dashes
    std::string_view placeholder;  ///< empty when it takes no value
    std::string_view help;
    void (*take)(CommandLine& line, const std::string& value);
};

std::span<const GlobalOption> GlobalOptions();

/// Reads the arguments behind the program's name, with what the environment and the credentials file add.
/// Throws UsageError.
CommandLine ReadCommandLine(const std::vector<std::string>& words);

}  // namespace vantix::ctl
