#pragma once

#include <string>
#include <vector>

#include "Command.h"
#include "session/Session.h"
#include "text/Style.h"

namespace vantix::ctl {

/// A command and the values of its arguments.
struct Invocation {
    const Command* command = nullptr;
    ArgumentValues values;
    bool help = false;  ///< its help is requested
};

/// The parsed command line.
struct CommandLine {
    std::vector<Invocation> invocations;  ///< separated by "then"
    SessionChoice session;
    ColourChoice colour = ColourChoice::Auto;
    std::string credentials;  ///< file, empty for none
    bool json = false;
    bool showSecrets = false;
    bool help = false;
    bool version = false;
};

/// An option that every command accepts, besides the settings.
struct GlobalOption {
    std::string_view name;         ///< without the dashes
    std::string_view placeholder;  ///< empty when it takes no value
    std::string_view help;
    void (*take)(CommandLine& line, const std::string& value);
};

std::span<const GlobalOption> GlobalOptions();

/// Parses the words after the program's name, and adds settings from the environment and the credentials file.
/// Throws UsageError.
CommandLine ReadCommandLine(const std::vector<std::string>& words);

}  // namespace vantix::ctl
